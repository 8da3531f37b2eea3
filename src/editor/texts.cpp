#include "editor/texts.h"

namespace quorvane::editor_texts {

QString title()
{
    return QStringLiteral("Edit Word List");
}

QString saveCaption()
{
    return QStringLiteral("Save Changes and Exit");
}

QString saveUnicodeCaption()
{
    return QStringLiteral("Save File as Unicode and Exit");
}

QString startNewListCaption()
{
    return QStringLiteral("Start New Word List for This Language");
}

QString exitWithoutSaveCaption()
{
    return QStringLiteral("Do Not Save Changes and Exit");
}

QString instructions()
{
    // Kept: the label names high_num.dat, though the counter of new numbers is highest_num.dat.
    return QStringLiteral(
        "This is the advanced view for editing the text of the word/phrase lists. If you don't fully understand these "
        "instructions, it's best to use the previous view.  The format shown below should be like this: the foreign "
        "word or phrase is on the left.  Next is a vertical pipe symbol \"|\". Next is the translation in the "
        "student's native language (normally english). Then there is another pipe \"|\". Then on the right is a "
        "number that identifies the sound file for the foreign word or phrase. This is a unique number for this "
        "language and it should NOT be changed. If you're adding new words, it should start at the 70000 or the "
        "highest number stored in the high_num.dat file. If you add new words using this form, the high_num.dat must "
        "be changed to be one number higher than the highest number you use here.  Only change the foreign word or "
        "phrase on the left.  Do not change the translation (except to correct spelling) unless you're adding the "
        "translation yourself. This window simply shows the text in a data file that can also be edited with your "
        "own text editor.");
}

QString noListChosen()
{
    return QStringLiteral("A list was not chosen. A blank form will be opened in case you want to start a new list.");
}

QString temporaryList()
{
    return QStringLiteral("temporary");
}

QString newListPrompt()
{
    return QStringLiteral("What should be the name of the new word list?");
}

QString fileExists()
{
    // Kept as it stands, spelling included.
    return QStringLiteral("That file already exits.");
}

QString listNameHeading()
{
    return QStringLiteral("List Name");
}

QString languageAndList(const QString& language, const QString& list)
{
    const QChar cr(u'\r');
    return QString(cr) + cr + language + cr + cr + listNameHeading() + cr + list;
}

QString notSaved(const QString& path, const QString& reason)
{
    return QStringLiteral("The list could not be saved to %1 (%2). Your changes are still in the window.")
        .arg(path, reason);
}

QString notMade(const QString& path, const QString& reason)
{
    return QStringLiteral("The new list %1 could not be made (%2).").arg(path, reason);
}

} // namespace quorvane::editor_texts
