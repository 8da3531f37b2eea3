// Takes the screenshots of the README: starts Quorvane on a copy of the sample folder with
// scripted answers and saves what the main window shows. Usage: quorvane_screenshots OUTPUT_DIR

#include "app/main_window.h"
#include "core/session.h"
#include "widgets/list_box.h"

#include "quorvane/testing.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>

namespace {

void copyFolder(const QString& from, const QString& to)
{
    QDirIterator it(from, QDir::AllEntries | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + "/" + QDir(from).relativeFilePath(path);
        if (it.fileInfo().isDir())
            QDir().mkpath(target);
        else
            QFile::copy(path, target);
    }
}

int rowOf(QListWidget* box, const QString& text)
{
    const auto found = box->findItems(text, Qt::MatchExactly);
    return found.isEmpty() ? 0 : box->row(found.first());
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QString output = QFileInfo(argc > 1 ? argv[1] : "docs").absoluteFilePath();
    QTemporaryDir folder;
    copyFolder(QStringLiteral(QUORVANE_DEMO_DIR), folder.path());

    quorvane::ScriptedPrompts prompts({QStringLiteral("kestrin")});
    quorvane::FakeSound sound;
    quorvane::FakeClock clock;
    auto* main = static_cast<quorvane::MainWindow*>(quorvane::start(folder.path(), &prompts, &sound, &clock));
    main->resize(1100, 680);
    quorvane::select_row(main->lang_list, rowOf(main->lang_list, "spanish"));
    quorvane::select_row(main->lists_list, rowOf(main->lists_list, "most_common_words"));
    quorvane::select_row(main->words_list, 3);
    QApplication::processEvents();
    bool saved = main->grab().save(output + "/main-window.png");
    std::printf("%s %s/main-window.png\n", saved ? "saved" : "could not save", qPrintable(output));

    // A word whose recording is gone is spoken by the synthesizer, and its file number says so.
    quorvane::Session& session = quorvane::sessionOf(main);
    const QString number = session.sound_numbers.value(5);
    QFile::remove(session.languages_folder + "spanish/" + number.left(2) + "/" + number + ".mp3");
    quorvane::select_row(main->words_list, 5);
    QApplication::processEvents();
    const bool spoken = main->grab().save(output + "/synthesized-word.png");
    std::printf("%s %s/synthesized-word.png\n", spoken ? "saved" : "could not save", qPrintable(output));
    delete main;
    return saved && spoken ? 0 : 1;
}
