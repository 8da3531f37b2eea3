// Failures a student's own files or clicks can cause are told in words that name the file or thing.

#include "record/ui/record_window.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QTimer>

using namespace quorvane;
using namespace quorvane::test;

TEST(ToldFailures, ABadSoundNumberEndsTheCardsAndTheCompilationAndAnUnreadablePairingIsNamed)
{
    Program p;
    openCourse(p, 2);
    p.folder.write("languages/spanish/words.txt", "uno|one|x1436\r\ndos|two|x1436\r\n");
    QFile::remove(p.folder.file("users/kestrin/spanish/words-u.txt"));
    select_row(p.main()->lists_list, 0);
    p.session().say_mode = "yes";
    p.prompts.shown.clear();
    p.main()->flash_cards_click();
    // The compilation says so before it asks anything.
    Program::press("qvplay", "auto_mp3");
    const QString told = "The sound number \"x1436\" names no recording: sound numbers run from 0 to 99999.";
    EXPECT_EQ(p.prompts.texts(), QStringList({told, told}));
    Program::press("qvplay", "exit_btn");

    // A pairing file that cannot be read is named as its language is chosen.
    QFile::remove(p.folder.file("languages/spanish/trans_index_spanish_english.dat"));
    p.folder.mkdir("languages/spanish/trans_index_spanish_english.dat");
    p.prompts.shown.clear();
    Program::choose(p.main()->lang_list, "spanish");
    ASSERT_EQ(p.prompts.texts().size(), 1);
    EXPECT_TRUE(p.prompts.texts()[0].contains("trans_index_spanish_english.dat could not be read ("))
        << p.prompts.texts()[0].toStdString();
}

TEST(ToldFailures, AListFileGoneFromUnderTheRecordWindowIsToldInARealBoxAndTheListsStay)
{
    ProgramFolder folder;
    folder.write("languages/spanish/words.txt", courseEntry(0) + courseEntry(1));
    QtPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    QStringList seen;
    QTimer answerer; // a student's name in the input box, OK in every message box
    QObject::connect(&answerer, &QTimer::timeout, [&seen] {
        for (QWidget* box : QApplication::topLevelWidgets()) {
            if (auto* input = qobject_cast<QInputDialog*>(box); input && input->isVisible()) {
                input->setTextValue("kestrin");
                input->accept();
            } else if (auto* message = qobject_cast<QMessageBox*>(box); message && message->isVisible()) {
                seen.append(message->text());
                message->button(QMessageBox::Ok)->click();
            }
        }
    });
    answerer.start(1);
    QPointer<MainWindow> mainWindow =
        static_cast<MainWindow*>(quorvane::start(folder.path(), &prompts, &sound, &clock));
    QStringList shown;
    QTimer::singleShot(0, [&] {
        Program::choose(mainWindow->lang_list, "spanish");
        Program::choose(mainWindow->lists_list, "words");
        mainWindow->record_word_list->click();
        auto* record = static_cast<RecordWindow*>(quorvane::window("qvrecord"));
        QFile::remove(folder.file("languages/spanish/words.txt"));
        record->refresh_lists->click();
        shown = {record->span_list_wo->count() == 2 ? "kept" : "lost", record->words_without_sound->text()};
        record->close();
        QApplication::exit(0);
    });
    QApplication::exec();
    delete mainWindow.data();
    ASSERT_EQ(seen.size(), 1) << seen.join('\n').toStdString();
    EXPECT_TRUE(seen[0].startsWith("The file ") && seen[0].contains("spanish/words.txt could not be read ("))
        << seen[0].toStdString();
    EXPECT_EQ(shown, QStringList({"kept", "2 Words Without Sound Files"}));
}
