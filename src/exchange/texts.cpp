#include "exchange/texts.h"

namespace quorvane::exchange_texts {

namespace {
constexpr int kReasonsShown = 5;
}

QString listExists(const QString& name, const QString& language)
{
    return QStringLiteral("The language %1 already has a list named %2. What should the new list be called?")
        .arg(language, name);
}

QString chooseLesson(const QStringList& lessons)
{
    QString text = QStringLiteral("The file holds these lessons:\n");
    for (int i = 0; i < lessons.size(); ++i)
        text += QStringLiteral("%1. %2\n").arg(i + 1).arg(lessons.at(i));
    return text + QStringLiteral("Type the number or the name of the lesson to import, or \"all\" for every word.");
}

QString unknownLesson(const QString& answer)
{
    return QStringLiteral("The file has no lesson \"%1\". Nothing was imported.").arg(answer);
}

QString cannotImport(const QString& path, const QString& cause)
{
    return QStringLiteral("The file %1 could not be imported: %2.").arg(path, cause);
}

QString cannotExport(const QString& path, const QString& cause)
{
    return QStringLiteral("The list could not be exported to %1: %2.").arg(path, cause);
}

QString cannotRead(const QString& path)
{
    return QStringLiteral("%1 cannot be read").arg(path);
}

QString cannotWrite(const QString& path, const QString& cause)
{
    return QStringLiteral("%1 could not be written (%2)").arg(path, cause);
}

QString noEntries(const QString& path)
{
    return QStringLiteral("no word with a translation was found in %1").arg(path);
}

QString tooManyEntries(int count, int limit)
{
    return QStringLiteral("it holds %1 words, and a list holds at most %2").arg(count).arg(limit);
}

QString lineReason(int line, const QString& reason)
{
    return QStringLiteral("line %1: %2").arg(line).arg(reason);
}

QString entryReason(const QString& entry, const QString& reason)
{
    return QStringLiteral("%1: %2").arg(entry, reason);
}

QString audioMissing(const QString& name)
{
    return QStringLiteral("%1: the audio file is missing").arg(name);
}

QString audioNotUsed(const QString& name, const QString& cause)
{
    return QStringLiteral("%1: %2").arg(name, cause);
}

QString importSummary(const QString& list, int imported, int withAudio, int replaced, int skipped, int audioLost,
                      const QStringList& reasons)
{
    QString text = QStringLiteral("Imported %1 entries into the list %2, %3 of them with audio.\n")
                       .arg(imported)
                       .arg(list)
                       .arg(withAudio);
    text += QStringLiteral("Characters a word list cannot hold, replaced by \"?\": %1.\n").arg(replaced);
    text += QStringLiteral("Lines skipped: %1.\n").arg(skipped);
    if (audioLost > 0)
        text += QStringLiteral("Words imported without their audio: %1.\n").arg(audioLost);
    for (int i = 0; i < reasons.size() && i < kReasonsShown; ++i)
        text += QStringLiteral("  %1\n").arg(reasons.at(i));
    if (reasons.size() > kReasonsShown)
        text += QStringLiteral("  ... and %1 more\n").arg(reasons.size() - kReasonsShown);
    return text.trimmed();
}

QString exportRecordingsQuestion(const QString& folder)
{
    return QStringLiteral("Also write the list's recordings as MP3 files, named after the words, into the folder %1?")
        .arg(folder);
}

QString exportSummary(const QString& list, const QString& path, int entries, int recordings, const QString& folder,
                      int recordingsLeftOut)
{
    QString text = QStringLiteral("Exported %1 entries of the list %2 to %3.").arg(entries).arg(list, path);
    if (!folder.isEmpty())
        text += QStringLiteral("\n%1 recordings written into %2.").arg(recordings).arg(folder);
    if (recordingsLeftOut > 0)
        text += QStringLiteral("\nRecordings that could not be written as MP3: %1.").arg(recordingsLeftOut);
    return text;
}

QString progressLabel(const QString& path)
{
    return QStringLiteral("Importing %1 ...").arg(path);
}

QString noteName(qsizetype number)
{
    return QStringLiteral("note %1").arg(number);
}

QString entryName(const QString& id)
{
    return QStringLiteral("entry %1").arg(id);
}

} // namespace quorvane::exchange_texts
