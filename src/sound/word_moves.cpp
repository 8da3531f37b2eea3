#include "sound/word_moves.h"

#include "app/clock.h"
#include "app/prompts.h"
#include "app/session.h"
#include "sound/texts.h"
#include "store/basic.h"
#include "store/text_files.h"
#include "store/word_files.h"

#include <QFileInfo>

#include <bit>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace quorvane {

namespace {

constexpr qint16 kFewestRepeats = 1;
constexpr qint16 kMostRepeats = 60;
constexpr qint16 kDefaultRepeats = 3;

// One draw of a generator seeded with the timer's value: the same timer value always gives the
// same draw. splitmix64 mixes every bit of the seed into the result.
float drawFromSeed(double timer)
{
    std::uint64_t z = std::bit_cast<std::uint64_t>(timer) + 0x9E3779B97F4A7C15ULL;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    z ^= z >> 31;
    // 24 bits fill a float's mantissa exactly, so the result is below 1 without rounding up.
    constexpr float kScale = 1.0f / 16777216.0f;
    return static_cast<float>(z >> 40) * kScale;
}

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

void ask_repeat_count(Session& session)
{
    const QString answer = session.prompts.input(sound_texts::repeatCountPrompt());
    // An answer that is no 16-bit number counts as out of range.
    if (const auto count = basic::toInteger(answer)) {
        session.repeat_count = *count;
        if (*count >= kFewestRepeats && *count <= kMostRepeats)
            return;
    }
    session.repeat_count = kDefaultRepeats;
    session.prompts.message(sound_texts::repeatCountReset());
}

double random_index(Session& session, qint32 low, qint32 high)
{
    // Reseeded at every call on purpose: callers rely on nothing more than a fresh-looking
    // number, and two calls within one tick of the timer give the same one.
    const float r = drawFromSeed(session.clock.timer());
    const qint64 span = qint64(high) + 1 - qint64(low);
    if (span > std::numeric_limits<qint32>::max() || span < std::numeric_limits<qint32>::min())
        throw std::overflow_error(sound_texts::rangeOverflow().toStdString());
    return basic::wholePart(double(r) * double(span) + double(low));
}

void move_word(Session& session, const QString& targetFile, const QString& sourceFile, int index)
{
    // Rows of an empty selection (-1) or past the arrays name no entry: moving them would only
    // rewrite the source without its words.
    if (index < 0 || index >= session.words.size())
        return;
    const QString entry =
        joinEntry(session.words.at(index), session.translations.at(index), session.sound_numbers.at(index));
    // The target gains the entry before the source loses it, and the source is replaced in one
    // rename: at every moment the entry is in at least one of the two files.
    QString error;
    if (!appendTextLines(targetFile, {entry}, &error)) {
        session.prompts.message(sound_texts::targetNotWritten(targetFile, error));
        return;
    }
    if (!writeTextLines(sourceFile, entriesExcept(session, index), &error)) {
        session.prompts.message(sound_texts::sourceNotWritten(targetFile, sourceFile, error));
        return;
    }
    create_array_of_words(session, sourceFile);
    if (session.displayWords)
        session.displayWords();
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
