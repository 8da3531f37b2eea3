#pragma once

#include "core/product.h"

#include <QString>
#include <QStringList>

// The fixed texts of the record-and-edit window and of recording sessions.
namespace quorvane::record_texts {

inline const QString kWindowTitle = QString::fromLatin1(product::kWebAddress);
inline const QString kTitleLabel = QStringLiteral("Record and Edit Words");
inline const QString kListNameLabel = QStringLiteral("Word List Name:");
inline const QString kCurrentListPlaceholder = QStringLiteral("current list");
inline const QString kEditHint =
    QStringLiteral("You can change the text in the white box if you are recording the words. Do not change the "
                   "text in the bottom grey box unless you are adding a new word or phrase pair.");
inline const QString kAbout =
    QStringLiteral("This part of the program lets you add, record and edit words and phrases for any "
                   "language. When you have finished, the 'Email Files' button gives instructions for "
                   "sending your work to %1 so that everyone can use it. Telephone: %2")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerTelephone));
inline const QString kRecordSelectedLabel = QStringLiteral("Record Selected Word");
inline const QString kRecordMultipleLabel = QStringLiteral("Record Multiple Words");
inline const QString kKeepSilenceCaption = QStringLiteral("Do not automaticaly remove silence from beginning and end.");

// The count labels: with a count after loading a list, without one for a single word.
inline const QString kWithSoundsCaption = QStringLiteral("Words With Sound Files");
inline const QString kWithoutSoundsCaption = QStringLiteral("Words Without Sound Files");
QString withSoundsCount(int count);
QString withoutSoundsCount(int count);
QString fileNumber(const QString& soundNumber);
// The length and peak level of the take just stored, shown beside the file number.
QString takeLevel(double seconds, double peakDbfs, bool silent);

// Buttons.
inline const QString kStopCaption = QStringLiteral("STOP");
inline const QString kFastCaption = QStringLiteral("Click for fast method");
inline const QString kSlowCaption = QStringLiteral("Click for slow method");
inline const QString kUnlimitedCaption = QStringLiteral("Start Recording (no time limit)");
inline const QString kAddWordCaption = QStringLiteral("Add the above text as a new word/phrase pair");
inline const QString kSaveTextCaption = QStringLiteral("Save the above text changes");
inline const QString kDeleteWordCaption = QStringLiteral("Delete this word/phrase pair");
inline const QString kRefreshCaption = QStringLiteral("Refresh Lists to Show Changes");
inline const QString kExitCaption = QStringLiteral("Exit and Return");
inline const QString kAdvancedEditingCaption = QStringLiteral("Advanced List Editing");
inline const QString kTextInstructionsCaption = QStringLiteral("Text Editing Instructions");
inline const QString kRecordInstructionsCaption = QStringLiteral("Recording Instructions");
inline const QString kLicenseCaption = QStringLiteral("License");
inline const QString kZipCaption = QStringLiteral("Email Files");

// The information boxes.
inline const QString kTextInstructions =
    QStringLiteral("First correct the spelling of the words on the left before recording.  Try to make the "
                   "translations one word. Do not modify the english words. If two or three translations are "
                   "needed, seperate each one with a comma (,). Do not use uncommon words.  Just the words all "
                   "people know.  ") +
    QStringLiteral("Please e-mail your corrected word lists to %1 at %2, so that they can be shared with "
                   "everyone who uses the program. ")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail)) +
    QStringLiteral("Click the 'email' button for more instruction on how to email the corrected lists. ");
inline const QString kRecordInstructions =
    QStringLiteral("Use a noise-free room and make the recordings as loud as possible without distortion.  ") +
    QStringLiteral("Start speaking as soon as the program says 'SPEAK'. Before doing much work, please send "
                   "a few recorded words to %1 (%2, telephone %3) so that the quality can be approved. ")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kMaintainerEmail),
             QString::fromLatin1(product::kMaintainerTelephone)) +
    QStringLiteral("Speak your normal speed or a little faster. Do not speak slow. For single words, try to use "
                   "the 0.8, 1, or 1.2 second recording options. ") +
    QStringLiteral("It's best to place your cursor over the stop button before recording multiple words.  The "
                   "'multiple' recording method makes recording many words easy.  Do not be afraid of making a "
                   "mistake: you can do the recordings again and it simply erases the first recording.  ") +
    QStringLiteral("When finished with all the recordings click the 'Email Files' button which compresses and "
                   "combines the sound files for emailing to me.  ") +
    QStringLiteral("If you're good at computers, it's interesting to take a look at all the files in the "
                   "Quorvane directory to see where all these sound files are stored.");
inline const QString kLicense =
    QStringLiteral("By sending words, translations and recordings to %1 you agree that they may be "
                   "corrected, combined with the work of others and distributed with %2 to everyone, free of "
                   "charge, under the terms %2 itself is distributed under. You keep the right to use your own "
                   "work in any way you like. Please send only your own recordings of your own voice. (These "
                   "terms are a placeholder until the maintainers publish the final ones.)")
        .arg(QString::fromLatin1(product::kMaintainerName), QString::fromLatin1(product::kName));
inline const QString kSlowerMessage =
    QStringLiteral("This makes the pause between recordings longer (slow). Click again to make it shorter (fast).");
inline const QString kFasterMessage =
    QStringLiteral("This makes the pause between recordings shorter (fast). Click again to make it longer (slow).");

// The session's refusals and countdown.
inline const QString kSelectListFirst =
    QStringLiteral("You have to select a word on one of the lists. If you just added the word and don't see it, "
                   "you need to click the refresh button and then look at the bottom of the list.");
inline const QString kSelectWordFirst = QStringLiteral("You have to select a word on one of the lists.");
inline const QString kCountdownTwo = QStringLiteral("2");
inline const QString kCountdownOne = QStringLiteral("1");
inline const QString kCountdownSpeak = QStringLiteral("Speak");

// A folder of recordings that could not be made, and the cause when a file stands in its way.
QString folderNotMade(const QString& folder, const QString& reason);
inline const QString kNotAFolder = QStringLiteral("a file of that name is in the way");

// The main window's two record buttons without a word or a list.
inline const QString kSelectWordToRecord = QStringLiteral("First select a word to record or edit.");
inline const QString kSelectListToRecord = QStringLiteral("First select a list of words to record or edit.");

// Editing words and packing a contributor's work for sending.
// highest_num.dat when a language has none yet: the first number given to a new entry.
inline const QString kFirstNewNumber = QStringLiteral("70000");
// The two kinds of line of the change log; the first part of a deletion's line.
inline const QString kChangeArrow = QStringLiteral("->");
inline const QString kDeletedMarker = QStringLiteral("word_deleted");

// The boxes of packing, in the order they are shown.
// recordingsFolder is named without a final separator, as the boxes show it.
QString packingQuestion(const QString& language, const QString& recordingsFolder);
inline const QString kCancelled = QStringLiteral("The action has been cancelled.");
QString workingOn(const QString& archiveName);
// Kept: the count is the program's own estimate, whatever the number of archives.
inline const QString kBusy =
    QStringLiteral("The program is busy.  Please wait 3 seconds before clicking 'OK' below.  This message will "
                   "appear about 10 times before it is finished.");
QString finished(const QString& recordingsFolder);
// The final box: "finished" and the archives written when all were; otherwise what was written
// and what failed, each failure with its cause.
QString packingReport(const QString& recordingsFolder, const QStringList& written, const QStringList& failed);
// An archive that could not be written, and why.
QString archiveFailed(const QString& archive, const QString& reason);
inline const QString kPackingFolderNotMade = QStringLiteral("the folder could not be made");
// The progress shown while an archive is written.
QString packingProgress(const QString& archiveName, int percent);
// A step of packing that failed (the folders made before stay).
QString packingFailed(const QString& what, const QString& reason);
// An entry that could not be added, corrected or deleted.
QString addFailed(const QString& reason);
QString saveFailed(const QString& reason);
QString deleteFailed(const QString& reason);
// A file of an edit that could not be read or written, and why.
QString fileNotRead(const QString& path, const QString& reason);
QString fileNotWritten(const QString& path, const QString& reason);
// An edit that was committed but whose files could not all be written yet.
QString completedLater(const QString& reason);

} // namespace quorvane::record_texts
