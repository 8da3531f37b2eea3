// Importing word lists (CSV, KVTML, Anki packages) with their audio, and exporting them.

#include "anki_package_writer.h"
#include "test_support.h"

#include "exchange/csv_reader.h"
#include "exchange/kvtml.h"
#include "exchange/word_import.h"
#include "record/ui/record_window.h"
#include "sound/sound_files.h"
#include "store/file_faults.h"
#include "widgets/qt_prompts.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <cerrno>

namespace quorvane {
namespace {

using test::CoreTest;
using test::Program;

const QByteArray kMp3 = QByteArray("ID3\x03\x00", 5) + test::patternBytes(300);

TEST(ExchangeText, CsvQuotingSeparatorsEncodingsBrokenRecordsAndKvtmlLessons)
{
    CsvRecords parsed = parseCsv("a,\"b, c\"\r\n\"say \"\"hi\"\"\",\"two\nlines\"\r\nx,\"bad\"tail,z\r\nlast,one\r\n");
    EXPECT_EQ(parsed.records, (QList<QStringList>{{"a", "b, c"}, {"say \"hi\"", "two\nlines"}, {"last", "one"}}));
    EXPECT_EQ(parsed.lines, (QList<int>{1, 2, 5}));
    EXPECT_EQ(parsed.badRecords, QStringList{"line 4: text follows a closing quote"});
    // A quote that never closes loses its own line only.
    parsed = parseCsv("\"open,t\nw2,t2\n");
    EXPECT_EQ(parsed.records, (QList<QStringList>{{"w2", "t2"}}));
    EXPECT_EQ(parsed.badRecords, QStringList{"line 1: a quote is never closed"});
    EXPECT_EQ(parseCsv("w\tt, with comma\n").records, (QList<QStringList>{{"w", "t, with comma"}}));
    EXPECT_EQ(parseCsv("w;t\n").records, (QList<QStringList>{{"w", "t"}}));

    EXPECT_EQ(decodeImportedText("\xEF\xBB\xBFni\xC3\xB1o"), QString::fromUtf8("ni\xC3\xB1o"));
    EXPECT_EQ(decodeImportedText("ni\xF1o \x80"), QString::fromUtf8("ni\xC3\xB1o \xE2\x82\xAC"));

    int replaced = 0;
    EXPECT_EQ(
        fitToWordFile(QString::fromUtf8(" caf\xC3\xA9 | \xE2\x82\xAC\xE4\xB8\xAD\xF0\x9F\x98\x80\tx\n"), &replaced),
        QString::fromUtf8("caf\xC3\xA9 / \xE2\x82\xAC?? x"));
    EXPECT_EQ(replaced, 3);
    EXPECT_EQ(stripHtml("<div>perro&nbsp;&amp; gato</div><br/>&#233;t&#xE9; &bogus; <b>x</b>"),
              QString::fromUtf8("perro & gato \xC3\xA9t\xC3\xA9 &bogus; x"));

    // KVTML: lessons nested by their containers, and files that are not KVTML.
    const QByteArray kvtml = R"(<?xml version="1.0"?><kvtml version="2.0"><entries>
<entry id="0"><translation id="0"><text>perro</text><sound>dog.mp3</sound></translation>
<translation id="1"><text>dog</text></translation></entry>
<entry id="1"><translation id="1"><text>cat</text></translation><translation id="0"><text>gato</text></translation></entry>
<entry id="2"><translation id="0"><text>solo</text></translation></entry></entries>
<lessons><container><name>Animals</name><entry id="0"/><container><name>Cats</name><entry id="1"/></container>
</container><container><name>Other</name><entry id="2"/></container></lessons></kvtml>)";
    QString error;
    const auto file = parseKvtml(kvtml, &error);
    ASSERT_TRUE(file) << error.toStdString();
    QStringList lessons;
    for (const KvtmlLesson& lesson : file->lessons)
        lessons.append(lesson.name + ":" + lesson.entryIds.join(' '));
    EXPECT_EQ(lessons, (QStringList{"Animals:0 1", "Animals/Cats:1", "Other:2"}));
    ImportBatch batch = kvtmlWords(*file, "Animals/Cats", "/nowhere");
    ASSERT_EQ(batch.words.size(), 1);
    EXPECT_EQ(batch.words[0].word + "|" + batch.words[0].translation, "gato|cat");
    batch = kvtmlWords(*file, "", "/nowhere");
    EXPECT_EQ(batch.words.size(), 2);
    EXPECT_EQ(batch.reasons, QStringList{"entry 2: no translation"});
    EXPECT_EQ(batch.audioReasons, QStringList{"entry 0: dog.mp3: the audio file is missing"});

    for (const QByteArray& bad : {QByteArray("<html><body/></html>"), QByteArray("<kvtml version=\"2.0\"><entries>"),
                                  QByteArray("<kvtml version=\"1.0\"/>"), QByteArray("word,translation")})
        EXPECT_FALSE(parseKvtml(bad, &error)) << bad.constData();
}

struct ExchangeImport : CoreTest
{
    ExchangeImport()
    {
        session.current_language = "spanish";
        folder.write("languages/spanish/master_spanish.txt", "casa|house|01000\r\n");
        folder.write("in/perro.mp3", kMp3);
        folder.write("in/gato.wav", "RIFF not really a wave");
        const QByteArray samples = test::patternBytes(8820);
        folder.write("in/pez.wav", "RIFF" + four_byte_text(36 + samples.size()) + "WAVEfmt " + four_byte_text(16) +
                                       QByteArray("\x01\x00\x01\x00", 4) + four_byte_text(22050) +
                                       four_byte_text(44100) + QByteArray("\x02\x00\x10\x00", 4) + "data" +
                                       four_byte_text(samples.size()) + samples);
        folder.write("in/words.csv", "Word,Translation,Audio\r\ncasa,house,\r\nperro,dog,perro.mp3\r\n"
                                     "gato,cat,gato.wav\r\nnada,\r\npez,fish,pez.wav\r\n");
    }
    QByteArray language(const QString& relative) const { return folder.read("languages/spanish/" + relative); }
};

TEST_F(ExchangeImport, CsvBecomesANewListWithNewNumbersAndItsMp3AudioUnlessCancelledOrFailed)
{
    struct Cancel : ImportProgress
    {
        bool advance(qsizetype, qsizetype) override { return false; }
    } cancel;
    folder.write("languages/spanish/highest_num.dat", " 70100\r\n");
    QString error;
    const auto batch = readCsvWords(folder.file("in/words.csv"), &error);
    ASSERT_TRUE(batch);
    ImportSummary summary;
    EXPECT_EQ(commit_import(session, "words", *batch, &cancel, &summary, &error), ImportOutcome::Cancelled);
    // The fourth rename is the list's, after the counter's and the two recordings' (the master is appended to).
    file_faults::failAt(file_faults::Step::rename, 4, ENOSPC);
    EXPECT_EQ(commit_import(session, "words", *batch, nullptr, &summary, &error), ImportOutcome::Failed);
    file_faults::reset();
    EXPECT_TRUE(error.contains("words.txt")) << error.toStdString();
    EXPECT_EQ(language("master_spanish.txt") + language("highest_num.dat"), "casa|house|01000\r\n 70100\r\n");
    for (const char* made : {"words.txt", "70/70100.mp3", "70/70102.mp3"})
        EXPECT_FALSE(folder.exists(QString("languages/spanish/") + made)) << made;

    // Imported whole, the counter goes on from where it stood.
    ASSERT_EQ(import_word_list(session, folder.file("in/words.csv"), nullptr), QString("words"));
    const QByteArray entries = "casa|house|01000\r\nperro|dog|70100\r\ngato|cat|70101\r\npez|fish|70102\r\n";
    EXPECT_EQ(language("words.txt") + language("master_spanish.txt") + language("highest_num.dat"),
              entries + entries + " 70103\r\n");
    EXPECT_EQ(language("70/70100.mp3"), kMp3);
    EXPECT_FALSE(folder.exists("languages/spanish/70/70101.mp3"));
    // The WAV is encoded to MPEG audio frames: a frame sync first, and far fewer bytes than its samples.
    const QByteArray encoded = language("70/70102.mp3");
    ASSERT_GT(encoded.size(), 100);
    EXPECT_EQ(encoded.left(2).toHex(), "fff3");
    EXPECT_LT(encoded.size(), 8820 / 4);
    ASSERT_EQ(prompts.shown.size(), 1);
    EXPECT_EQ(prompts.shown[0].text, "Imported 4 entries into the list words, 2 of them with audio.\n"
                                     "Characters a word list cannot hold, replaced by \"?\": 0.\n"
                                     "Lines skipped: 1.\nWords imported without their audio: 1.\n"
                                     "  line 5: no translation\n  gato.wav: the audio cannot be converted to MP3");

    // Imported again, under the name asked for, every word keeps its number: nothing new is made.
    prompts.push(QString("words again"));
    ASSERT_EQ(import_word_list(session, folder.file("in/words.csv"), nullptr), QString("words_again"));
    EXPECT_EQ(prompts.shown[1].kind + prompts.shown[1].text,
              "inputThe language spanish already has a list named words. What should the new list be called?");
    EXPECT_EQ(language("words_again.txt") + language("master_spanish.txt") + language("highest_num.dat"),
              entries + entries + " 70103\r\n");
}

TEST_F(ExchangeImport, AnkiPackagesAndPackagesThatCannotBeRead)
{
    ASSERT_TRUE(test::writeAnkiPackage(
        folder.file("in/deck.apkg"),
        {{"<b>perro</b>[sound:perro.mp3]", "dog&nbsp;"}, {"gato", "cat [sound:none.mp3]", "extra"}, {"solo"}},
        {{"perro.mp3", kMp3}}));
    ASSERT_EQ(import_word_list(session, folder.file("in/deck.apkg"), nullptr), QString("deck"));
    EXPECT_EQ(language("deck.txt") + language("70/70000.mp3"), "perro|dog|70000\r\ngato|cat|70001\r\n" + kMp3);
    EXPECT_TRUE(prompts.shown.last().text.contains("Lines skipped: 1.\nWords imported without their audio: 1."));

    ASSERT_TRUE(test::writeAnkiPackage(folder.file("in/bare.colpkg"), {{"uno", "one [sound:1.mp3]"}}, {},
                                       "collection.anki21", false));
    ASSERT_EQ(import_word_list(session, folder.file("in/bare.colpkg"), nullptr), QString("bare"));
    EXPECT_EQ(language("bare.txt"), "uno|one|70002\r\n");

    ASSERT_TRUE(test::writeAnkiPackage(folder.file("in/new.apkg"), {{"a", "b"}}, {}, "collection.anki21b"));
    folder.write("in/junk.apkg", "not a zip at all");
    folder.write("in/words.kvtml", "<kvtml version=\"2.0\"><entries><entry id=\"0\">");
    folder.write("in/words.pdf", "%PDF");
    for (const QString name : {"new.apkg", "junk.apkg", "words.kvtml", "words.pdf"}) {
        const auto before = prompts.shown.size();
        EXPECT_FALSE(import_word_list(session, folder.file("in/" + name), nullptr));
        ASSERT_EQ(prompts.shown.size(), before + 1);
        EXPECT_TRUE(
            prompts.shown.last().text.startsWith("The file " + folder.file("in/" + name) + " could not be imported: "));
    }
    EXPECT_TRUE(prompts.shown[2].text.contains("Support older Anki versions"));
    EXPECT_EQ(QDir(folder.file("languages/spanish")).entryList(QDir::Files),
              (QStringList{"bare.txt", "deck.txt", "highest_num.dat", "master_spanish.txt"}));
}

TEST(ExchangeWindow, ImportedWordsPlayTheirAudioAndExportsReimportIdentically)
{
    Program p;
    for (const char* language : {"english", "french", "spanish"})
        p.folder.mkdir(QString("languages/") + language);
    p.folder.write("in/perro.mp3", kMp3);
    p.folder.write("in/words.csv", "perro,dog,perro.mp3\r\n\"gato, el\",cat\r\n");
    MainWindow* main = p.start("spanish");
    main->import_word_list(p.folder.file("in/words.csv"));
    ASSERT_EQ(main->lists_list->currentItem()->text(), "words");
    EXPECT_EQ(test::items(main->words_list), (QStringList{"perro", "gato, el"}));
    select_row(main->words_list, 0);
    EXPECT_EQ(p.sound.played, QStringList{p.played("spanish/70/70000.mp3")});

    p.prompts.push(true);
    main->export_word_list(p.folder.file("out/words.csv"));
    EXPECT_EQ(p.folder.read("out/words.csv"),
              "word,translation,sound number,audio\r\nperro,dog,70000,words_audio/perro.mp3\r\n"
              "\"gato, el\",cat,70001,\r\n");
    EXPECT_EQ(p.folder.read("out/words_audio/perro.mp3"), kMp3);
    p.prompts.push(false);
    main->export_word_list(p.folder.file("out/words.kvtml"));

    const QByteArray list = p.folder.read("languages/spanish/words.txt");
    for (const QString language : {"english", "french"}) {
        Program::choose(main->lang_list, language);
        main->import_word_list(p.folder.file(language == "english" ? "out/words.csv" : "out/words.kvtml"));
        EXPECT_EQ(p.folder.read("languages/" + language + "/words.txt"), list) << language.toStdString();
    }
    EXPECT_EQ(p.folder.read("languages/english/70/70000.mp3"), kMp3);

    // The flash cards of the imported list play the imported recording too.
    Program::choose(main->lang_list, "spanish");
    Program::choose(main->lists_list, "words");
    p.sound.played.clear();
    p.pauseAtSound(1);
    main->flash_cards_click();
    EXPECT_EQ(p.sound.played, QStringList{p.played("spanish/70/70000.mp3")});
}

// The File menu's item and its real file dialog, and the real box of a list file gone from under the record
// window, all answered inside the event loop.
TEST(ExchangeRealBoxes, ImportMenuAsksForTheFileAndSumsUpAndAListGoneFromTheRecordWindowIsTold)
{
    test::BoxAnswerer answerer({"kestrin"}); // the student's name, then OK in every message box
    QtPrompts prompts;
    Program program;
    program.folder.mkdir("languages/spanish");
    program.folder.write("in/words.csv", "uno,one\r\ndos,two\r\n");
    QPointer<MainWindow> main =
        static_cast<MainWindow*>(start(program.folder.path(), &prompts, &program.sound, &program.clock));
    QTimer files;
    QObject::connect(&files, &QTimer::timeout, [&] {
        if (auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget())) {
            // The name typed whole: the dialog may still be reading its first folder.
            dialog->findChild<QLineEdit*>("fileNameEdit")->setText(program.folder.file("in/words.csv"));
            static_cast<QDialog*>(dialog)->accept();
        }
    });
    files.start(10);
    QTimer::singleShot(30000, [] {
        ADD_FAILURE() << "the boxes were not answered";
        QApplication::exit(1);
    });
    QByteArray imported;
    QStringList shown;
    QTimer::singleShot(0, [&] {
        main->import_list->trigger();
        imported = program.folder.read("languages/spanish/words.txt");
        main->record_word_list->click();
        auto* record = static_cast<RecordWindow*>(window("qvrecord"));
        QFile::remove(program.folder.file("languages/spanish/words.txt"));
        record->refresh_lists->click();
        shown = {record->span_list_wo->count() == 2 ? "kept" : "lost", record->words_without_sound->text()};
        record->close();
        QApplication::exit(0);
    });
    QApplication::exec();
    delete main.data();
    EXPECT_EQ(imported, "uno|one|70000\r\ndos|two|70001\r\n");
    ASSERT_EQ(answerer.seen.size(), 3) << answerer.seen.join('\n').toStdString();
    EXPECT_TRUE(answerer.seen[1].contains("|Imported 2 entries into the list words, 0 of them with audio."))
        << answerer.seen[1].toStdString();
    EXPECT_TRUE(answerer.seen[2].contains("|The file ") &&
                answerer.seen[2].contains("spanish/words.txt could not be read ("))
        << answerer.seen[2].toStdString();
    EXPECT_EQ(shown, QStringList({"kept", "2 Words Without Sound Files"}));
}

} // namespace
} // namespace quorvane
