#include "store/paths.h"

#include <QDir>

namespace quorvane::paths {

namespace {

QString separator()
{
    return QDir::separator();
}

// <folder><language>/<two digits>/<number><extension>, with sub between language and digits.
QString recording(const QString& languagesFolder, const QString& language, const QString& sub,
                  const QString& soundNumber, const QString& extension)
{
    return languageFolder(languagesFolder, language) + sub + soundNumber.left(2) + separator() + soundNumber +
           extension;
}

} // namespace

QString programFolder()
{
    return QDir::currentPath() + separator();
}

QString languagesFolder()
{
    return programFolder() + QStringLiteral("languages") + separator();
}

QString usersFolder()
{
    return programFolder() + QStringLiteral("users") + separator();
}

QString userFolder(const QString& userName)
{
    return usersFolder() + userName + separator();
}

QString testResultsFile()
{
    return programFolder() + QStringLiteral("test_results.txt");
}

QString studentTestRecord(const QString& userName)
{
    return usersFolder() + userName + QStringLiteral("_test.txt");
}

QString languageFolder(const QString& languagesFolder, const QString& language)
{
    return languagesFolder + language + separator();
}

QString listFile(const QString& languagesFolder, const QString& language, const QString& list)
{
    return languageFolder(languagesFolder, language) + list + kListSuffix;
}

QString masterName(const QString& language)
{
    return QStringLiteral("master_") + language;
}

QString masterFile(const QString& languagesFolder, const QString& language)
{
    return listFile(languagesFolder, language, masterName(language));
}

QString transFile(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + QStringLiteral("trans_") + language + QStringLiteral(".dat");
}

QString transIndexFile(const QString& languagesFolder, const QString& language, const QString& target)
{
    return languageFolder(languagesFolder, language) + QStringLiteral("trans_index_") + language + u'_' + target +
           QStringLiteral(".dat");
}

QString highestNumberFile(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + QStringLiteral("highest_num.dat");
}

QString changesFile(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + QStringLiteral("changes_") + language + QStringLiteral(".dat");
}

QString languageLockFile(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + kLockName;
}

QString releasedRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber)
{
    return recording(languagesFolder, language, QString(), soundNumber, QStringLiteral(".mp3"));
}

QString newRecordingsFolder(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + QStringLiteral("new_str") + separator();
}

QString newRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber)
{
    return recording(languagesFolder, language, QStringLiteral("new_str") + separator(), soundNumber,
                     QStringLiteral(".str"));
}

QString newWavRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber)
{
    return recording(languagesFolder, language, QStringLiteral("new_wav") + separator(), soundNumber,
                     QStringLiteral(".wav"));
}

QString newMp3Recording(const QString& languagesFolder, const QString& language, const QString& soundNumber)
{
    return recording(languagesFolder, language, QStringLiteral("new_mp3") + separator(), soundNumber,
                     QStringLiteral(".mp3"));
}

QString studentLanguageFolder(const QString& userFolder, const QString& language)
{
    return userFolder + language + separator();
}

QString knownFile(const QString& userFolder, const QString& language, const QString& list)
{
    return studentLanguageFolder(userFolder, language) + list + kKnownSuffix;
}

QString unknownFile(const QString& userFolder, const QString& language, const QString& list)
{
    return studentLanguageFolder(userFolder, language) + list + kUnknownSuffix;
}

QString studentLockFile(const QString& userFolder)
{
    return userFolder + QStringLiteral("quorvane.lock");
}

QString mp3OutputFile()
{
    return QStringLiteral("out_file.mp3");
}

QString silenceFile()
{
    return QStringLiteral("silence.mp3");
}

QString beepFile()
{
    return QStringLiteral("beep.mp3");
}

QString numberedMp3File(int number)
{
    return QStringLiteral("100words") + QString::number(number) + QStringLiteral(".mp3");
}

QString recordingsFolder()
{
    return programFolder() + QStringLiteral("recordings") + separator();
}

QString recordingArchivesFolder()
{
    return recordingsFolder() + QStringLiteral("str") + separator();
}

QString recordingArchiveCopy(const QString& language, const QString& subfolder)
{
    return recordingArchivesFolder() + language + QStringLiteral("_str_") + subfolder + QStringLiteral(".zip");
}

QString textArchive(const QString& languagesFolder, const QString& language)
{
    return languageFolder(languagesFolder, language) + language + QStringLiteral(".zip");
}

QString textArchiveCopy(const QString& language)
{
    return recordingsFolder() + QStringLiteral("text_") + language + QStringLiteral(".zip");
}

} // namespace quorvane::paths
