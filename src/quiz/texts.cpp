#include "quiz/texts.h"

namespace quorvane::quiz_texts {

QString testTitle()
{
    return QStringLiteral("Test");
}

QString languageLabel(const QString& language)
{
    return QStringLiteral("Language: ") + language;
}

QString listLabel(const QString& list)
{
    return QStringLiteral("List Name: ") + list;
}

QString userLabel(const QString& userName)
{
    return QStringLiteral("Username: ") + userName;
}

QString chooseListCaption()
{
    return QStringLiteral("Choose Word List");
}

QString chooseTextOrSoundCaption()
{
    return QStringLiteral("Choose Text or Sound");
}

QString questionsCaption()
{
    return QStringLiteral("Number of Questions");
}

QString secondsCaption()
{
    return QStringLiteral("Time allowed for each question in seconds");
}

QString multipleChoiceCaption()
{
    // Kept as the window has always spelt it.
    return QStringLiteral("Multiple Coice");
}

QString spellingCaption()
{
    return QStringLiteral("Spelling Only");
}

QString fillInBlankCaption()
{
    return QStringLiteral("Fill In The Blank");
}

QString beginCaption()
{
    return QStringLiteral("Begin Test");
}

QString stopCaption()
{
    return QStringLiteral("Stop Test");
}

QString exitCaption()
{
    return QStringLiteral("Exit");
}

QString answerCaption()
{
    return QStringLiteral("Enter Answer:");
}

QStringList sourceRows(bool withMaster)
{
    // "Unkown" kept as the window has always spelt it.
    QStringList rows = {QStringLiteral("All Words on Selected List"), QStringLiteral("Unkown Words on Selected List")};
    if (withMaster)
        rows.append(QStringLiteral("All words in selected language"));
    return rows;
}

QStringList presentationRows()
{
    return {QStringLiteral("Show the text of the word"), QStringLiteral("Play the sound of the word"),
            QStringLiteral("Both")};
}

QString questionsRefused()
{
    return QStringLiteral("The number of questions must be a number greater than 0.");
}

QString secondsRefused()
{
    return QStringLiteral("The number of seconds per question must be a number greater than 0.");
}

QString emptySource()
{
    return QStringLiteral("The chosen word list has no words to ask. Choose another list and begin again.");
}

QString soundMissing()
{
    return QStringLiteral(
        "Sound file for this word was not found.  Click OK to go to next word or Cancel to stop test.");
}

QString selectListFirst()
{
    return QStringLiteral("You must first select a list to start the test.");
}

QString remaining(int questionNumber, int numQuestions)
{
    return QString::number(questionNumber) + QStringLiteral(" of ") + QString::number(numQuestions);
}

QString found(const QString& typed, const QString& expected)
{
    return typed + QStringLiteral(" found in ") + expected;
}

QString summary(const QString& duration, int correct, int asked, int percent)
{
    return QStringLiteral("Test finished in ") + duration + u'\r' + QString::number(correct) + QStringLiteral(" of ") +
           QString::number(asked) + QStringLiteral(" correct ") + QString::number(percent) + u'%';
}

QString resultsNotWritten(const QString& path, const QString& error)
{
    return QStringLiteral("The test result could not be added to ") + path + QStringLiteral(" (") + error +
           QStringLiteral("). Check that the program folder may be written to; earlier results are unchanged.");
}

QString unknownsOnly(const QString& list)
{
    return list + QStringLiteral(" (unknowns only)");
}

QString masterSource()
{
    return QStringLiteral("master");
}

QString kindName(int kind)
{
    static const QStringList names = {QStringLiteral("Multiple Choice"), QStringLiteral("Spelling"),
                                      QStringLiteral("Fill In Blank")};
    return names.value(kind);
}

QString presentationName(int row)
{
    static const QStringList names = {QStringLiteral("Text Only"), QStringLiteral("Sound Only"),
                                      QStringLiteral("Text and Sound")};
    return names.value(row);
}

QString resultsTitle()
{
    return QStringLiteral("Test Results");
}

QString resultsNote()
{
    // Wording kept as it is.
    return QStringLiteral("These text can be saved to a file to be opened by a spreadsheet program such as Excel in "
                          "'tab-delimited' format and sorted in various ways. In Excel, look in the 'Data' menu to "
                          "sort.");
}

QString saveCaption()
{
    return QStringLiteral("Save to a file");
}

QString printCaption()
{
    return QStringLiteral("Print Text Directly to Default Printer. May not finish printing until program is exited.");
}

QString savePrompt()
{
    return QStringLiteral("What would you like to save this file as?");
}

QString saveTitle()
{
    return QStringLiteral("Save File");
}

QString saveFailed(const QString& path, const QString& error)
{
    return QStringLiteral("The text could not be saved as \"") + path + QStringLiteral("\" (") + error +
           QStringLiteral(").");
}

QString noPrinter()
{
    return QStringLiteral("No printer is installed on this computer, so nothing was printed. Install a printer "
                          "(or save the text to a file) and try again.");
}

QString printFailed()
{
    return QStringLiteral("The printer could not be started, so nothing was printed.");
}

QString noResultsYet()
{
    return QStringLiteral("There are no test results yet: they are recorded from the first test taken.");
}

QString listRequired()
{
    return QStringLiteral("You must first select one of the word/phrase lists.");
}

} // namespace quorvane::quiz_texts
