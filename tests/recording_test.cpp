#include "core/flags.h"
#include "record/record_session.h"
#include "record/ui/record_window.h"
#include "sound/cipher.h"
#include "sound/playback.h"
#include "sound/recording.h"
#include "sound/sdl_sound.h"
#include "store/file_faults.h"
#include "test_support.h"

#include <QCoreApplication>
#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>

#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <functional>
#include <initializer_list>

using namespace quorvane;
using quorvane::test::items;
using quorvane::test::opensslBlowfish;
using quorvane::test::Program;
using Step = file_faults::Step;

namespace {

constexpr int kRate = 22050;

// 16-bit little-endian samples.
QByteArray samples(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes.append(static_cast<char>(value & 0xFF)).append(static_cast<char>((value >> 8) & 0xFF));
    return bytes;
}

QByteArray repeated(int value, int count)
{
    return samples({value}).repeated(count);
}

// A microphone whose capture never starts, and one whose sample cannot be had.
struct NoMicrophone : FakeSound
{
    bool recordStartSample(int, bool) override { return (error = kSoundNoRecordingDevice) == 0; }
};
struct NoMemory : FakeSound
{
    int sampleAlloc(int, int, unsigned, int, int, int, int) override { return (error = kSoundOutOfMemory) * 0; }
};

// The path of row i's new recording.
QString recordingOf(int i)
{
    return QStringLiteral("languages/spanish/new_str/01/01%1.str").arg(i, 3, 10, QLatin1Char('0'));
}

// A session over a list of count words without recordings, on a loud fake microphone, with the record
// window as the session sees it: the word list's selections, and what was shown when.
struct SessionRun : quorvane::test::CoreSession, RecordView
{
    explicit SessionRun(int count)
    {
        sound.microphone = repeated(1000, kRate * 31);
        session.current_language = "spanish";
        for (int i = 0; i < count; ++i)
            state.lists.without.sound_numbers.append(recordingOf(i).mid(29, 5));
        state.lists.without.count = count;
    }
    void choose(int first)
    {
        selectRow(kWithoutSounds, first);
        selections.clear();
    }
    // The rows whose recording exists.
    QList<int> recorded() const
    {
        QList<int> rows;
        for (int i = 0; i < state.lists.without.count; ++i)
            if (folder.exists(recordingOf(i)))
                rows.append(i);
        return rows;
    }
    void run() { misc_rec(session, state, *this, &guard); }
    void start(float seconds, bool single) { start_recording(session, state, *this, &guard, seconds, single); }

    bool unloaded() const override { return false; }
    int selectedRow(const QString&) const override { return row; }
    bool selectRow(const QString& kind, int to) override
    {
        if (to < 0 || to >= state.lists.of(kind).count)
            return false;
        selections.append(row = to);
        choose_row(state, kind, row);
        return true;
    }
    void showFileNumber(const QString& caption) override { shown.append(caption); }
    void showCountdown(const QString& text) override
    {
        if (text.isEmpty())
            return;
        countdowns.append(text);
        times.append(clock.now);
        if (onCountdown)
            onCountdown(text);
    }
    void colourSession(SessionColour colour) override { colours.append(colour); }
    void showTake(const QString& text) override { takes.append(text); }

    RecordState state;
    QObject guard;
    int row = -1;
    QList<int> selections;
    QStringList shown;
    QStringList countdowns;
    QList<double> times; // when each countdown text was shown
    QList<SessionColour> colours;
    QStringList takes;
    std::function<void(const QString&)> onCountdown;
};

const QString kLong61 = QString(61, 'a');
const QString kLong60 = QString(60, 'b');

// A Spanish list "words": one word with a released recording, one with a new one, one without a
// sound number and three without a recording.
MainWindow* openRecordCourse(Program& program)
{
    program.folder.write(
        "languages/spanish/words.txt",
        "palabra0|word0|01000\r\npalabra1|word1|01001\r\nsin numero|no number|\r\npalabra2|word2|01002\r\n" +
            kLong61.toLatin1() + "|long|01003\r\n" + kLong60.toLatin1() + "|sixty|01004\r\n");
    program.folder.write("languages/spanish/01/01000.mp3", "W0");
    program.folder.write("plain.tmp", repeated(1000, 100));
    program.folder.mkdir("languages/spanish/new_str/01");
    encipher_file(program.folder.file("plain.tmp"), program.folder.file(recordingOf(1)));
    program.sound.microphone = repeated(1000, kRate * 31);
    return program.start("spanish");
}

} // namespace

// A session over the test doubles, the fake microphone timed by the fake clock.
using Recording = quorvane::test::CoreTest;

TEST_F(Recording, CutsSilenceAtTheNegativeSamplesStoresTheTakeEncipheredStopsOnStopAndTellsLibraryFailures)
{
    // Quiet, two negative samples, the first loud one (518), more, the last loud one, a negative one
    // and quiet again: the cut runs from the second negative to the negative after the loud part.
    const QByteArray loudPart = samples({-50, 518, 3, -7, 4000, -2});
    const QByteArray take = repeated(0, 20) + samples({-100, 100}) + loudPart + samples({9, -300}) + repeated(0, 20);
    EXPECT_EQ(cut_silence(take), loudPart);

    // Without negative samples the cut is the loud samples themselves; 517 and a high byte of 1 are not loud.
    EXPECT_EQ(cut_silence(repeated(517, 12) + samples({600, 0, 700}) + repeated(256, 12)), samples({600, 0, 700}));
    // A take with no loud sample, or too short to scan, is kept whole.
    const QByteArray quiet = repeated(0, 10) + samples({-4, 100, -4}) + repeated(0, 10);
    EXPECT_EQ(cut_silence(quiet), quiet);
    EXPECT_EQ(cut_silence(samples({1000})), samples({1000}));

    EXPECT_EQ(std::tuple(recording_length(1.4f, kRate), recording_length(1.8f, kRate)), std::tuple(30870, 39690));
    const TakeLevel level = take_level(repeated(0, 11025) + samples({-16384}), kRate);
    EXPECT_NEAR(level.seconds, 0.5, 0.001);
    EXPECT_NEAR(level.peakDbfs, -6.02, 0.01);
    EXPECT_TRUE(take_level(repeated(0, 100), kRate).silent);

    // 0.2 s of quiet, a negative sample, a 1 s tone of 1000 and -1000, quiet to the end.
    const QByteArray tone = samples({1000, -1000}).repeated(kRate / 2);
    sound.microphone = repeated(0, 4410) + samples({-20}) + tone + repeated(0, 30870);
    const QByteArray stored = record_word(session, folder.file("01436.str"), kRate, 1.4f, 1, 2).value();
    EXPECT_EQ(stored, samples({-20}) + tone);
    EXPECT_EQ(opensslBlowfish(folder, "01436.str"), stored);
    EXPECT_FALSE(folder.exists("01436.tmp"));
    // Polled every 0.01 s until 1300 frames short of the full 30870.
    EXPECT_NEAR(clock.now - 36000.0, 29570.0 / kRate + 0.01, 0.01);
    EXPECT_TRUE(prompts.shown.isEmpty());

    // STOP half-way keeps what was recorded until then; a new take replaces the old file whole.
    sound.microphone = repeated(1000, 30870);
    clock.at(0.5, [&] { session.stop_flag = flags::kYes; });
    const QByteArray half = record_word(session, folder.file("01436.str"), kRate, 1.4f, 1, 2).value();
    EXPECT_NEAR(half.size() / 2, kRate / 2 + 122.5, 127.5);
    EXPECT_EQ(half, repeated(1000, half.size() / 2));
    EXPECT_EQ(opensslBlowfish(folder, "01436.str"), half);

    // Zero seconds records nothing and does not wait.
    session.stop_flag.clear();
    const long waits = clock.processed;
    EXPECT_EQ(record_word(session, folder.file("00000.str"), kRate, 0.0f, 1, 2), QByteArray());
    EXPECT_EQ(std::tuple(clock.processed, opensslBlowfish(folder, "00000.str")), std::tuple(waits, QByteArray()));

    // Library failures are told and leave an empty file without waiting.
    NoMicrophone noMicrophone;
    Session first(prompts, noMicrophone, clock);
    EXPECT_EQ(record_word(first, folder.file("01436.str"), kRate, 1.4f, 1, 2), QByteArray());
    EXPECT_EQ(std::tuple(clock.processed, opensslBlowfish(folder, "01436.str")), std::tuple(waits, QByteArray()));

    NoMemory noMemory;
    Session second(prompts, noMemory, clock);
    record_word(second, folder.file("01437.str"), kRate, 1.4f, 1, 2);
    const QString invalid = "An invalid parameter was passed to this function";
    EXPECT_EQ(prompts.texts(), QStringList({"Record StartSample Error: Recording is not supported on this machine",
                                            "Record Stop Error: " + invalid, "Sample Alloc Error: Not enough memory ",
                                            "Record StartSample Error: " + invalid, "Record Stop Error: " + invalid,
                                            "Sample Lock Error: " + invalid}));
    EXPECT_TRUE(folder.exists("01437.str"));
}

TEST_F(Recording, RecordsAToneThroughSdlFromTheDiskDriver)
{
    // 0.3 s of silence, then a 0.5 s tone of 440 Hz starting with a negative half wave.
    QByteArray tone;
    for (int i = 0; i < kRate / 2; ++i)
        tone += samples({static_cast<int>(std::lround(-8000 * std::sin(2 * M_PI * 440 * i / kRate)))});
    folder.write("microphone.raw", repeated(0, kRate * 3 / 10) + tone);

    const QByteArray driver = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILEIN", folder.file("microphone.raw").toLocal8Bit());
    qputenv("SDL_DISKAUDIOFILE", folder.file("speaker.raw").toLocal8Bit());
    qputenv("SDL_DISKAUDIODELAY", "0");
    QByteArray stored;
    {
        SdlSound sdl;
        QtClock wallClock;
        Session real(prompts, sdl, wallClock);
        stored = record_word(real, folder.file("01436.str"), kRate, 1.4f, 1, 2).value_or("not stored");
        EXPECT_TRUE(prompts.shown.isEmpty()) << prompts.texts().join("\n").toStdString();
    }
    qputenv("SDL_AUDIODRIVER", driver);

    // The tone comes back whole but for its first and last half waves, which the cut may take.
    const qsizetype period = 2 * kRate / 440;
    EXPECT_NEAR(tone.indexOf(stored), period / 2.0, period / 2.0);
    EXPECT_GE(stored.size(), tone.size() - 2 * period);
    EXPECT_EQ(opensslBlowfish(folder, "01436.str"), stored);
}

// ---- recording sessions

TEST(RecordingSession, ManyWordsCountDownScrollEveryEleventhWordStepBackOnStopAndEndNearTheBottom)
{
    SessionRun run(40);
    run.state.fast_method = flags::kYes;
    run.choose(0);
    // STOP as the twelfth word counts down.
    int ones = 0;
    run.onCountdown = [&](const QString& text) {
        if (text == "1" && ++ones == 12)
            run.session.stop_flag = flags::kYes;
    };
    run.start(1.4f, false);

    // The first word counts "2", "1" in slow steps even with the fast method; the next ones "1" alone.
    EXPECT_EQ(run.countdowns.mid(0, 6), QStringList({"2", "1", "Speak", "1", "Speak", "1"}));
    // Between two words: 0.13 s, then the recording, stopped 1300 frames short of 1.4 s.
    const QList<double> gaps = {0.6, 0.6, 0.13 + 29570.0 / kRate, 0.7};
    for (int i = 1; i <= 4; ++i)
        EXPECT_NEAR(run.times[i] - run.times[i - 1], gaps[i - 1], 0.025) << i;
    // Eleven words recorded; the list scrolled on the eleventh (row 10) through row 21; the stop steps
    // back two rows from the twelfth.
    EXPECT_EQ(run.recorded(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(run.selections, QList<int>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 21, 10, 11, 9}));
    EXPECT_EQ(std::tuple(run.shown.last(), run.colours.last(), run.session.recording_active, run.session.stop_flag),
              std::tuple("File: 01011", SessionColour::idle, "no", "no"));

    // Near the bottom the session ends without recording the eleventh word.
    run.choose(25);
    run.run();
    EXPECT_EQ(run.recorded(), QList<int>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34}));
    EXPECT_EQ(run.row, 35);
}

TEST(RecordingSession, ATakeThatCannotBeStoredIsToldKeepsTheOldTakeAndEndsTheSession)
{
    // Each step of storing the take failing in turn on a full disk, then new_str being a file.
    const QString newStr = "languages/spanish/new_str";
    using Case = std::tuple<std::optional<Step>, QString, const char*>;
    for (const auto& [step, kept, cause] :
         {Case{Step::write, recordingOf(1), "the disk is full"}, Case{Step::flush, recordingOf(1), "the disk is full"},
          Case{Step::rename, recordingOf(1), "the disk is full"}, Case{std::nullopt, newStr, "Not a directory"}}) {
        SCOPED_TRACE(kept.toStdString() + " " + cause);
        SessionRun run(3);
        run.choose(1);
        run.state.record_single = flags::kYes;
        run.folder.write(kept, "the old bytes");
        const QString folder = run.folder.file(step ? newStr + "/01" : newStr);
        const QStringList before = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden);
        if (step)
            file_faults::failAt(*step, 1, ENOSPC);
        run.run();
        file_faults::reset();

        ASSERT_EQ(run.prompts.texts().size(), 1);
        const QString said = run.prompts.texts()[0];
        EXPECT_TRUE(said.contains(run.folder.file(kept)) && said.contains(cause)) << said.toStdString();
        EXPECT_EQ(run.folder.read(kept), "the old bytes");
        EXPECT_EQ(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden), before);
        // Kept on the word, to record it again.
        EXPECT_EQ(std::tuple(run.takes.size(), run.session.recording_active, run.row, run.colours.last()),
                  std::tuple(0, "no", 1, SessionColour::idle));
        // Playback goes on.
        run.folder.write("languages/spanish/01/01000.mp3", "sound");
        say_word(run.session, "01000", "spanish");
        EXPECT_EQ(run.sound.played.size(), 1);
    }
}

TEST(RecordingSession, SingleWordsAndRefusals)
{
    SessionRun run(3);
    // No list clicked: the message, and recording_active left "yes".
    run.run();
    EXPECT_EQ(run.prompts.texts(),
              QStringList({"You have to select a word on one of the lists. If you just added the word and don't see "
                           "it, you need to click the refresh button and then look at the bottom of the list."}));
    EXPECT_EQ(std::tuple(run.session.recording_active, run.state.record_seconds), std::tuple("yes", 1.0f));
    run.state.selected_list_kind = kWithoutSounds;
    run.run();
    EXPECT_EQ(std::tuple(run.prompts.texts().last(), run.recorded()),
              std::tuple("You have to select a word on one of the lists.", QList<int>()));

    // A duration never set records 1.4 s over the old recording; the selection moves on, and stays on
    // the last row.
    run.choose(1);
    run.state.record_seconds = 0.0f;
    run.state.record_single = flags::kYes;
    run.folder.write(recordingOf(1), "old");
    run.run();
    EXPECT_NEAR(opensslBlowfish(run.folder, recordingOf(1)).size() / 2, 29570 + kRate / 100, kRate / 100);
    EXPECT_TRUE(run.takes.size() == 1 && run.takes[0].endsWith(" s, peak -30.3 dBFS"))
        << run.takes.join('\n').toStdString();
    EXPECT_EQ(run.row, 2);
    run.start(0.8f, true);
    EXPECT_EQ(std::tuple(run.row, run.recorded()), std::tuple(2, QList<int>({1, 2})));

    // STOP during the countdown records nothing and leaves the recordings made.
    run.choose(0);
    run.clock.at(0.3, [&] { run.session.stop_flag = flags::kYes; });
    run.start(1.0f, true);
    EXPECT_EQ(std::tuple(run.recorded(), run.countdowns.last()), std::tuple(QList<int>({1, 2}), "2"));

    // Many words started on the last row: that word once, the selection unchanged.
    QFile::remove(run.folder.file(recordingOf(2)));
    run.choose(2);
    run.state.record_single = flags::kNo;
    run.run();
    EXPECT_EQ(std::tuple(run.recorded(), run.selections), std::tuple(QList<int>({1, 2}), QList<int>()));
}

// ---- the record-and-edit window

TEST(RecordWindow, SplitsTheListPlaysClickedWordsAndReturns)
{
    Program program;
    MainWindow* main = openRecordCourse(program);
    main->record_word_list->click();
    main->record_word_word->click();
    EXPECT_EQ(program.prompts.texts().mid(1), QStringList({"First select a list of words to record or edit.",
                                                           "First select a word to record or edit."}));
    EXPECT_TRUE(main->isVisible());

    Program::choose(main->lists_list, "words");
    main->record_word_list->click();
    auto* record = static_cast<RecordWindow*>(quorvane::window("qvrecord"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(std::tuple(main->isVisible(), record->current_list->text()), std::tuple(false, "words"));
    EXPECT_EQ(items(record->span_list_w) + items(record->eng_list_w),
              QStringList({"palabra0", "palabra1", "word0", "word1"}));
    EXPECT_EQ(items(record->span_list_wo) + items(record->eng_list_wo),
              QStringList({"palabra2", kLong61, kLong60, "word2", "long", "sixty"}));
    EXPECT_EQ(QStringList({record->words_with_sound->text(), record->words_without_sound->text()}),
              QStringList({"2 Words With Sound Files", "3 Words Without Sound Files"}));

    // A click on a translation selects and plays its word, from the new recording.
    select_row(record->eng_list_w, 1);
    EXPECT_EQ(record->span_list_w->currentRow(), 1);
    EXPECT_EQ(QStringList({record->left_word->text(), record->right_word->text(), record->filenum_lbl->text()}),
              QStringList({"palabra1", "word1", "File: 01001"}));
    EXPECT_EQ(program.sound.played.last(), program.played("spanish/new_str/01/01001.wav"));
    EXPECT_FALSE(program.session().record_window_playing);
    // A word of 61 letters is shown small and plain, one of 60 large and bold.
    select_row(record->span_list_wo, 1);
    EXPECT_EQ(std::tuple(record->left_word->font().pointSize(), record->left_word->font().bold()),
              std::tuple(8, false));
    select_row(record->span_list_wo, 2);
    EXPECT_EQ(std::tuple(record->right_word->font().pointSize(), record->right_word->font().bold()),
              std::tuple(10, true));
    EXPECT_EQ(record->state.current_sound_number, "01004");

    // The speed button says what it does before it does it.
    record->record_speed->click();
    record->record_speed->click();
    const QStringList said = program.prompts.texts().mid(3);
    EXPECT_TRUE(said.size() == 2 && said[0] != said[1]) << said.join('\n').toStdString();
    EXPECT_EQ(record->record_speed->text(), "Click for fast method");

    // The editing buttons: a correction reaches the list file (the missing master ends the save),
    // the list editor opens and closes leaving the main window hidden, and packing can be cancelled.
    select_row(record->span_list_w, 0);
    record->left_word->setText("palabro");
    record->save_text->click();
    EXPECT_TRUE(program.folder.read("languages/spanish/words.txt").startsWith("palabro|word0|01000\r\n"));
    record->Command1->click();
    ASSERT_NE(quorvane::window("edit_list"), nullptr);
    quorvane::window("edit_list")->close();
    EXPECT_FALSE(main->isVisible());
    program.prompts.push(false);
    record->zip->click();
    EXPECT_EQ(program.prompts.texts().last(), "The action has been cancelled.");

    record->exit_button->click();
    EXPECT_EQ(std::tuple(quorvane::window("qvrecord"), main->isVisible(), program.session().stop_flag),
              std::tuple(nullptr, true, "yes"));
}

TEST(RecordWindow, RecordsOneWordAndClosingStopsASession)
{
    Program program;
    MainWindow* main = openRecordCourse(program);
    Program::choose(main->lists_list, "words");
    // The row is taken as the index of the main window's arrays, where the entry without a sound
    // number still stands: row 3 shows the 61-letter word, index 3 is palabra2.
    select_row(main->words_list, 3);
    main->record_word_word->click();
    auto* record = static_cast<RecordWindow*>(quorvane::window("qvrecord"));
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(record->words_with_sound->text(), "Words With Sound Files");
    EXPECT_EQ(items(record->span_list_wo) + items(record->span_list_w), QStringList({"palabra2"}));

    // Countdown and recording through the window's buttons; the take's level shows beside the number.
    select_row(record->span_list_wo, 0);
    QStringList countdowns;
    for (const double at : {0.3, 0.9, 1.25})
        program.clock.at(at, [&] { countdowns.append(record->countdown->text()); });
    record->one_single->click();
    EXPECT_EQ(countdowns, QStringList({"2", "1", "Speak"}));
    EXPECT_TRUE(program.folder.exists(recordingOf(2)) && record->take_level_lbl->text().endsWith("dBFS"));
    EXPECT_EQ(std::tuple(record->countdown->text(), program.session().recording_active), std::tuple("", "no"));

    // The close box is served during a session's countdown: it ends, nothing more is recorded.
    QFile::remove(program.folder.file(recordingOf(2)));
    QPointer<RecordWindow> closing = record;
    program.clock.at(0.3, [&] { record->close(); });
    record->five_many->click();
    EXPECT_EQ(std::tuple(program.folder.exists(recordingOf(2)), main->isVisible(), program.session().recording_active),
              std::tuple(false, true, "no"));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(closing.isNull());
}
