#include "store/word_moves.h"

#include "core/session.h"
#include "review/review_log.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

namespace quorvane {

namespace {

// The index in arrays of the entry word|translation|sound number: preferred at index, else the
// first; -1 when there is none. The empty last slot is no entry.
qsizetype findEntry(const WordArrays& arrays, const WordEntry& entry, qsizetype index)
{
    const auto matches = [&](qsizetype i) {
        return arrays.words.at(i) == entry.word && arrays.translations.at(i) == entry.translation &&
               arrays.sound_numbers.at(i) == entry.sound_number;
    };
    const qsizetype entries = arrays.words.size() - 1;
    if (index < entries && matches(index))
        return index;
    for (qsizetype i = 0; i < entries; ++i) {
        if (matches(i))
            return i;
    }
    return -1;
}

QStringList entriesExcept(const WordArrays& arrays, qsizetype index)
{
    QStringList lines;
    lines.reserve(arrays.words.size());
    for (qsizetype i = 0; i < arrays.words.size(); ++i) {
        if (i != index)
            lines.append(joinEntry(arrays.words.at(i), arrays.translations.at(i), arrays.sound_numbers.at(i)));
    }
    return lines;
}

} // namespace

bool move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index, QString* error)
{
    const auto fail = [error](const QString& text) {
        if (error)
            *error = text;
        return false;
    };
    // Rows of an empty selection (-1) or past the arrays name no entry.
    if (index < 0 || index >= session.words.size())
        return false;
    // Arrays of the shown file that is not the source: a known list shown in the flash cards
    // ("Mark Word As Known"), whose word is not among the unknown ones.
    if (session.words_file == session.shown_file && !session.shown_file.isEmpty() && sourceFile != session.shown_file)
        return false;
    const WordEntry entry{session.words.at(index), session.translations.at(index), session.sound_numbers.at(index)};
    if (sourceFile.isEmpty())
        return fail(store_texts::noListToMoveIn(entry.word));
    QString cause;
    // The arrays' strings are shared with the entries of the file that are still equal to them.
    std::optional<WordArrays> source =
        read_word_file(sourceFile, &cause, WordArrays{session.words, session.translations, session.sound_numbers});
    if (!source)
        return fail(store_texts::sourceNotRead(sourceFile, cause));
    const qsizetype at = findEntry(*source, entry, index);
    if (at < 0)
        return fail(store_texts::wordNotInFile(entry.word, sourceFile));
    // The target gains the entry before the source loses it, and the source is replaced in one
    // rename: at every moment the entry is in at least one of the two files.
    // A failure leaves both files as they were.
    review::MoveRecord record(session, index, targetFile, error);
    if (!record.written())
        return false;
    qint64 targetLength = -1;
    if (!appendTextLines(targetFile, {joinEntry(entry.word, entry.translation, entry.sound_number)}, &cause,
                         &targetLength))
        return fail(store_texts::targetNotWritten(targetFile, cause));
    if (!writeTextLines(sourceFile, entriesExcept(*source, at), &cause)) {
        if (restoreLength(targetFile, targetLength))
            return fail(store_texts::sourceNotRewritten(sourceFile, cause));
        return fail(store_texts::sourceNotWritten(targetFile, sourceFile, cause));
    }
    record.keep();
    if (session.words_file != sourceFile)
        return false;
    // The source now holds exactly the entries it was read with but the one moved: those are what
    // reading it again would give.
    source->words.remove(at);
    source->translations.remove(at);
    source->sound_numbers.remove(at);
    session.words = std::move(source->words);
    session.translations = std::move(source->translations);
    session.sound_numbers = std::move(source->sound_numbers);
    session.mainView().display_words();
    return true;
}

bool move_to_known(Session& session, int index, QString* error)
{
    return move_word(session, session.known_file, session.unknown_file, index, error);
}

bool move_to_unknown(Session& session, int index, QString* error)
{
    return move_word(session, session.unknown_file, session.known_file, index, error);
}

} // namespace quorvane
