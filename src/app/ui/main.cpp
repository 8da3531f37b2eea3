// quorvane [--folder DIR] [--student NAME]: the program. Without --folder it works in the user's
// own folder, which gets a copy of the sample course on the first run.

#include "app/ui/program_folder.h"
#include "core/product.h"
#include "widgets/qt_prompts.h"
#include "widgets/window_geometry.h"

#include <QApplication>
#include <QIcon>
#include <QStandardPaths>

namespace {

void nameTheProgram()
{
    QCoreApplication::setApplicationName(QStringLiteral("quorvane"));
    QCoreApplication::setApplicationVersion(QString::fromLatin1(quorvane::product::kVersion));
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

} // namespace

int main(int argc, char* argv[])
{
    // --help, --version and refusals are answered before any window system is needed.
    {
        QCoreApplication core(argc, argv);
        nameTheProgram();
        if (const int code = quorvane::answerWithoutWindow(QCoreApplication::arguments(), userFolder()); code >= 0)
            return code;
    }
    QApplication application(argc, argv);
    nameTheProgram();
    QApplication::setDesktopFileName(QStringLiteral("org.quorvane.Quorvane"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("org.quorvane.Quorvane")));
    quorvane::rememberWindowGeometry(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                                     QStringLiteral("/windows.conf"));

    quorvane::QtPrompts prompts;
    quorvane::Launcher launcher(prompts);
    const int code = launcher.run(QApplication::arguments(), QApplication::applicationDirPath(), userFolder());
    return code >= 0 ? code : QApplication::exec();
}
