// quorvane-demo [DIR]: copies the sample course to DIR (default ./quorvane-demo) when DIR does not
// exist yet, then starts Quorvane with DIR as its program folder.

#include "app/ui/program_folder.h"
#include "app/ui/start.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include <cstdio>

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder =
        QFileInfo(arguments.size() > 1 ? arguments.at(1) : QStringLiteral("quorvane-demo")).absoluteFilePath();
    if (!QFileInfo::exists(folder)) {
        const QString sample = quorvane::sampleCourseFolder(QApplication::applicationDirPath());
        QString error = QStringLiteral("the sample course was not found beside the program.");
        if (sample.isEmpty() || !quorvane::copySampleCourse(sample, folder, {}, &error)) {
            std::fprintf(stderr, "quorvane-demo: could not copy the sample folder to %s: %s\n",
                         qPrintable(QDir::toNativeSeparators(folder)), qPrintable(error));
            return 1;
        }
        std::printf("quorvane-demo: the sample folder was copied to %s\n",
                    qPrintable(QDir::toNativeSeparators(folder)));
    }
    quorvane::start(folder);
    return QApplication::exec();
}
