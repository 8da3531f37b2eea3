#pragma once

#include <QString>
#include <QStringList>

// The fixed texts of the student test and of the results window.
namespace quorvane::quiz_texts {

// The test window.
inline const QString kTestTitle = QStringLiteral("Test");
QString languageLabel(const QString& language);
QString listLabel(const QString& list);
QString userLabel(const QString& userName);
inline const QString kChooseListCaption = QStringLiteral("Choose Word List");
inline const QString kChooseTextOrSoundCaption = QStringLiteral("Choose Text or Sound");
inline const QString kQuestionsCaption = QStringLiteral("Number of Questions");
inline const QString kSecondsCaption = QStringLiteral("Time allowed for each question in seconds");
// Kept as the window has always spelt it.
inline const QString kMultipleChoiceCaption = QStringLiteral("Multiple Coice");
inline const QString kSpellingCaption = QStringLiteral("Spelling Only");
inline const QString kFillInBlankCaption = QStringLiteral("Fill In The Blank");
inline const QString kBeginCaption = QStringLiteral("Begin Test");
inline const QString kStopCaption = QStringLiteral("Stop Test");
inline const QString kExitCaption = QStringLiteral("Exit");
inline const QString kAnswerCaption = QStringLiteral("Enter Answer:");
// The rows of list1: the list, its unknown words, and (only with a master file) the whole language.
QStringList sourceRows(bool withMaster);
// The rows of List2.
inline const QStringList kPresentationRows = {QStringLiteral("Show the text of the word"),
                                              QStringLiteral("Play the sound of the word"), QStringLiteral("Both")};

// Refusals and questions of a test.
inline const QString kQuestionsRefused = QStringLiteral("The number of questions must be a number greater than 0.");
inline const QString kSecondsRefused =
    QStringLiteral("The number of seconds per question must be a number greater than 0.");
inline const QString kEmptySource =
    QStringLiteral("The chosen word list has no words to ask. Choose another list and begin again.");
inline const QString kSoundMissing =
    QStringLiteral("Sound file for this word was not found.  Click OK to go to next word or Cancel to stop test.");
inline const QString kSelectListFirst = QStringLiteral("You must first select a list to start the test.");

// What a running test shows.
QString remaining(int questionNumber, int numQuestions);
QString found(const QString& typed, const QString& expected);
QString summary(const QString& duration, int correct, int asked, int percent);
QString resultsNotWritten(const QString& path, const QString& error);

// The word source, kind and presentation as the results line names them.
QString unknownsOnly(const QString& list);
inline const QString kMasterSource = QStringLiteral("master");
QString kindName(int kind);
QString presentationName(int row);

// The results window.
inline const QString kResultsTitle = QStringLiteral("Test Results");
// Wording kept as it is.
inline const QString kResultsNote =
    QStringLiteral("These text can be saved to a file to be opened by a spreadsheet program such as Excel in "
                   "'tab-delimited' format and sorted in various ways. In Excel, look in the 'Data' menu to "
                   "sort.");
inline const QString kSaveCaption = QStringLiteral("Save to a file");
inline const QString kPrintCaption =
    QStringLiteral("Print Text Directly to Default Printer. May not finish printing until program is exited.");
inline const QString kSavePrompt = QStringLiteral("What would you like to save this file as?");
inline const QString kSaveTitle = QStringLiteral("Save File");
QString saveFailed(const QString& path, const QString& error);
inline const QString kNoPrinter =
    QStringLiteral("No printer is installed on this computer, so nothing was printed. Install a printer "
                   "(or save the text to a file) and try again.");
inline const QString kPrintFailed = QStringLiteral("The printer could not be started, so nothing was printed.");
inline const QString kNoResultsYet =
    QStringLiteral("There are no test results yet: they are recorded from the first test taken.");
inline const QString kListRequired = QStringLiteral("You must first select one of the word/phrase lists.");

// Put before the student's typed answer on the line under the right one.
inline const QString kTypedAnswerPrefix = QStringLiteral("not ");

} // namespace quorvane::quiz_texts
