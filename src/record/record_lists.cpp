#include "record/record_lists.h"

#include "core/session.h"
#include "core/table_limit.h"
#include "record/texts.h"
#include "store/paths.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QFileInfo>

namespace quorvane {

namespace {

// Rows of one kind the window's arrays hold (indexes 0 to 20000).
constexpr int kMaxRecordRows = 20001;
constexpr int kLongWord = 61;
constexpr int kSmallPoints = 8;
constexpr int kLargePoints = 10;

void append(RecordArrays& arrays, const WordEntry& entry)
{
    arrays.words.append(entry.word);
    arrays.translations.append(entry.translation);
    arrays.sound_numbers.append(entry.sound_number);
    ++arrays.count;
}

// Pads the arrays with empty slots up to indexes 0..highest.
void sizeTo(RecordArrays& arrays, int highest)
{
    while (arrays.words.size() <= highest) {
        arrays.words.append(QString());
        arrays.translations.append(QString());
        arrays.sound_numbers.append(QString());
    }
}

} // namespace

bool has_sound_file(const Session& session, const QString& soundNumber)
{
    const QString& folder = session.languages_folder;
    const QString& language = session.current_language;
    return QFileInfo::exists(paths::newRecording(folder, language, soundNumber)) ||
           QFileInfo::exists(paths::releasedRecording(folder, language, soundNumber));
}

std::optional<RecordLists> create_arrays(const Session& session, QString* error)
{
    QString cause;
    const std::optional<QStringList> lines = readTextLines(session.list_file, &cause);
    if (!lines) {
        if (error)
            *error = store_texts::fileNotRead(session.list_file, cause);
        return std::nullopt;
    }
    RecordLists lists;
    for (const QString& line : *lines) {
        WordEntry entry;
        if (!splitEntry(line, &entry) || entry.sound_number.isEmpty())
            continue;
        RecordArrays& arrays = has_sound_file(session, entry.sound_number) ? lists.with : lists.without;
        if (arrays.count >= kMaxRecordRows)
            throw TableLimitError(store_texts::tooManyEntries(session.list_file, kMaxRecordRows));
        append(arrays, entry);
    }
    lists.withCaption = record_texts::withSoundsCount(lists.with.count);
    lists.withoutCaption = record_texts::withoutSoundsCount(lists.without.count);
    // Kept as designed: only an empty with-list raises the without-list's size along with its own.
    int withHighest = lists.with.count;
    int withoutHighest = lists.without.count;
    if (withHighest == 0) {
        withHighest = 1;
        if (withoutHighest == 0)
            withoutHighest = 1;
    }
    sizeTo(lists.with, withHighest);
    sizeTo(lists.without, withoutHighest);
    return lists;
}

RecordLists create_word(const Session& session)
{
    RecordLists lists;
    lists.withCaption = record_texts::kWithSoundsCaption;
    lists.withoutCaption = record_texts::kWithoutSoundsCaption;
    const int index = session.one_word_index.toInt();
    WordEntry entry{session.words.value(index), session.translations.value(index), session.sound_numbers.value(index)};
    append(has_sound_file(session, entry.sound_number) ? lists.with : lists.without, entry);
    sizeTo(lists.with, 1);
    sizeTo(lists.without, 1);
    return lists;
}

EditBoxFont edit_box_font(const QString& word)
{
    if (word.size() >= kLongWord)
        return {kSmallPoints, false};
    return {kLargePoints, true};
}

} // namespace quorvane
