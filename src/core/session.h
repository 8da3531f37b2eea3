#pragma once

#include "core/main_view.h"
#include "core/speech.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace quorvane {

class Prompts;
class SoundLibrary;
class Clock;
namespace review {
class ReviewBook;
}

// Number of slots of the pairing table: one per possible sound number.
constexpr int kSoundNumberSlots = 100000;

// Every program-wide value of one run of Quorvane, under its own name, and the three services
// every part of the program works through. Owned by the main window; the other windows read and
// change it. Paths are plain joined text; languages_folder and user_folder end with the separator.
class Session
{
public:
    // The services are not owned and must outlive the session.
    Session(Prompts& prompts, SoundLibrary& sound, Clock& clock);

    Prompts& prompts;
    SoundLibrary& sound;
    Clock& clock;

    // Student, language, list and the files that belong to them.
    QString user_name;
    QString user_folder;
    QString languages_folder;
    QString current_language;
    QString current_list;
    QString list_file;
    QString known_file;
    QString unknown_file;
    QString shown_file;
    QString master_file;
    QString trans_file;
    QString target_language;
    QString target_master_file;
    QString trans_index_file;

    // The entries of the shown file, parallel, from index 0; the highest index is the number of
    // entries and its slot is empty.
    QStringList words{QString()};
    QStringList translations{QString()};
    QStringList sound_numbers{QString()};
    // The file the arrays were read from; "" when they hold something else (search results).
    QString words_file;
    // The translation language's sound number for each sound number of the current language.
    // Never cleared: a language without a pairing file keeps the previous language's pairings.
    QStringList target_sound_numbers;

    // Text flags: "yes" sets them, any other value counts as not set.
    QString stop_flag;
    QString skip_flag;
    QString replay_flag;
    QString recording_active;
    QString one_word_mode;
    QString one_word_index;
    bool record_window_playing = false;

    // Flash-card settings, kept for the life of the process and never saved.
    qint16 repeat_count = 0;
    float speed = 0.0f;
    qint16 silence_count = 0;
    qint16 delay_top = 0;
    qint16 delay_bottom = 0;
    qint16 interlace_count = 0;
    QString say_mode;
    qint16 mp3_words_left = 0;
    qint16 current_index = 0;
    qint16 previous_index = 0;

    // Sound state.
    bool sound_ok = false;
    qint16 missing_sound_count = 0;
    int sound_channel = 0;

    QString report_text;

    // Spaced review, kept for the life of the process: the chance of recall a review is due at,
    // the new words a day may bring, and the review log as last replayed (review/).
    double desired_retention = 0.9;
    int new_words_per_day = 20;
    std::shared_ptr<review::ReviewBook> review_book;
    // Speech for words without a recording: on unless the student switched it off; the voices
    // whose failure was already told this session (told once, then silent).
    bool speak_missing_words = true;
    QStringList speech_failures_told;
    // The synthesizer in force (not owned); one without voices until one attaches.
    SpeechSynthesizer& speech() { return m_speech ? *m_speech : m_noSpeech; }
    void attachSpeech(SpeechSynthesizer* speech) { m_speech = speech; }

    // Number of entries held by the word arrays (their highest index).
    int wordCount() const { return static_cast<int>(words.size()) - 1; }

    // The main window as every other part sees it; a view that does nothing until one attaches.
    MainView& mainView() { return m_view ? *m_view : m_noView; }
    // The main window attaches itself once built and detaches (null) before it goes.
    void attachMainView(MainView* view) { m_view = view; }

private:
    MainView* m_view = nullptr;
    NoMainView m_noView;
    SpeechSynthesizer* m_speech = nullptr;
    NoSpeech m_noSpeech;
};

} // namespace quorvane
