// A new user's first hour: the real boxes inside the program's own event loop, signals, keys.

#include "quiz/test_window.h"
#include "store/paths.h"
#include "store/search.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"

#include <QApplication>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <deque>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// Answers every real box the program shows, as a user would: input boxes get the next answer ("="
// keeps what the box offers) and OK, message boxes OK (or Yes). Each box is noted as "parent
// window|text", and what each input box offered before typing.
class BoxAnswerer : public QObject
{
public:
    explicit BoxAnswerer(QStringList answers) : m_answers(std::move(answers))
    {
        connect(&m_timer, &QTimer::timeout, this, &BoxAnswerer::answerOpenBoxes);
        m_timer.start(1);
    }
    static QDialog* openBox()
    {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible() && (qobject_cast<QMessageBox*>(widget) || qobject_cast<QInputDialog*>(widget)))
                return static_cast<QDialog*>(widget);
        }
        return nullptr;
    }
    QStringList seen;
    QStringList offered;

private:
    void answerOpenBoxes()
    {
        QDialog* box = openBox();
        if (!box)
            return;
        const QString parent = box->parentWidget() ? box->parentWidget()->window()->objectName() : "(none)";
        if (auto* input = qobject_cast<QInputDialog*>(box)) {
            seen.append(parent + "|" + input->labelText());
            offered.append(input->textValue());
            const QString answer = m_answers.isEmpty() ? QString() : m_answers.takeFirst();
            if (answer != "=")
                input->setTextValue(answer);
            input->accept();
        } else if (auto* message = qobject_cast<QMessageBox*>(box)) {
            seen.append(parent + "|" + message->text());
            QAbstractButton* ok = message->button(QMessageBox::Ok);
            (ok ? ok : message->button(QMessageBox::Yes))->click();
        }
    }
    QStringList m_answers;
    QTimer m_timer;
};

// Runs one step at a time inside the event loop, each once the one before has returned and no
// box is open.
class Steps : public QObject
{
public:
    explicit Steps(std::deque<std::function<void()>> steps) : m_steps(std::move(steps))
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (m_busy || m_steps.empty() || BoxAnswerer::openBox())
                return;
            const auto step = m_steps.front();
            m_steps.pop_front();
            m_busy = true;
            step();
            m_busy = false;
        });
        m_timer.start(2);
    }
    size_t left() const { return m_steps.size(); }

private:
    std::deque<std::function<void()>> m_steps;
    QTimer m_timer;
    bool m_busy = false;
};

QPushButton* button(const char* windowName, const char* name)
{
    QWidget* target = quorvane::window(windowName);
    return target ? target->findChild<QPushButton*>(name) : nullptr;
}

void click(const char* windowName, const char* name)
{
    if (QPushButton* found = button(windowName, name))
        QTest::mouseClick(found, Qt::LeftButton);
    else
        ADD_FAILURE() << windowName << "." << name << " is not open";
}

// The program on real boxes over a three-word Spanish course, as a fresh QApplication has it:
// quitting when its last window closes, unless the program says otherwise.
struct RealBoxesProgram
{
    ProgramFolder folder;
    QtPrompts prompts;
    FakeSound sound;
    FakeClock clock;
    QPointer<MainWindow> main;
    const QString previousFolder = QDir::currentPath();

    RealBoxesProgram()
    {
        folder.write("languages/spanish/words.txt", courseEntry(0) + courseEntry(1) + courseEntry(2));
        for (int i = 0; i < 3; ++i)
            folder.write("languages/" + spanishPath(i), "W" + QByteArray::number(i));
        QApplication::setQuitOnLastWindowClosed(true);
    }
    ~RealBoxesProgram()
    {
        delete main.data();
        QApplication::setQuitOnLastWindowClosed(false);
        QDir::setCurrent(previousFolder);
    }
    void start()
    {
        main = static_cast<MainWindow*>(quorvane::start(folder.path(), &prompts, &sound, &clock));
        select_row(main->lists_list, 0);
    }
};

} // namespace

TEST(FirstHour, RealBoxesShownWhileTheMainWindowIsHiddenLeaveTheProgramRunningUntilItsWindowCloses)
{
    RealBoxesProgram p;
    BoxAnswerer boxes({"kestrin", "99", "=", "1", "", "words"});
    p.start();
    ASSERT_TRUE(p.main);
    const QString lock = paths::studentLockFile(p.main->session().user_folder);
    ASSERT_TRUE(QFileInfo::exists(lock));

    Steps steps({
        [&] {
            // While the cards play: "# Repeats" answered out of range, then Pause.
            p.clock.at(5, [] { click("qvplay", "change_repeat"); });
            p.clock.at(7, [] { click("qvplay", "change_repeat"); }); // OK on what it offers
            p.clock.at(10, [] { click("qvplay", "pause"); });
            QTest::mouseClick(p.main->flash_cards, Qt::LeftButton);
        },
        [] { click("qvplay", "create_mp3"); },
        [] { click("qvplay", "auto_mp3"); },
        [] { quorvane::window("qvplay")->close(); },
        [&] { QTest::mouseClick(p.main->record_word_list, Qt::LeftButton); },
        [] { click("qvrecord", "Command1"); },
        [] { click("edit_list", "start_new_list"); },
        [] { quorvane::window("edit_list")->close(); },
        [] { click("qvrecord", "zip"); },
        [] { quorvane::window("qvrecord")->close(); },
        [&] { p.main->close(); },
    });
    EXPECT_EQ(QApplication::exec(), 0);

    EXPECT_EQ(steps.left(), 0U) << "the program ended before its window closed";
    // Every box after the name (asked before any window is open) had the window that asked as its parent.
    for (const QString& box : boxes.seen.mid(1))
        EXPECT_FALSE(box.startsWith("(none)|")) << box.toStdString();
    EXPECT_EQ(boxes.seen.count("qvplay|That was too few or too many. It is now set to 3."), 1);
    // The number boxes offer the count in use (3 once reset) or what their texts recommend; names start empty.
    ASSERT_EQ(boxes.offered.size(), 6);
    EXPECT_GT(boxes.offered[1].toInt(), 0);
    EXPECT_EQ(boxes.offered.mid(2), QStringList({"3", "50", "5", ""}));
    EXPECT_TRUE(boxes.seen.contains("edit_list|That file already exits.")) << boxes.seen.join("\n").toStdString();
    EXPECT_GE(boxes.seen.filter(QRegularExpression("^qvrecord\\|")).size(), 2) << boxes.seen.join("\n").toStdString();
    // Leaving the loop took the window, and with it the student's lock.
    EXPECT_FALSE(p.main);
    EXPECT_FALSE(QFileInfo::exists(lock));
}

TEST(FirstHour, SigtermLeavesThroughExit)
{
    RealBoxesProgram p;
    BoxAnswerer boxes({"kestrin"});
    p.start();
    const QString lock = paths::studentLockFile(p.main->session().user_folder);
    ASSERT_TRUE(QFileInfo::exists(lock));
    QTimer::singleShot(0, [] { std::raise(SIGTERM); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(p.main);
    EXPECT_FALSE(QFileInfo::exists(lock));
    EXPECT_FALSE(p.sound.initialised);
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

TEST(FirstHour, KeyboardAloneChoosesAListPlaysAndMovesAWordRunsTheCardsAndFinishesATest)
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
}

TEST(FirstHour, OpeningTheRecordWindowAndFocusingItsListsPlaysAndChoosesNothing)
{
    Program p;
    openCourse(p);
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
