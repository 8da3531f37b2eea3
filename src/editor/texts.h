#pragma once

#include <QString>

// The fixed texts of the list editor.
namespace quorvane::editor_texts {

inline const QString kTitle = QStringLiteral("Edit Word List");
inline const QString kSaveCaption = QStringLiteral("Save Changes and Exit");
inline const QString kSaveUnicodeCaption = QStringLiteral("Save File as Unicode and Exit");
inline const QString kStartNewListCaption = QStringLiteral("Start New Word List for This Language");
inline const QString kExitWithoutSaveCaption = QStringLiteral("Do Not Save Changes and Exit");
// Label1: the instructions above the text box.
// Kept: the label names high_num.dat, though the counter of new numbers is highest_num.dat.
inline const QString kInstructions = QStringLiteral(
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

// Opening with no list chosen, and the list then edited.
inline const QString kNoListChosen =
    QStringLiteral("A list was not chosen. A blank form will be opened in case you want to start a new list.");
inline const QString kTemporaryList = QStringLiteral("temporary");

// start_new_list.
inline const QString kNewListPrompt = QStringLiteral("What should be the name of the new word list?");
// Kept as it stands, spelling included.
inline const QString kFileExists = QStringLiteral("That file already exits.");
// The language and the list, shown in the window once a name was given.
QString languageAndList(const QString& language, const QString& list);
// The "List Name" heading inside languageAndList.
inline const QString kListNameHeading = QStringLiteral("List Name");

// A save that failed; the window stays open with its text.
QString notSaved(const QString& path, const QString& reason);
// A new list whose file could not be made.
QString notMade(const QString& path, const QString& reason);

} // namespace quorvane::editor_texts
