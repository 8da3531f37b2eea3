#include "app/command_line.h"
#include "app/ui/program_folder.h"
#include "core/product.h"
#include "test_support.h"
#include "widgets/qt_prompts.h"
#include "widgets/window_geometry.h"

#include <QApplication>
#include <QScreen>
#include <QSettings>
#include <QTimer>

#include <gtest/gtest.h>

using namespace quorvane;
using quorvane::test::ProgramFolder;

namespace {

CommandLine parse(const QStringList& options)
{
    return parseCommandLine(QStringList{"quorvane"} + options, "/home/ana/.local/share/quorvane");
}

// An installed program: bin/ beside share/quorvane/, whose sample course has one list and one
// recording; the user's folder is still to be made.
struct Installed : test::CoreSession
{
    const QByteArray list = "hola|hello|00001\r\nadios|goodbye|00002\r\n";
    const QByteArray recording = test::patternBytes(3000);

    Installed()
    {
        folder.mkdir("bin");
        folder.write("share/quorvane/languages/spanish/first.txt", list);
        folder.write("share/quorvane/languages/spanish/00/00001.mp3", recording);
    }
    QString user() const { return folder.file("home/.local/share/quorvane"); }
    int run(Launcher& launcher, const QStringList& options)
    {
        return launcher.run(QStringList{"quorvane"} + options, folder.file("bin"), user());
    }
};

} // namespace

TEST(CommandLine, OptionsAndRefusals)
{
    const CommandLine plain = parse({});
    EXPECT_EQ(std::tuple(plain.action, plain.folder, plain.hasStudent),
              std::tuple(CommandLine::Action::run, QString(), false));

    const CommandLine version = parse({"--version"});
    EXPECT_EQ(std::pair(version.action, version.output),
              std::pair(CommandLine::Action::print, QString("quorvane %1\n").arg(product::kVersion)));
    const CommandLine help = parse({"--help"});
    EXPECT_EQ(help.action, CommandLine::Action::print);
    for (const char* named : {"--folder <DIR>", "--student <NAME>", "--version", "/home/ana/.local/share/quorvane"})
        EXPECT_TRUE(help.output.contains(named)) << named;

    ProgramFolder folder;
    folder.write("plain.txt", "x");
    const CommandLine chosen = parse({"--folder", folder.path(), "--student", "ana"});
    EXPECT_EQ(std::tuple(chosen.action, chosen.folder, chosen.hasStudent, chosen.student),
              std::tuple(CommandLine::Action::run, folder.path(), true, QString("ana")));
    EXPECT_EQ(parse({"--folder", "."}).folder, QDir::currentPath());

    // Each refusal names what is wrong and points to the help.
    const QList<std::pair<QStringList, QString>> refused = {
        {{"--bogus"}, "Unknown option 'bogus'"},
        {{"--folder"}, "Missing value after '--folder'"},
        {{"--folder", "/nonexistent"}, "the folder /nonexistent does not exist."},
        {{"--folder", folder.file("plain.txt")}, folder.file("plain.txt") + " is not a folder."},
        {{"--student", ""}, "is empty"},
        {{"--student", "../ana"}, "\"../ana\" cannot be a folder name"},
        {{"words.txt"}, "takes no file names"}};
    for (const auto& [options, cause] : refused) {
        const CommandLine line = parse(options);
        EXPECT_EQ(line.action, CommandLine::Action::fail) << options.join(' ').toStdString();
        EXPECT_TRUE(line.output.startsWith("quorvane: ") && line.output.contains(cause) &&
                    line.output.endsWith("Try 'quorvane --help' for the options.\n"))
            << line.output.toStdString();
    }

    // What main() does with them: an exit code, and no window.
    Installed program;
    Launcher launcher(program.prompts, &program.sound, &program.clock);
    EXPECT_EQ(program.run(launcher, {"--folder", "/nonexistent"}), 2);
    EXPECT_EQ(program.run(launcher, {"--version"}), 0);
    EXPECT_EQ(launcher.window(), nullptr);
    EXPECT_FALSE(QFileInfo::exists(program.user()));
}

TEST(ProgramFolder, TheFirstRunCopiesTheSampleCourseAndSaysWhereInARealBoxLaterRunsKeepTheFolder)
{
    Installed program;
    // A copy a killed run left half made is thrown away.
    program.folder.write("home/.local/share/quorvane.partial/languages/spanish/half.txt", "half");
    {
        QtPrompts real;
        Launcher launcher(real, &program.sound, &program.clock);
        int code = 0;
        bool shown = false;
        QString student;
        QTimer::singleShot(0, [&] {
            code = program.run(launcher, {"--student", "ana"});
            shown = launcher.window() && launcher.window()->isVisible();
            student = shown ? sessionOf(launcher.window()).user_name : QString();
            QApplication::quit();
        });
        test::BoxAnswerer boxes;
        ASSERT_EQ(QApplication::exec(), 0);
        ASSERT_EQ(std::tuple(code, shown, student, QDir::currentPath()),
                  std::tuple(-1, true, QString("ana"), program.user()));
        EXPECT_EQ(program.folder.read("home/.local/share/quorvane/languages/spanish/first.txt"), program.list);
        EXPECT_EQ(program.folder.read("home/.local/share/quorvane/languages/spanish/00/00001.mp3"), program.recording);
        EXPECT_FALSE(program.folder.exists("home/.local/share/quorvane.partial") ||
                     program.folder.exists("home/.local/share/quorvane/languages/spanish/half.txt"));
        // No name question: the student came with the command line.
        ASSERT_EQ(boxes.titles, QStringList({"Welcome to Quorvane"}));
        EXPECT_TRUE(boxes.seen[0].contains("|Your Quorvane folder is " + program.user() + ". "))
            << boxes.seen[0].toStdString();
        EXPECT_TRUE(QFileInfo(program.user() + "/users/ana/spanish").isDir());
    }
    program.folder.write("home/.local/share/quorvane/languages/spanish/first.txt", "mine\r\n");
    program.prompts.push(QString("ben"));
    Launcher again(program.prompts, &program.sound, &program.clock);
    ASSERT_EQ(program.run(again, {}), -1);
    EXPECT_EQ(program.prompts.boxes(), QStringList({"input|Student Name|What is your first name?  This is for "
                                                    "the program to remember which words you have learned."}));
    EXPECT_EQ(program.folder.read("home/.local/share/quorvane/languages/spanish/first.txt"), "mine\r\n");

    // In a build tree a file beside the program names the sample course's folder relative to it.
    ProgramFolder build;
    build.mkdir("course/languages");
    build.mkdir("out");
    EXPECT_EQ(sampleCourseFolder(build.file("out")), QString());
    build.write("out/sample-course-folder.txt", "../course\n");
    EXPECT_EQ(sampleCourseFolder(build.file("out")), build.file("course"));
    EXPECT_EQ(sampleCourseFolder(program.folder.file("bin")), program.folder.file("share/quorvane"));
}

TEST(WindowGeometry, RestoredOnTheScreenEvenWhenTheScreenGotSmaller)
{
    ProgramFolder settings;
    const QString file = settings.file("windows.conf");
    rememberWindowGeometry(file);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    {
        QSettings saved(file, QSettings::IniFormat);
        saved.setValue("windows/qvmain", QRect(screen.right() + 300, screen.bottom() + 200, screen.width() + 600, 600));
    }
    test::Program p;
    MainWindow* main = p.start();
    EXPECT_EQ(main->geometry(), QRect(screen.left(), screen.bottom() - 599, screen.width(), 600));

    // Where the window was when it hid is where the next one opens.
    main->setGeometry(screen.left() + 40, screen.top() + 30, 600, 500);
    main->hide();
    EXPECT_EQ(QSettings(file, QSettings::IniFormat).value("windows/qvmain").toRect(),
              QRect(screen.left() + 40, screen.top() + 30, 600, 500));
    rememberWindowGeometry(QString());

    // A window left on a screen to the left that is gone comes back whole.
    EXPECT_EQ(fitOnScreen(QRect(-1500, 100, 600, 400), QRect(0, 0, 1024, 768)), QRect(0, 100, 600, 400));
}
