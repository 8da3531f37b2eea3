#include "store/word_moves.h"

#include "core/prompts.h"
#include "core/session.h"
#include "review/review_log.h"
#include "store/text_files.h"
#include "store/texts.h"
#include "store/word_files.h"

#include <QFileInfo>

namespace quorvane {

namespace {

QStringList entriesExcept(const Session& session, int index)
{
    QStringList lines;
    lines.reserve(session.words.size());
    for (qsizetype i = 0; i < session.words.size(); ++i) {
        if (i != index)
            lines.append(joinEntry(session.words.at(i), session.translations.at(i), session.sound_numbers.at(i)));
    }
    return lines;
}

} // namespace

void move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index)
{
    // Rows of an empty selection (-1) or past the arrays name no entry: moving them would only
    // rewrite the source without its words.
    if (index < 0 || index >= session.words.size())
        return;
    // The source is rewritten from the arrays, so they must hold it: a move out of another file
    // (a known list shown in the flash cards, and "Mark Word As Known") would replace that file by
    // the shown one. Such a move does nothing.
    if (sourceFile != session.shown_file)
        return;
    const QString entry =
        joinEntry(session.words.at(index), session.translations.at(index), session.sound_numbers.at(index));
    // The target gains the entry before the source loses it, and the source is replaced in one
    // rename: at every moment the entry is in at least one of the two files.
    // A failure leaves both files as they were.
    review::MoveRecord record(session, index, targetFile);
    if (!record.written())
        return;
    QString error;
    qint64 targetLength = -1;
    if (!appendTextLines(targetFile, {entry}, &error, &targetLength)) {
        session.prompts.message(texts::targetNotWritten(targetFile, error));
        return;
    }
    if (!writeTextLines(sourceFile, entriesExcept(session, index), &error)) {
        if (restoreLength(targetFile, targetLength))
            session.prompts.message(texts::sourceNotRewritten(sourceFile, error));
        else
            session.prompts.message(texts::sourceNotWritten(targetFile, sourceFile, error));
        return;
    }
    record.keep();
    create_array_of_words(session, sourceFile);
    session.mainView().display_words();
}

void move_to_known(Session& session, int index)
{
    move_word(session, session.known_file, session.unknown_file, index);
}

void move_to_unknown(Session& session, int index)
{
    move_word(session, session.unknown_file, session.known_file, index);
}

} // namespace quorvane
