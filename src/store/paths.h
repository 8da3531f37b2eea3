#pragma once

#include <QString>

// Every path of the program folder, in one place. Folders end with the separator; paths are
// joined as plain text. The program folder is the current directory.
namespace quorvane::paths {

inline const QString kListSuffix = QStringLiteral(".txt");
inline const QString kKnownSuffix = QStringLiteral("-k.txt");
inline const QString kUnknownSuffix = QStringLiteral("-u.txt");
// A file being rewritten is written beside its name, under the name followed by the writer's own
// mark (".<process id>-<count>") and this suffix.
inline const QString kRewriteSuffix = QStringLiteral(".rewrite.tmp");
// The lock file of a language's shared files, in its folder; no scan of a folder lists it.
inline const QString kLockName = QStringLiteral(".lock");

// The program folder's own folders.
QString programFolder();
QString languagesFolder();
QString usersFolder();
QString userFolder(const QString& userName);
// The running record of every test, and a student's own record (which nothing here writes).
QString testResultsFile();
QString studentTestRecord(const QString& userName);

// A language's folder and its files.
QString languageFolder(const QString& languagesFolder, const QString& language);
QString listFile(const QString& languagesFolder, const QString& language, const QString& list);
QString masterName(const QString& language);
QString masterFile(const QString& languagesFolder, const QString& language);
QString transFile(const QString& languagesFolder, const QString& language);
QString transIndexFile(const QString& languagesFolder, const QString& language, const QString& target);
QString highestNumberFile(const QString& languagesFolder, const QString& language);
QString changesFile(const QString& languagesFolder, const QString& language);
// The lock taken around every change of a language's shared files (lists, master, change log,
// highest_num, pairing files).
QString languageLockFile(const QString& languagesFolder, const QString& language);

// Recordings: the released one, <language>/<two digits>/<number>.mp3; the new ones a contributor
// made, <language>/new_str/<two digits>/<number>.str; and the new_wav and new_mp3 folders a test
// also looks in.
QString releasedRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber);
QString newRecordingsFolder(const QString& languagesFolder, const QString& language);
QString newRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber);
QString newWavRecording(const QString& languagesFolder, const QString& language, const QString& soundNumber);
QString newMp3Recording(const QString& languagesFolder, const QString& language, const QString& soundNumber);

// A student's files of a language.
QString studentLanguageFolder(const QString& userFolder, const QString& language);
QString knownFile(const QString& userFolder, const QString& language, const QString& list);
QString unknownFile(const QString& userFolder, const QString& language, const QString& list);
// The lock that keeps a second copy of the program away from a student's files.
QString studentLockFile(const QString& userFolder);

// The pieces and results of MP3 compilation, in the program folder (relative paths).
QString mp3OutputFile();
QString silenceFile();
QString beepFile();
QString numberedMp3File(int number);

// A contributor's work packed for sending: the recordings folder of the program folder, its str
// folder of recording archives, and the archives' names where they are made and where they are
// copied.
QString recordingsFolder();
QString recordingArchivesFolder();
QString recordingArchiveCopy(const QString& language, const QString& subfolder);
QString textArchive(const QString& languagesFolder, const QString& language);
QString textArchiveCopy(const QString& language);

} // namespace quorvane::paths
