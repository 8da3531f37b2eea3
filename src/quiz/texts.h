#pragma once

#include <QString>
#include <QStringList>

// The fixed texts of the student test and of the results window.
namespace quorvane::quiz_texts {

// The test window.
QString testTitle();
QString languageLabel(const QString& language);
QString listLabel(const QString& list);
QString userLabel(const QString& userName);
QString chooseListCaption();
QString chooseTextOrSoundCaption();
QString questionsCaption();
QString secondsCaption();
QString multipleChoiceCaption();
QString spellingCaption();
QString fillInBlankCaption();
QString beginCaption();
QString stopCaption();
QString exitCaption();
QString answerCaption();
// The rows of list1: the list, its unknown words, and (only with a master file) the whole language.
QStringList sourceRows(bool withMaster);
// The rows of List2.
QStringList presentationRows();

// Refusals and questions of a test.
QString questionsRefused();
QString secondsRefused();
QString emptySource();
QString soundMissing();
QString selectListFirst();

// What a running test shows.
QString remaining(int questionNumber, int numQuestions);
QString found(const QString& typed, const QString& expected);
QString summary(const QString& duration, int correct, int asked, int percent);
QString resultsNotWritten(const QString& path, const QString& error);

// The word source, kind and presentation as the results line names them.
QString unknownsOnly(const QString& list);
QString masterSource();
QString kindName(int kind);
QString presentationName(int row);

// The results window.
QString resultsTitle();
QString resultsNote();
QString saveCaption();
QString printCaption();
QString savePrompt();
QString saveTitle();
QString saveFailed(const QString& path, const QString& error);
QString noPrinter();
QString printFailed();
QString noResultsYet();
QString listRequired();

} // namespace quorvane::quiz_texts
