#pragma once

#include <QString>

namespace quorvane {

// What every other part of the program may ask of the main window: the one way back up to it.
// The Session hands out the view in force; before the main window attaches itself (and after it
// is gone) that is a view that does nothing, so callers never check for one.
class MainView
{
public:
    virtual ~MainView() = default;
    // Shows "File # " and the sound number being said.
    virtual void show_sound_caption(const QString& caption) = 0;
    // Shows the caption with the number of words of the shown list.
    virtual void show_word_count(const QString& caption) = 0;
    // Refills the word boxes from the word arrays.
    virtual void display_words() = 0;
    // Refills the known-lists box from the student's known files of the current language.
    virtual void refresh_known_list() = 0;
    // Brings the main window back into view (when a window that hid it closes).
    virtual void show_main_window() = 0;
};

// The view in force while no main window is attached.
class NoMainView : public MainView
{
public:
    void show_sound_caption(const QString&) override {}
    void show_word_count(const QString&) override {}
    void display_words() override {}
    void refresh_known_list() override {}
    void show_main_window() override {}
};

} // namespace quorvane
