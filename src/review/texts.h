#pragma once

#include <QString>

// The fixed texts of spaced review and the progress window.
namespace quorvane::review_texts {

inline const QString kReviewDueCaption = QStringLiteral("Review Due Words");
inline const QString kToolsMenu = QStringLiteral("&Tools");
inline const QString kProgressItem = QStringLiteral("&Progress");
inline const QString kSettingsItem = QStringLiteral("Review &Settings");
inline const QString kAgainCaption = QStringLiteral("Again");
inline const QString kGotItCaption = QStringLiteral("Got It");
inline const QString kAgainTip = QStringLiteral("Not remembered: the word comes back soon (key 1)");
inline const QString kGotItTip = QStringLiteral("Remembered: the word comes back later (key 2)");
inline const QString kNothingDue = QStringLiteral("No words of this list are due for review today.");
inline const QString kReviewDone = QStringLiteral("That was every word due today.");
inline const QString kSettingsTitle = QStringLiteral("Review Settings");
inline const QString kRetentionPrompt =
    QStringLiteral("Chance of remembering a word when it comes back for review, from 0.70 to 0.99:");
inline const QString kNewWordsPrompt = QStringLiteral("New words a day at most, from 0 to 1000:");
inline const QString kBadRetention =
    QStringLiteral("The chance of remembering must be a number from 0.70 to 0.99, such as 0.9. Nothing was changed.");
inline const QString kBadNewWords =
    QStringLiteral("The new words a day must be a whole number from 0 to 1000. Nothing was changed.");
inline const QString kProgressTitle = QStringLiteral("Progress");
inline const QString kScoresTitle = QStringLiteral("Test scores");
inline const QString kKnownTitle = QStringLiteral("Words moved to known, per week");
inline const QString kMissedTitle = QStringLiteral("Most missed words");
inline const QString kSavePngCaption = QStringLiteral("Save as PNG");
inline const QString kCloseCaption = QStringLiteral("Close");
inline const QString kSavePrompt = QStringLiteral("Save the progress picture as (a .png file):");
inline const QString kPercentAxis = QStringLiteral("Score %");
inline const QString kWordsAxis = QStringLiteral("Words");

// "12 words due today"
QString dueCaption(int count);
QString logNotWritten(const QString& path, const QString& cause);
QString moveNotLogged(const QString& word, const QString& target, const QString& path, const QString& cause);
QString pictureNotSaved(const QString& path, const QString& cause);
QString pictureSaved(const QString& path);
// A row of the most-missed list: the word and how often it was missed.
QString missedRow(const QString& word, int misses);
// Said under the charts when the review log holds lines that could not be read.
QString damagedLines(int count);

} // namespace quorvane::review_texts
