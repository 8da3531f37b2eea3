#pragma once

#include <QDir>
#include <QString>

// The fixed texts of starting Quorvane: its command line, the per-user program folder and the
// first run.
namespace quorvane::launch_texts {

inline const QString kDescription =
    QStringLiteral("Quorvane, a vocabulary tutor: hear, sort and drill the words of a language.");
inline const QString kFolderOption = QStringLiteral(
    "Use DIR as the program folder (\".\" is the current folder). Without it, Quorvane uses your own folder, %1.");
inline const QString kFolderValue = QStringLiteral("DIR");
inline const QString kStudentOption = QStringLiteral("Start as the student NAME, without asking for a name.");
inline const QString kStudentValue = QStringLiteral("NAME");
inline const QString kTryHelp = QStringLiteral("Try 'quorvane --help' for the options.");
inline const QString kEmptyStudent = QStringLiteral("the student's name given with --student is empty.");
inline const QString kNoArguments = QStringLiteral("Quorvane takes no file names, only options.");
inline const QString kFirstRunTitle = QStringLiteral("Welcome to Quorvane");
inline const QString kCopyingSample = QStringLiteral("Copying the sample course to your folder...");

inline QString path(const QString& file)
{
    return QDir::toNativeSeparators(file);
}
inline QString folderMissing(const QString& folder)
{
    return QStringLiteral("the folder %1 does not exist.").arg(path(folder));
}
inline QString notAFolder(const QString& folder)
{
    return QStringLiteral("%1 is not a folder.").arg(path(folder));
}
inline QString folderNotWritable(const QString& folder)
{
    return QStringLiteral("the folder %1 cannot be written to (Quorvane keeps each student's words there).")
        .arg(path(folder));
}
inline QString badStudent(const QString& name)
{
    return QStringLiteral("the student's name \"%1\" cannot be a folder name; leave out / and \\.").arg(name);
}
inline QString sampleCopied(const QString& folder)
{
    return QStringLiteral("Your Quorvane folder is %1. The sample course was copied there: your word lists, "
                          "recordings and progress are kept in it.")
        .arg(path(folder));
}
inline QString noSampleCourse(const QString& folder)
{
    return QStringLiteral("Your Quorvane folder is %1. The sample course was not found beside the program, so "
                          "the folder starts empty: add a language with \"Add new language\".")
        .arg(path(folder));
}
inline QString folderNotMade(const QString& folder, const QString& cause)
{
    return QStringLiteral("Quorvane could not set up your folder %1: %2").arg(path(folder), cause);
}

} // namespace quorvane::launch_texts
