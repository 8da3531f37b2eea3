#include "flash/ui/flash_window.h"
#include "quiz/ui/test_window.h"
#include "sound/espeak_speech.h"
#include "sound/mp3_encoder.h"
#include "sound/playback.h"
#include "sound/sdl_sound.h"
#include "sound/speech_cache.h"
#include "store/speech_voices.h"
#include "test_support.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QTest>
#include <QtEndian>

#include <cmath>

#include <gtest/gtest.h>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// seconds of a 440 Hz tone at rate, 16-bit mono little-endian.
QByteArray tone(double seconds, int rate)
{
    QByteArray pcm(int(seconds * rate) * 2, '\0');
    for (int i = 0; i < pcm.size() / 2; ++i)
        qToLittleEndian<qint16>(qint16(8000 * std::sin(2 * M_PI * 440 * i / rate)), pcm.data() + 2 * i);
    return pcm;
}

// The largest sample value of 16-bit mono PCM.
int peak(const QByteArray& pcm)
{
    int largest = 0;
    for (int i = 0; i + 1 < pcm.size(); i += 2)
        largest = qMax(largest, std::abs(int(qFromLittleEndian<qint16>(pcm.constData() + i))));
    return largest;
}

// What ffmpeg makes of MP3 bytes: 22050 Hz mono samples, and the stream's description.
QByteArray decodeMp3(const QByteArray& mp3, QString* description)
{
    ProgramFolder folder;
    folder.write("piece.mp3", mp3);
    QByteArray samples;
    runTool("ffmpeg", {"-hide_banner", "-i", folder.file("piece.mp3"), "-f", "s16le", "-ac", "1", "-ar", "22050", "-"},
            &samples, description);
    return samples;
}

} // namespace

TEST(Speech, EspeakWithTheTablesVoicesItsCacheAndEncodedMp3InTheCourseFormatOfTheSameLength)
{
    // 22050 Hz as it is, 16000 Hz resampled: both come out 32 kbit/s mono 22050 Hz, as long as they went in
    // (plus the encoder's delay and padding, under two frames).
    QString error;
    for (const int rate : {22050, 16000}) {
        const std::optional<QByteArray> mp3 = encodeMp3(tone(1.5, rate), rate, &error);
        ASSERT_TRUE(mp3) << error.toStdString();
        EXPECT_NE(mp3->left(3), "ID3");
        QString description;
        const QByteArray decoded = decodeMp3(*mp3, &description);
        EXPECT_TRUE(description.contains(QRegularExpression("22050 Hz, mono.* 32 kb/s"))) << description.toStdString();
        EXPECT_NEAR(decoded.size() / (2 * 22050.0), 1.5 + 1152 / 22050.0, 1152 / 22050.0);
        EXPECT_GT(peak(decoded), 4000);
    }

    EXPECT_FALSE(encodeMp3(QByteArray(3, '\0'), 22050, &error));
    EXPECT_EQ(error, "the sound data ends in half a sample");
    EXPECT_FALSE(encodeMp3(tone(0.1, 22050), 0, &error));
    EXPECT_EQ(error, "the sample rate 0 Hz is not valid");

    // eSpeak NG speaks words, and markup as plain text, with the table's voices.
    EspeakSpeech espeak;
    for (const auto& [voice, text] : {std::pair{"es", "mariposa"}, {"en", "butterfly"}, {"en", "<b>"}}) {
        const std::optional<QByteArray> pcm = espeak.synthesize(voice, text, &error);
        ASSERT_TRUE(pcm) << error.toStdString();
        EXPECT_NEAR(pcm->size() / (2.0 * 22050), 1.6, 1.4) << text;
        EXPECT_GT(peak(*pcm), 3000) << text;
    }
    // Windows-1252 words reach eSpeak NG as UTF-8: "niño" is not "nio".
    EXPECT_NE(espeak.synthesize("es", QString::fromLatin1("ni\xf1o"), nullptr),
              espeak.synthesize("es", "nio", nullptr));
    for (const char* language : {"spanish", "english", "french", "german", "mandarin", "japanese", "russian", "welsh"})
        EXPECT_TRUE(espeak.hasVoice(table_voice(language))) << language;
    EXPECT_FALSE(espeak.hasVoice("no-such-voice"));
    EXPECT_FALSE(espeak.synthesize("no-such-voice", "hola", &error));
    EXPECT_EQ(error, "eSpeak NG has no voice \"no-such-voice\"");
    EXPECT_TRUE(espeak.synthesize("es", "hola", nullptr)) << "a refused voice leaves the others usable";

    // The cache speaks each text once and forgets the least recently used beyond its bound.
    FakeSpeech fake;
    fake.voices = {"es"};
    const qint64 one = fake.synthesize("es", "x", nullptr)->size();
    fake.spoken.clear();
    CachedSpeech cache(fake, one * 2);
    for (const char* text : {"uno", "dos", "uno", "tres", "dos", "uno"})
        EXPECT_TRUE(cache.synthesize("es", text, nullptr));
    // "dos" was the least recently used when "tres" came; then "uno" was, when "dos" came again.
    EXPECT_EQ(fake.spoken, QStringList({"es:uno", "es:dos", "es:tres", "es:dos", "es:uno"}));
    EXPECT_EQ(cache.cachedBytes(), one * 2);
    EXPECT_FALSE(cache.synthesize("de", "eins", nullptr) || cache.synthesize("de", "eins", nullptr));
    EXPECT_EQ(fake.spoken.size(), 7) << "failures are not remembered";
}

TEST_F(CoreTest, AWordWithoutARecordingIsSpokenOrCapturedAndFailuresAreToldOnce)
{
    FakeSpeech speech;
    speech.voices = {"es"};
    session.attachSpeech(&speech);
    folder.write("languages/spanish/01/01000.mp3", "ID3");
    say_word(session, "01000", "spanish", "grabado");
    session.missing_sound_count = 8; // the small card stops after eight silent words in a row
    say_word(session, "01408", "spanish", "mariposa");
    EXPECT_EQ(sound.played, QStringList({session.languages_folder + "spanish/01/01000.mp3", "speech:es:mariposa"}));
    EXPECT_EQ(view.captions, QStringList({"File # 01000", "File # 01408 (synthesized)"}));
    EXPECT_EQ(session.missing_sound_count, 0) << "a spoken word is heard";
    EXPECT_EQ(speech.spoken, QStringList({"es:mariposa"}));

    // Switched off, or a language without a voice: silent as ever, the caption as ever.
    session.speak_missing_words = false;
    say_word(session, "01409", "spanish", "gato");
    session.speak_missing_words = true;
    say_word(session, "01410", "elvish", "gato");
    EXPECT_EQ(sound.played.size(), 2);
    EXPECT_EQ(view.captions.mid(2), QStringList({"File # 01409", "File # 01410"}));

    // An MP3 capture takes the spoken word as an MP3 piece.
    session.mp3_words_left = 1;
    session.silence_count = 1;
    folder.write("silence.mp3", "S");
    say_word(session, "01408", "spanish", "mariposa");
    EXPECT_EQ(sound.played.size(), 2);
    QFile capture(mp3_capture_file());
    ASSERT_TRUE(capture.open(QIODevice::ReadOnly));
    EXPECT_EQ(capture.readAll(),
              *encodeMp3(*speech.synthesize("es", "mariposa", nullptr), 22050, nullptr) + "\r\nS\r\n");

    // A voice that is missing or fails is told once per session; the words stay silent.
    // The voice file wins over the table (blanks trimmed).
    folder.write("languages/french/voice_french.dat", " fr-xx \r\n");
    say_word(session, "02000", "french", "chat");
    say_word(session, "02001", "french", "chien");
    speech.failure = "broken";
    say_word(session, "01411", "spanish", "perro");
    say_word(session, "01412", "spanish", "pato");
    EXPECT_EQ(sound.played.size(), 2);
    ASSERT_EQ(prompts.texts().size(), 2);
    EXPECT_EQ(prompts.texts().first(), "Words of french without a recording cannot be spoken: eSpeak NG has no voice "
                                       "\"fr-xx\". They stay silent; check the voice named in voice_french.dat in the "
                                       "language's folder.");
    EXPECT_TRUE(prompts.texts().last().contains("spanish without a recording cannot be spoken: broken."));
}

TEST(SpokenWordsWindows, CompiledFilesAndCardsSpeakWhatIsNotRecordedTheTestAsksItAndTheMenuItemIsRemembered)
{
    Program p;
    p.speech.voices = {"en", "es"};
    p.speaker = &p.speech;
    openCourse(p, 2, false);
    Session& s = p.session();
    p.prompts.answers = {true, QString("2"), QString("0")};
    (new FlashWindow(s, p.main()))->auto_mp3_click();
    ASSERT_EQ(p.prompts.texts().last(), "1 files have been completed.");
    // Twice the translation and the word of two words, half a second each: ffmpeg hears four seconds,
    // give or take the encoder's padding and the frame it drops after each line end.
    QString description;
    const QByteArray samples = decodeMp3(p.folder.read("100words1.mp3"), &description);
    EXPECT_NEAR(samples.size() / (2 * 22050.0), 4.0 + 12 * 576 / 22050.0, 20 * 576 / 22050.0);
    EXPECT_GT(peak(samples), 4000);

    // The cards interlace a spoken translation with the recorded word.
    p.folder.write("languages/" + spanishPath(0), "W0");
    p.folder.write("languages/" + spanishPath(1), "W1");
    s.say_mode = "interlace";
    s.interlace_count = 1;
    s.repeat_count = 2;
    p.pauseAtSound(3);
    p.main()->flash_cards_click();
    const int card = s.current_index;
    EXPECT_EQ(p.sound.played, QStringList({p.played(spanishPath(card)), "speech:en:word" + QString::number(card),
                                           p.played(spanishPath(card))}));
    window("qvplay")->close();

    // A spelling test by sound on words without recordings asks them spoken, without the "not found" box.
    p.folder.write("languages/spanish/colours.txt", "rojo|red|01500\r\n");
    Program::choose(p.main()->lang_list, "spanish");
    Program::choose(p.main()->lists_list, "colours");
    p.sound.played.clear();
    p.prompts.shown.clear();
    p.main()->test_me_click();
    auto* t = qobject_cast<TestWindow*>(window("test"));
    ASSERT_NE(t, nullptr);
    t->spelling->click();
    t->num_qs->setText("1");
    t->num_secs->setText("1");
    t->begin_test->click();
    EXPECT_EQ(p.sound.played, QStringList({"speech:es:rojo"}));
    EXPECT_EQ(p.prompts.boxes().filter("okCancel"), QStringList());
    t->close();

    // Switched off, the choice outlives the window; back on for the next run.
    QAction* item = p.main()->speak_missing_words;
    EXPECT_TRUE(item->isChecked());
    item->trigger();
    EXPECT_FALSE(p.session().speak_missing_words);
    p.window.reset();
    p.prompts.push(QString("kestrin"));
    p.start("spanish");
    EXPECT_EQ(std::pair(p.main()->speak_missing_words->isChecked(), p.session().speak_missing_words),
              std::pair(false, false));
    p.main()->speak_missing_words->trigger();
    EXPECT_TRUE(p.session().speak_missing_words);
}

TEST(SpokenWordsWindows, ANewLanguageIsHeardThroughTheRealEnginesWithNothingRecorded)
{
    // A new language made from the sample course's English gets its voice file, and every word of a
    // list is spoken through eSpeak NG and the real sound engine, whose disk driver writes what it mixes.
    ProgramFolder speaker;
    const QByteArray driver = qgetenv("SDL_AUDIODRIVER");
    qputenv("SDL_AUDIODRIVER", "disk");
    qputenv("SDL_DISKAUDIOFILE", speaker.file("speaker.raw").toLocal8Bit());
    qputenv("SDL_DISKAUDIODELAY", "0");
    {
        Program p;
        SdlSound sdl;
        EspeakSpeech espeak;
        p.library = &sdl;
        p.speaker = &espeak;
        const QString english = QStringLiteral(QUORVANE_DEMO_DIR) + "/languages/english/";
        p.folder.mkdir("languages/english");
        for (const char* file : {"master_english.txt", "numbers.txt"})
            ASSERT_TRUE(QFile::copy(english + file, p.folder.file("languages/english/") + file));
        MainWindow* main = p.start();
        p.prompts.push(QString("welsh"));
        p.prompts.push(QString("english"));
        main->new_language->click();
        EXPECT_EQ(p.folder.read("languages/welsh/voice_welsh.dat"), "cy\r\n");
        Program::choose(main->lang_list, "welsh");
        Program::choose(main->lists_list, "numbers");
        ASSERT_GT(main->words_list->count(), 5);
        for (int row = 0; row < main->words_list->count(); ++row) {
            select_row(main->words_list, row);
            EXPECT_EQ(main->Label6->text(), "File # " + p.session().sound_numbers.value(row) + " (synthesized)");
            EXPECT_NE(p.session().sound_channel, 0);
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return !sdl.isPlaying(p.session().sound_channel); }, 20000));
        p.window.reset();
    }
    qputenv("SDL_AUDIODRIVER", driver);
    EXPECT_GT(peak(speaker.read("speaker.raw")), 2000);
}
