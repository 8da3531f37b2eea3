#pragma once

#include <QString>

// The fixed texts of the word store.
namespace quorvane::texts {

QString tooManyLines(const QString& path, int limit);
QString tooManyEntries(const QString& path, int limit);
QString badPairingLine(const QString& path, int lineNumber, int highestSoundNumber);

// The unknown file of a list that could not be made.
QString unknownFileNotMade(const QString& path, const QString& reason);
// A word file that could not be read: nothing was made from it.
QString fileNotRead(const QString& path, const QString& reason);
// A word that could not be moved between a student's unknown and known files.
QString noListToMoveIn(const QString& word);
QString sourceNotRead(const QString& source, const QString& reason);
QString wordNotInFile(const QString& word, const QString& source);
QString targetNotWritten(const QString& target, const QString& reason);
QString sourceNotRewritten(const QString& source, const QString& reason);
QString sourceNotWritten(const QString& target, const QString& source, const QString& reason);

// The caption above the word boxes: how many words the shown list holds.
QString unknownWordsCaption(int count);
QString knownWordsCaption(int count);
QString wordsCaption(int count);

// Start-up: the sound library, and the student's name.
QString soundLibraryMissing();
QString soundStartFailed(const QString& errorText);
QString namePrompt();
QString nameTitle();
// Another copy of the program already has the student's files open.
QString studentAlreadyOpen(const QString& userName);
// A shared file's lock that could not be made, or that another copy of the program keeps.
QString lockNotMade(const QString& path, const QString& reason);
QString lockBusy(const QString& path);

} // namespace quorvane::texts
