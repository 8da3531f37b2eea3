// Takes the picture of the progress window for the README: starts Quorvane on a copy of the sample
// folder, lets a student take a few tests over two weeks on the fake clock (answering more of them
// right as the days go by) and move words to known, then saves the progress window.
// Usage: quorvane_progress_screenshot OUTPUT_DIR

#include "app/ui/main_window.h"
#include "copy_folder.h"
#include "core/session.h"
#include "quiz/ui/test_window.h"
#include "review/ui/progress_window.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>

#include <cstdio>
#include <functional>
#include <memory>

using namespace quorvane;

namespace {

void choose(ListBox* box, const QString& text)
{
    const auto found = box->findItems(text, Qt::MatchExactly);
    select_row(box, found.isEmpty() ? 0 : box->row(found.first()));
}

// One test of ten questions; a question is answered right when right(question number) says so,
// otherwise left to run out.
void takeTest(MainWindow* main, FakeClock& clock, QRadioButton* TestWindow::*kind,
              const std::function<bool(int)>& right)
{
    main->test_me_click();
    auto* test = qobject_cast<TestWindow*>(window("test"));
    (test->*kind)->click();
    test->num_qs->setText("10");
    test->num_secs->setText("2");
    Session& session = main->session();
    auto answered = std::make_shared<QString>();
    auto step = std::make_shared<std::function<void()>>();
    *step = [&, test, answered, weak = std::weak_ptr(step)] {
        if (weak.expired())
            return;
        const QString remaining = test->remaining->text();
        if (remaining.isEmpty())
            return;
        if (remaining != *answered && right(remaining.section(' ', 0, 0).toInt())) {
            *answered = remaining;
            const int index = static_cast<int>(session.words.indexOf(test->test_word->text()));
            const QString translation = session.translations.value(index);
            if (kind == &TestWindow::multiple_choice) {
                for (QPushButton* c : {test->c1, test->c2, test->c3, test->c4, test->c5, test->c6}) {
                    if (c->text() == translation) {
                        c->click();
                        break;
                    }
                }
            } else {
                test->Text1->setText(translation);
                test->Text1_keypress(13); // Enter
            }
        }
        if (auto again = weak.lock())
            clock.at(0.1, *again);
    };
    clock.at(0.1, *step);
    test->begin_test->click();
    test->close();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString output = QFileInfo(argc > 1 ? argv[1] : "docs").absoluteFilePath();
    QTemporaryDir folder;
    copyFolder(QStringLiteral(QUORVANE_DEMO_DIR), folder.path());

    ScriptedPrompts prompts({QStringLiteral("kestrin")});
    FakeSound sound;
    FakeClock clock;
    clock.date = QDateTime(QDate(2026, 1, 5), QTime(18, 0));
    auto* main = static_cast<MainWindow*>(start(folder.path(), &prompts, &sound, &clock));
    choose(main->lang_list, "spanish");
    for (int day = 0; day < 7; ++day) {
        choose(main->lists_list, "animals");
        takeTest(main, clock, &TestWindow::multiple_choice, [day](int q) { return (q * 7 + day) % 10 < 4 + day; });
        choose(main->lists_list, "animals");
        takeTest(main, clock, &TestWindow::fill_in_blank, [day](int q) { return (q * 3 + day) % 10 < 2 + day; });
        choose(main->lists_list, "animals");
        for (int moved = 0; moved < 1 + day % 3; ++moved) {
            select_row(main->words_list, 0);
            main->words_list_dblclick();
        }
        clock.jump(2 * 86400.0);
    }
    auto* progress = new ProgressWindow(main->session(), main);
    progress->show();
    QApplication::processEvents();
    const bool saved = progress->grab().save(output + "/progress.png");
    std::printf("%s %s/progress.png\n", saved ? "saved" : "could not save", qPrintable(output));
    delete main;
    return saved ? 0 : 1;
}
