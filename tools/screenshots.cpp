// Takes the pictures of the README through the real windows: starts Quorvane on a copy of the sample
// folder with scripted answers and a virtual clock, walks through the program as a student would and
// saves each window as it shows. Usage: quorvane_screenshots OUTPUT_DIR [--maximised]
// (--maximised: every window fills the screen; QT_SCALE_FACTOR=2 in the environment draws at double
// scale).

#include "app/ui/main_window.h"
#include "copy_folder.h"
#include "core/session.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QTemporaryDir>

#include <cstdio>

namespace {

QString g_output;
bool g_maximised = false;
int g_failures = 0;

// Virtual time that also moves a little at each reading, as a real timer does between two draws of
// the test's choices (which the plain virtual clock would give the same for ever).
class TickingClock : public quorvane::FakeClock
{
public:
    double timer() override
    {
        now += 0.001;
        return now;
    }
};

int rowOf(QListWidget* box, const QString& text)
{
    const auto found = box->findItems(text, Qt::MatchExactly);
    return found.isEmpty() ? 0 : box->row(found.first());
}

// Saves the open window called name as file.
void save(const char* name, const char* file)
{
    QWidget* window = quorvane::window(QString::fromLatin1(name));
    if (!window) {
        std::printf("not open: %s, so no %s\n", name, file);
        ++g_failures;
        return;
    }
    if (g_maximised)
        window->setGeometry(window->screen()->availableGeometry());
    QApplication::processEvents();
    const QString path = g_output + "/" + QString::fromLatin1(file);
    const bool saved = window->grab().save(path);
    std::printf("%s %s\n", saved ? "saved" : "could not save", qPrintable(path));
    g_failures += saved ? 0 : 1;
}

void press(const char* windowName, const char* button)
{
    if (QWidget* window = quorvane::window(QString::fromLatin1(windowName))) {
        if (auto* found = window->findChild<QPushButton*>(QString::fromLatin1(button))) {
            found->click();
            return;
        }
    }
    std::printf("no button %s in %s\n", button, windowName);
    ++g_failures;
}

void closeWindow(const char* name)
{
    if (QWidget* window = quorvane::window(QString::fromLatin1(name)))
        window->close();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    g_output = QFileInfo(argc > 1 ? argv[1] : "docs").absoluteFilePath();
    g_maximised = argc > 2 && QByteArray(argv[2]) == "--maximised";
    QTemporaryDir folder;
    copyFolder(QStringLiteral(QUORVANE_DEMO_DIR), folder.path());

    // The name; then OK to each question the walk meets.
    quorvane::ScriptedPrompts prompts({QStringLiteral("kestrin")});
    for (int i = 0; i < 20; ++i)
        prompts.push(true);
    quorvane::FakeSound sound;
    TickingClock clock;
    auto* main = static_cast<quorvane::MainWindow*>(quorvane::start(folder.path(), &prompts, &sound, &clock));
    main->resize(1100, 680);
    quorvane::select_row(main->lang_list, rowOf(main->lang_list, "spanish"));
    quorvane::select_row(main->lists_list, rowOf(main->lists_list, "most_common_words"));
    quorvane::select_row(main->words_list, 3);
    save("qvmain", "main-window.png");

    // A word moved to the known list, then the list shown again with the known list below.
    main->words_list_dblclick();
    quorvane::select_row(main->words_list, 3);
    save("qvmain", "words.png");

    // Both flash-card windows, caught while a card shows, then paused and closed.
    for (const auto& [button, name, file] : {std::tuple("flash_cards", "qvplay", "flash-cards.png"),
                                             std::tuple("small_flash", "qvplay2", "small-flash-card.png")}) {
        clock.at(2.5, [name, file] {
            save(name, file);
            press(name, "pause");
        });
        press("qvmain", button);
        closeWindow(name);
    }

    // Three short tests, each in a fresh test window, a choice clicked every second; the first caught
    // at its second question.
    for (int run = 0; run < 3; ++run) {
        press("qvmain", "test_me");
        QWidget* test = quorvane::window(QStringLiteral("test"));
        if (!test) {
            std::printf("no test window for test %d\n", run + 1);
            ++g_failures;
            break;
        }
        test->findChild<QLineEdit*>(QStringLiteral("num_qs"))->setText(QStringLiteral("4"));
        test->findChild<QLineEdit*>(QStringLiteral("num_secs"))->setText(QStringLiteral("3"));
        for (int second = 1; second < 12; ++second) {
            clock.at(second + 0.5, [second] {
                if (quorvane::window(QStringLiteral("test")))
                    press("test", second % 3 ? "c2" : "c4");
            });
        }
        if (run == 0)
            clock.at(3.2, [] { save("test", "test-question.png"); });
        press("test", "begin_test");
        closeWindow("test");
    }
    press("qvmain", "show_test_results");
    save("test_results", "test-results.png");
    closeWindow("test_results");

    // The record-and-edit window with a word chosen, then the list editor opened from it.
    quorvane::select_row(main->words_list, 0);
    press("qvmain", "record_word_list");
    if (QWidget* record = quorvane::window(QStringLiteral("qvrecord")))
        quorvane::select_row(record->findChild<quorvane::ListBox*>(QStringLiteral("span_list_w")), 2);
    save("qvrecord", "record-window.png");
    press("qvrecord", "Command1");
    save("edit_list", "list-editor.png");
    closeWindow("edit_list");
    closeWindow("qvrecord");

    // A search for "co" over the whole master list.
    main->show();
    main->txt_word_search->setText(QStringLiteral("co"));
    save("qvmain", "search.png");

    // A word whose recording is gone is spoken by the synthesizer, and its file number says so.
    main->txt_word_search->clear();
    quorvane::select_row(main->lists_list, rowOf(main->lists_list, "most_common_words"));
    quorvane::Session& session = quorvane::sessionOf(main);
    const QString number = session.sound_numbers.value(5);
    QFile::remove(session.languages_folder + "spanish/" + number.left(2) + "/" + number + ".mp3");
    quorvane::select_row(main->words_list, 5);
    save("qvmain", "synthesized-word.png");

    delete main;
    return g_failures == 0 ? 0 : 1;
}
