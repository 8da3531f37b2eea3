#pragma once

#include <QString>
#include <QStringList>

// The fixed texts of importing and exporting word lists.
namespace quorvane::exchange_texts {

inline const QString kImportTitle = QStringLiteral("Import Word List");
inline const QString kExportTitle = QStringLiteral("Export Word List");
inline const QString kImportFilter =
    QStringLiteral("Word lists (*.csv *.tsv *.txt *.kvtml *.apkg *.colpkg);;All files (*)");
inline const QString kExportFilter = QStringLiteral("CSV (*.csv);;KVTML (*.kvtml)");
inline const QString kFirstSelectList = QStringLiteral("First select a word list to export.");
inline const QString kImportCancelled = QStringLiteral("The import was cancelled. Nothing was changed.");
inline const QString kUnknownFormat =
    QStringLiteral("this kind of file cannot be imported (CSV, TSV, KVTML, .apkg and .colpkg files can)");
inline const QString kNotKvtml = QStringLiteral("it is not a KVTML 2 vocabulary file");
inline const QString kNotPackage = QStringLiteral("it is not an Anki package (no collection inside)");
inline const QString kCompressedPackage = QStringLiteral(
    "the package holds its collection in the newer compressed form. In Anki, export the deck again with "
    "File > Export..., choose \"Anki Deck Package (*.apkg)\" and tick \"Support older Anki versions\", then "
    "import that file");
inline const QString kUnreadableCollection = QStringLiteral("its collection cannot be read");
inline const QString kNoTranslation = QStringLiteral("no translation");
inline const QString kNoWord = QStringLiteral("no word");
inline const QString kUnclosedQuote = QStringLiteral("a quote is never closed");
inline const QString kTextAfterQuote = QStringLiteral("text follows a closing quote");
inline const QString kNoSoundNumbersLeft = QStringLiteral("the language has no sound numbers left");
inline const QString kUnreadableAudio = QStringLiteral("the audio cannot be converted to MP3");
inline const QString kListTitle = QStringLiteral("New List");
inline const QString kLessonTitle = QStringLiteral("Lesson");
inline const QString kAllLessons = QStringLiteral("all");
inline const QString kCsvHeader = QStringLiteral("word,translation,sound number,audio");

// The question for the name of the new list when a list of that name exists.
QString listExists(const QString& name, const QString& language);
// The question for the lesson of a KVTML file (answered by a number, a name or "all").
QString chooseLesson(const QStringList& lessons);
QString unknownLesson(const QString& answer);
QString cannotImport(const QString& path, const QString& cause);
QString cannotExport(const QString& path, const QString& cause);
QString cannotRead(const QString& path);
QString cannotWrite(const QString& path, const QString& cause);
QString noEntries(const QString& path);
QString tooManyEntries(int count, int limit);
QString lineReason(int line, const QString& reason);
QString entryReason(const QString& entry, const QString& reason);
QString audioMissing(const QString& name);
QString audioNotUsed(const QString& name, const QString& cause);
// The summary of a finished import: the list, the counts and the first few reasons.
QString importSummary(const QString& list, int imported, int withAudio, int replaced, int skipped, int audioLost,
                      const QStringList& reasons);
QString exportRecordingsQuestion(const QString& folder);
QString exportSummary(const QString& list, const QString& path, int entries, int recordings, const QString& folder,
                      int recordingsLeftOut);
QString progressLabel(const QString& path);

// How a skipped entry of an imported deck is named: Anki's notes by their place, KVTML's entries by id.
QString noteName(qsizetype number);
QString entryName(const QString& id);

} // namespace quorvane::exchange_texts
