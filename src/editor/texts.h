#pragma once

#include <QString>

// The fixed texts of the list editor.
namespace quorvane::editor_texts {

QString title();
QString saveCaption();
QString saveUnicodeCaption();
QString startNewListCaption();
QString exitWithoutSaveCaption();
// Label1: the instructions above the text box.
QString instructions();

// Opening with no list chosen, and the list then edited.
QString noListChosen();
QString temporaryList();

// start_new_list.
QString newListPrompt();
QString fileExists();
// The language and the list, shown in the window once a name was given.
QString languageAndList(const QString& language, const QString& list);
// The "List Name" heading inside languageAndList.
QString listNameHeading();

// A save that failed; the window stays open with its text.
QString notSaved(const QString& path, const QString& reason);
// A new list whose file could not be made.
QString notMade(const QString& path, const QString& reason);

} // namespace quorvane::editor_texts
