// A new user's first hour: the real boxes inside the program's own event loop, signals, keys.

#include "store/paths.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPointer>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <deque>

using namespace quorvane;
using namespace quorvane::test;

namespace {

// Answers every real box the program shows, as a user would: input boxes get the next answer and
// OK, message boxes OK (or Yes). Each box is noted as "parent window|text".
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

private:
    void answerOpenBoxes()
    {
        QDialog* box = openBox();
        if (!box)
            return;
        const QString parent = box->parentWidget() ? box->parentWidget()->window()->objectName() : "(none)";
        if (auto* input = qobject_cast<QInputDialog*>(box)) {
            seen.append(parent + "|" + input->labelText());
            input->setTextValue(m_answers.isEmpty() ? QString() : m_answers.takeFirst());
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
    BoxAnswerer boxes({"kestrin", "99", "1", "", "words"});
    p.start();
    ASSERT_TRUE(p.main);
    const QString lock = paths::studentLockFile(p.main->session().user_folder);
    ASSERT_TRUE(QFileInfo::exists(lock));

    Steps steps({
        [&] {
            // While the cards play: "# Repeats" answered out of range, then Pause.
            p.clock.at(5, [] { click("qvplay", "change_repeat"); });
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
    EXPECT_TRUE(boxes.seen.contains("qvplay|That was too few or too many. It is now set to 3."));
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
