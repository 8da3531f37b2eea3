#pragma once

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QString>

// Copies a folder's tree (the sample course) to another folder, for the screenshot tools.
inline void copyFolder(const QString& from, const QString& to)
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
