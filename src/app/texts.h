#pragma once

#include <QString>

// The fixed texts of the main window.
namespace quorvane::main_texts {

QString windowTitle();
QString moreWordsLine();

QString soundLibraryMissing();
QString soundStartFailed(const QString& errorText);
QString namePrompt();
QString nameTitle();

QString instructionsTitle();
QString instructions();
QString helpTitle();
QString help();
QString troubleshootingTitle();
QString troubleshooting();
QString aboutTitle();
QString about();

QString unknownWordsCaption(int count);
QString knownWordsCaption(int count);
QString wordsCaption(int count);
QString unexpectedError(const QString& what);
QString notYetAvailable();

} // namespace quorvane::main_texts
