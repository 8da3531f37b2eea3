#pragma once

#include "core/main_view.h"
#include "store/search.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QAction;
class QLayout;

namespace quorvane {

class Session;
class Prompts;
class SoundLibrary;
class Clock;
class ListBox;
class FlashWindow;
class SmallFlashWindow;

// The main window, qvmain: languages, lists and words, and the buttons that open every other
// window. It owns the session and is the session's MainView while it lives. Controls carry their
// documented names as objectName; handlers are public slots named after the control and the
// event, so tests can run any of them. Every other window is made with it as Qt parent.
class MainWindow : public QMainWindow, public MainView
{
    Q_OBJECT
public:
    // The services are not owned: the caller keeps them alive as long as the window.
    MainWindow(Prompts& prompts, SoundLibrary& sound, Clock& clock, QWidget* parent = nullptr);
    ~MainWindow() override;

    Session& session() { return *m_session; }

    // MainView.
    void show_sound_caption(const QString& caption) override;
    void show_word_count(const QString& caption) override;
    void show_main_window() override;

    ListBox* lang_list;
    ListBox* lists_list;
    ListBox* known_lists;
    ListBox* words_list;
    ListBox* words_liste;
    QLineEdit* txt_word_search;
    QLineEdit* txt_word_search2;
    QLabel* Label1;
    QLabel* Label2;
    QLabel* Label3;
    QLabel* Label4;
    QLabel* Label5;
    QLabel* Label6;
    QLabel* Label8;
    QLabel* Label9;
    QPushButton* flash_cards;
    QPushButton* small_flash;
    QPushButton* test_me;
    QPushButton* show_test_results;
    QPushButton* print_list;
    QPushButton* record_word_word;
    QPushButton* record_word_list;
    QPushButton* new_language;
    QPushButton* add_list;
    QPushButton* toggle_font;
    QPushButton* play_paragraph;
    QPushButton* paly_syllables;
    QPushButton* exit_program;
    QAction* Exit;
    QAction* Instructions2;
    QAction* Help2;
    QAction* Troubleshooting;
    QAction* About1;
    // Checkable, remembered across runs: words without a recording are spoken by the synthesizer.
    QAction* speak_missing_words;

public slots:
    // Operations other windows call.
    // Refills words_list and words_liste from the word arrays; entries without a sound number
    // stay in the arrays but are not shown.
    void display_words() override;
    // Refills known_lists from the student's known files of the current language.
    void refresh_known_list() override;
    void create_array_of_words(const QString& path);
    void generate_unknowns_file();

    void form_load();
    void lang_list_click();
    void lists_list_click();
    void known_lists_click();
    void known_lists_dblclick();
    void words_list_click();
    void words_liste_click();
    void words_list_dblclick();
    void flash_cards_click();
    void small_flash_click();
    void toggle_font_click();
    void exit_program_click();
    void Exit_click();
    void Instructions2_click();
    void Help2_click();
    void Troubleshooting_click();
    void About1_click();
    void speak_missing_words_click();

    // Recording: the record-and-edit window for the selected word or the whole list.
    void record_word_word_click();
    void record_word_list_click();
    // The student test and the results window.
    void print_list_click();
    void show_test_results_click();
    void test_me_click();

protected:
    // Closing the main window ends the program as Exit does.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildControls();
    QLabel* makeLabel(const QString& name);
    QPushButton* makeButton(const QString& name, const QString& family);
    void buildMenus();
    void wireHandlers();
    // Shows a list (unknown or known) picked in lists_list or known_lists.
    // Shows the chosen list of a box; false when its words could not be read (said in a box).
    bool showList(ListBox* box, bool known);
    // Runs a handler so that no exception reaches the event loop.
    void guarded(const std::function<void()>& handler);

    // The flash-card windows, made when first needed and again after each closing.
    FlashWindow* flashWindow();
    SmallFlashWindow* smallFlashWindow();

    std::unique_ptr<Session> m_session;
    QPointer<FlashWindow> m_flashWindow;
    QPointer<SmallFlashWindow> m_smallFlashWindow;
    // "yes" while a click on a word makes the translation box follow, "no" the other way round.
    QString m_syncFlag;
    // True once Exit runs: closing every window closes this one too.
    bool m_leaving = false;

    // Searching the master list, pairing with the translation language, new languages and new
    // lists (main_window_search.cpp).
public slots:
    // Fills the word boxes with the master entries whose word (field 0) or translation (field 1)
    // begins with what its search box holds.
    void search_master_list(int field);
    // Writes the trans index of the current language from the two master files.
    void create_trans_index();
    void txt_word_search_change();
    void txt_word_search2_change();
    void new_language_click();
    void add_list_click();
    void pair_recordings_click();

public:
    QAction* pair_recordings;

private:
    MasterCache m_masterCache;

    // Spaced review and progress (main_window_review.cpp).
public:
    QPushButton* review_due;
    QLabel* due_lbl;
    QAction* Progress;
    QAction* review_settings;
public slots:
    // Runs the large flash cards over the chosen list's due words, then new words.
    void review_due_click();
    void Progress_click();
    void review_settings_click();
    // due_lbl: how many words of the chosen list are due today.
    void update_due_label();

private:
    void buildReview(QLayout* buttons);
    // arraysFresh: the word arrays were just read from the shown file, so they can be counted
    // instead of the unknown file when it is the one shown.
    void showDueCount(bool arraysFresh);

    // Importing and exporting word lists (main_window_exchange.cpp).
public slots:
    // Imports a CSV/TSV, KVTML or Anki package file as a new list of the current language, then
    // shows that list.
    void import_word_list(const QString& path);
    // Exports the current list to a CSV or KVTML file (by the extension of path).
    void export_word_list(const QString& path);
    void import_list_click();
    void export_list_click();

public:
    QAction* import_list;
    QAction* export_list;
};

} // namespace quorvane
