#pragma once

#include <QString>

// The fixed texts of the record-and-edit window and of recording sessions.
namespace quorvane::record_texts {

QString windowTitle();
QString titleLabel();
QString listNameLabel();
QString currentListPlaceholder();
QString editHint();
QString about();
QString recordSelectedLabel();
QString recordMultipleLabel();
QString keepSilenceCaption();

// The count labels: with a count after loading a list, without one for a single word.
QString withSoundsCaption();
QString withoutSoundsCaption();
QString withSoundsCount(int count);
QString withoutSoundsCount(int count);
QString fileNumber(const QString& soundNumber);
// The length and peak level of the take just stored, shown beside the file number.
QString takeLevel(double seconds, double peakDbfs, bool silent);

// Buttons.
QString stopCaption();
QString fastCaption();
QString slowCaption();
QString unlimitedCaption();
QString addWordCaption();
QString saveTextCaption();
QString deleteWordCaption();
QString refreshCaption();
QString exitCaption();
QString advancedEditingCaption();
QString textInstructionsCaption();
QString recordInstructionsCaption();
QString licenseCaption();
QString zipCaption();

// The information boxes.
QString textInstructions();
QString recordInstructions();
QString license();
QString slowerMessage();
QString fasterMessage();

// The session's refusals and countdown.
QString selectListFirst();
QString selectWordFirst();
QString countdownTwo();
QString countdownOne();
QString countdownSpeak();

// A folder of recordings that could not be made, and the cause when a file stands in its way.
QString folderNotMade(const QString& folder, const QString& reason);
inline const QString kNotAFolder = QStringLiteral("a file of that name is in the way");

// The main window's two record buttons without a word or a list.
QString selectWordToRecord();
QString selectListToRecord();

} // namespace quorvane::record_texts
