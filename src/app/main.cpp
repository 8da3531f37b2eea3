// quorvane [--folder DIR] [--student NAME]: the program. Without --folder it works in the user's
// own folder, which gets a copy of the sample course on the first run.

#include "app/program_folder.h"
#include "core/product.h"
#include "widgets/qt_prompts.h"
#include "widgets/window_geometry.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quorvane"));
    QApplication::setApplicationVersion(QString::fromLatin1(quorvane::product::kVersion));
    QApplication::setDesktopFileName(QStringLiteral("org.quorvane.Quorvane"));
    quorvane::rememberWindowGeometry(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                                     QStringLiteral("/windows.conf"));

    quorvane::QtPrompts prompts;
    quorvane::Launcher launcher(prompts);
    const int code = launcher.run(QApplication::arguments(), QApplication::applicationDirPath(),
                                  QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    return code >= 0 ? code : QApplication::exec();
}
