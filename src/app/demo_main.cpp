// quorvane-demo [DIR]: copies the sample program folder to DIR (default ./quorvane-demo) when DIR
// does not exist yet, then starts Quorvane with DIR as its program folder.

#include "app/start.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

bool copyFolder(const QString& from, const QString& to)
{
    if (!QDir().mkpath(to))
        return false;
    QDirIterator it(from, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
    const QDir source(from);
    while (it.hasNext()) {
        const QString path = it.next();
        const QString target = to + QDir::separator() + source.relativeFilePath(path);
        if (it.fileInfo().isDir()) {
            if (!QDir().mkpath(target))
                return false;
        } else if (!QFile::copy(path, target)) {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    const QString folder =
        QFileInfo(arguments.size() > 1 ? arguments.at(1) : QStringLiteral("quorvane-demo")).absoluteFilePath();
    if (!QFileInfo::exists(folder)) {
        if (!copyFolder(QStringLiteral(QUORVANE_DEMO_DIR), folder)) {
            std::fprintf(stderr, "quorvane-demo: could not copy the sample folder to %s\n",
                         qPrintable(QDir::toNativeSeparators(folder)));
            return 1;
        }
        std::printf("quorvane-demo: the sample folder was copied to %s\n",
                    qPrintable(QDir::toNativeSeparators(folder)));
    }
    quorvane::start(folder);
    return QApplication::exec();
}
