#include "quiz/texts.h"

namespace quorvane::quiz_texts {

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

QStringList sourceRows(bool withMaster)
{
    // "Unkown" kept as the window has always spelt it.
    QStringList rows = {QStringLiteral("All Words on Selected List"), QStringLiteral("Unkown Words on Selected List")};
    if (withMaster)
        rows.append(QStringLiteral("All words in selected language"));
    return rows;
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

QString saveFailed(const QString& path, const QString& error)
{
    return QStringLiteral("The text could not be saved as \"") + path + QStringLiteral("\" (") + error +
           QStringLiteral(").");
}

} // namespace quorvane::quiz_texts
