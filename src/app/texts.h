#pragma once

#include "core/product.h"

#include <QString>

// The fixed texts of the main window.
namespace quorvane::main_texts {

// The program's web address, as the texts name it.
inline const QString kWebAddress = QString::fromLatin1(product::kWebAddress);
inline const QString kWindowTitle = kWebAddress;
// The caption of a control or menu of the main window, by its name.
QString caption(const QString& name);
inline const QString kIncreaseFont = QStringLiteral("Increase Font");
inline const QString kDecreaseFont = QStringLiteral("Decrease Font");
inline const QString kMoreWordsLine =
    QStringLiteral("More words, phrases and languages can be obtained at %1").arg(kWebAddress);

inline const QString kInstructionsTitle = QStringLiteral("Instructions");
inline const QString kInstructions = QStringLiteral(
    "First select a language to learn by clicking on its name at the top left. Lists of words for that "
    "language will then appear.  Click on one of the lists to see the words on that list. Click on a word to "
    "hear it. Click on 'flash cards' to randomnly play words on the selected list.  You can double-click on "
    "a word to move it from the 'unknown' list to the 'known' list. The program remembers which words you "
    "have marked as 'known' for the next time you run the program. You can review the words you've marked "
    "as 'known' and double-click on them to move them back onto the 'unknown' list. ");
inline const QString kHelpTitle = QStringLiteral("Help");
inline const QString kHelp =
    QStringLiteral("For general instructions on how to use the program, click on Instructions.") +
    QStringLiteral("  Additional words, phrases and languages can be had at %1.").arg(kWebAddress) +
    QStringLiteral("  For further help, contact %1 by e-mail at %2 or by telephone at %3.")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail),
             QString::fromLatin1(product::kMaintainerTelephone));
inline const QString kTroubleshootingTitle = QStringLiteral("Troubleshooting");
// Lines end in a lone carriage return and the example paths are in the old layout, as they always were.
inline const QString kTroubleshooting = QStringLiteral(
    "See the Help section if this information does not solve the problem.  The program depends on the sound files "
    "and word lists to be in a certain location relative to the quorvane.exe program.  The following files have to "
    "be in the indicated sub-folders relative to the quorvane.exe program. \r\r"
    "quorvane.exe\tin 'quorvane' folder\r"
    "fmod.dll\r"
    "mp3 and wav sound files\texample: quorvane\\languages\\spanish\\01\\01436.mp3\r"
    "text files of word lists\texample: quorvane\\languages\\spanish\\most_common_words.txt\r"
    "the users known word lists\texample: quorvane\\users\\kestrin\\spanish\\most_common_words-u.txt");
inline const QString kAboutTitle = QStringLiteral("About ") + kWebAddress + QStringLiteral(" Vocabulary Tutor");
inline const QString kAbout =
    QStringLiteral("%1 Vocabulary Tutor, version %2, released %3.  Newer versions may be found at %4.  "
                   "This program is free for personal use and may be distributed freely.  For the terms "
                   "under which contributors may record and ")
        .arg(QString::fromLatin1(product::kName), QString::fromLatin1(product::kVersion),
             QString::fromLatin1(product::kReleaseDate), kWebAddress) +
    QStringLiteral("edit words and phrases, see also the license on the 'Record and Edit' form.");

// Starting Quorvane: its command line, the per-user program folder and the first run.
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

// A path as the user's system writes it.
QString path(const QString& file);
QString folderMissing(const QString& folder);
QString notAFolder(const QString& folder);
QString folderNotWritable(const QString& folder);
QString badStudent(const QString& name);
QString sampleCopied(const QString& folder);
QString noSampleCourse(const QString& folder);
QString folderNotMade(const QString& folder, const QString& cause);

// A step of copying the sample course that failed; the paths come as the user's system writes them.
QString stagingNotMade(const QString& folder);
QString copyNotRead(const QString& file, const QString& reason);
QString copyNotWritten(const QString& file, const QString& reason);
QString copyNotSaved(const QString& folder, const QString& reason);
QString copyNotRenamed(const QString& from, const QString& to);
inline const QString kFolderCannotBeMade = QStringLiteral("the folder cannot be made.");

} // namespace quorvane::main_texts
