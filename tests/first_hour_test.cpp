// A new user's first hour: real boxes inside the program's own event loop, signals, the keyboard.

#include "quiz/ui/test_window.h"
#include "record/ui/record_window.h"
#include "store/paths.h"
#include "store/search.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <csignal>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// Clicks a button of an open window with the mouse.
void click(const char* windowName, const char* name)
{
    QWidget* target = quorvane::window(windowName);
    auto* button = target ? target->findChild<QPushButton*>(name) : nullptr;
    ASSERT_NE(button, nullptr) << windowName << "." << name;
    QTest::mouseClick(button, Qt::LeftButton);
}

void closeWindow(const char* name)
{
    if (QWidget* open = quorvane::window(name))
        open->close();
}

} // namespace

TEST(FirstHour, RealBoxesShownWhileTheMainWindowIsHiddenLeaveTheProgramRunningUntilSigtermLeavesAsExitDoes)
{
    ProgramFolder folder;
    folder.write("languages/spanish/words.txt", courseEntry(0) + courseEntry(1) + courseEntry(2));
    for (int i = 0; i < 3; ++i)
        folder.write("languages/" + spanishPath(i), "W" + QByteArray::number(i));
    QtPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    BoxAnswerer boxes({"kestrin", "99", "=", "1", "", "words"});
    QApplication::setQuitOnLastWindowClosed(true); // as a fresh application has it
    QPointer<MainWindow> main = static_cast<MainWindow*>(quorvane::start(folder.path(), &prompts, &sound, &clock));
    const QString lock = paths::studentLockFile(main->session().user_folder);
    ASSERT_TRUE(QFileInfo::exists(lock));
    select_row(main->lists_list, 0);

    bool stillRunning = false;
    QTimer::singleShot(0, [&] {
        // While the cards play: "# Repeats" out of range, then OK on what it offers, then Pause.
        clock.at(5, [] { click("qvplay", "change_repeat"); });
        clock.at(7, [] { click("qvplay", "change_repeat"); });
        clock.at(10, [] { click("qvplay", "pause"); });
        QTest::mouseClick(main->flash_cards, Qt::LeftButton);
        click("qvplay", "create_mp3");
        click("qvplay", "auto_mp3");
        closeWindow("qvplay");
        QTest::mouseClick(main->record_word_list, Qt::LeftButton);
        click("qvrecord", "Command1");
        click("edit_list", "start_new_list");
        closeWindow("edit_list");
        click("qvrecord", "zip");
        closeWindow("qvrecord");
        // Still in the loop only if no box ended it.
        QTimer::singleShot(0, [&] {
            stillRunning = true;
            std::raise(SIGTERM);
        });
    });
    EXPECT_EQ(QApplication::exec(), 0);
    QApplication::setQuitOnLastWindowClosed(false);

    EXPECT_TRUE(stillRunning) << "a box ended the program";
    // Every box has a parent window but the name's, asked before any window opens.
    EXPECT_EQ(boxes.seen.mid(1).filter(QRegularExpression("^\\(none\\)\\|")), QStringList());
    EXPECT_EQ(boxes.seen.count("qvplay|That was too few or too many. It is now set to 3."), 1);
    EXPECT_TRUE(boxes.seen.contains("edit_list|That file already exits.")) << boxes.seen.join("\n").toStdString();
    EXPECT_GE(boxes.seen.filter(QRegularExpression("^qvrecord\\|")).size(), 2);
    // The number boxes offer the count in use (3 once reset) or what their texts recommend.
    ASSERT_EQ(boxes.offered.size(), 6);
    EXPECT_GT(boxes.offered[1].toInt(), 0);
    EXPECT_EQ(boxes.offered.mid(2), QStringList({"3", "50", "5", ""}));
    // SIGTERM left through Exit: sound closed, the window gone and with it the student's lock.
    EXPECT_FALSE(sound.initialised || main || QFileInfo::exists(lock));
    delete main.data();
}

namespace {

// Makes window the active one, as the window manager does with a window that opens.
void activate(QWidget* window)
{
    window->activateWindow();
    QApplication::processEvents();
    ASSERT_EQ(QApplication::activeWindow(), window);
}

// Presses key where window has its keyboard focus (the window itself when nothing has it).
void press(QWidget* window, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(window->focusWidget() ? window->focusWidget() : window, key, modifiers);
}

// Presses Tab until control has the focus; fails after a round longer than any window's.
void tabTo(QWidget* window, QWidget* control)
{
    for (int i = 0; i < 40 && window->focusWidget() != control; ++i)
        press(window, Qt::Key_Tab);
    ASSERT_EQ(window->focusWidget(), control) << control->objectName().toStdString();
}

// The lists and text boxes of window that a screen reader could not name.
QStringList unnamedBoxes(const QWidget* window)
{
    QStringList names;
    for (const QWidget* box : window->findChildren<QWidget*>()) {
        const bool isBox =
            box->inherits("QListWidget") || box->inherits("QLineEdit") || box->inherits("QPlainTextEdit");
        if (isBox && box->accessibleName().isEmpty())
            names.append(box->objectName());
    }
    return names;
}

} // namespace

TEST(FirstHour, KeyboardAloneChoosesAListPlaysAndMovesAWordRunsTheCardsFinishesATestAndOpensTheRecordWindow)
{
    Program p;
    p.folder.write("languages/spanish/words.txt", courseEntry(0) + courseEntry(1) + courseEntry(2));
    for (int i = 0; i < 3; ++i)
        p.folder.write("languages/" + spanishPath(i), "W" + QByteArray::number(i));
    p.folder.mkdir("languages/english"); // listed first, and chosen at the start
    MainWindow* main = p.start();
    EXPECT_EQ(unnamedBoxes(main), QStringList());
    activate(main);

    tabTo(main, main->lang_list);
    press(main, Qt::Key_Down);
    tabTo(main, main->lists_list);
    EXPECT_TRUE(main->words_list->count() == 0) << "focus entering the lists chose one";
    press(main, Qt::Key_Space);
    tabTo(main, main->words_list);
    p.sound.played.clear();
    press(main, Qt::Key_Space);
    press(main, Qt::Key_Down);
    press(main, Qt::Key_Return);
    EXPECT_EQ(p.sound.played,
              QStringList({p.played(spanishPath(0)), p.played(spanishPath(1)), p.played(spanishPath(1))}));
    press(main, Qt::Key_Delete);
    EXPECT_EQ(p.folder.read("users/kestrin/spanish/words-k.txt"), courseEntry(1));

    // The cards start from the keyboard; they stop as the window manager's close key closes them.
    tabTo(main, main->flash_cards);
    int points[2] = {0, 0}; // the words' size on the card as it opened, then on a card twice as large
    p.clock.at(5, [&] {
        QWidget* cards = quorvane::window("qvplay");
        points[0] = cards->findChild<QLabel*>("word_lbl")->font().pointSize();
        cards->resize(cards->size() * 2);
        points[1] = cards->findChild<QLabel*>("word_lbl")->font().pointSize();
        cards->close();
    });
    p.sound.played.clear();
    press(main, Qt::Key_Space);
    EXPECT_FALSE(p.sound.played.isEmpty());
    EXPECT_TRUE(main->isVisible());
    EXPECT_GT(points[1], points[0]);

    // A test with the window's own defaults, answers typed where the focus is at each question.
    tabTo(main, main->test_me);
    press(main, Qt::Key_Space);
    auto* t = qobject_cast<TestWindow*>(quorvane::window("test"));
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(unnamedBoxes(t), QStringList());
    activate(t);
    tabTo(t, t->multiple_choice);
    press(t, Qt::Key_Down);
    press(t, Qt::Key_Down);
    ASSERT_TRUE(t->fill_in_blank->isChecked());
    tabTo(t, t->begin_test);
    QString answered;
    for (int second = 1; second < 300; ++second) {
        p.clock.at(second, [&] {
            // Each question once, as soon as it shows: its translation, then Enter.
            if (t->remaining->text() == answered || !t->test_word->text().startsWith("palabra"))
                return;
            answered = t->remaining->text();
            QTest::keyClicks(t->focusWidget(), "word" + t->test_word->text().mid(7));
            QTest::keyClick(t->focusWidget(), Qt::Key_Return);
        });
    }
    press(t, Qt::Key_Space);
    EXPECT_TRUE(p.folder.read("test_results.txt").contains("\twords\t10\t100%\t"))
        << p.folder.read("test_results.txt").toStdString();

    // Opening the record window and focusing its lists plays and chooses nothing.
    p.sound.played.clear();
    p.main()->record_word_list->click();
    QWidget* record = quorvane::window("qvrecord");
    ASSERT_NE(record, nullptr);
    EXPECT_EQ(unnamedBoxes(record), QStringList());
    QFocusEvent focusIn(QEvent::FocusIn, Qt::TabFocusReason);
    QApplication::sendEvent(record->findChild<ListBox*>("span_list_w"), &focusIn);
    p.prompts.shown.clear();
    Program::press("qvrecord", "point8_single");
    EXPECT_EQ(p.sound.played, QStringList());
    // A long packing text wraps in its place: the window keeps its width.
    const int width = record->width();
    static_cast<RecordWindow*>(record)->show_packing_progress(QString("Packing the recordings ").repeated(12));
    QApplication::processEvents();
    EXPECT_EQ(record->width(), width);
    EXPECT_EQ(p.prompts.texts(), QStringList({"You have to select a word on one of the lists. If you just added the "
                                              "word and don't see it, you need to click the refresh button and then "
                                              "look at the bottom of the list."}));
}

TEST(FirstHour, TheReadmesPicturesExistAndItsSearchExampleHoldsOnTheSampleCourse)
{
    const QString root = QStringLiteral(QUORVANE_DEMO_DIR) + "/../../";
    QFile readme(root + "README.md");
    ASSERT_TRUE(readme.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(readme.readAll());
    int pictures = 0;
    for (const auto& link : QRegularExpression(R"(\]\((docs/[^)]+\.png)\))").globalMatch(text)) {
        ++pictures;
        EXPECT_TRUE(QFileInfo::exists(root + link.captured(1))) << link.captured(1).toStdString();
    }
    EXPECT_GE(pictures, 9);

    ASSERT_TRUE(text.contains("(manana finds mañana)"));
    MasterCache cache;
    const auto found =
        search_master(QStringLiteral(QUORVANE_DEMO_DIR) + "/languages/spanish/master_spanish.txt", 0, "manana", cache);
    ASSERT_TRUE(found);
    EXPECT_TRUE(found->words.contains(QString("mañana"))) << found->words.join("/").toStdString();
}
