#include "flash/card_settings.h"

#include "core/basic.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "flash/texts.h"

namespace quorvane {

namespace {

constexpr float kFastestSpeed = 0.01f;
// The refusal message says 10; the bound is 11 all the same.
constexpr float kSlowestSpeed = 11.0f;
constexpr double kSilencePiece = 0.2;
constexpr qint16 kFewestRepeats = 1;
constexpr qint16 kMostRepeats = 60;
constexpr qint16 kDefaultRepeats = 3;

void askNumber(Session& session, const QString& prompt, qint16& setting)
{
    if (const auto value = basic::toInteger(session.prompts.input(prompt, QString(), QString::number(setting))))
        setting = *value;
}

} // namespace

void ask_repeat_count(Session& session)
{
    // The box offers the count in use (or the usual one), so OK alone is never refused.
    const bool inRange = session.repeat_count >= kFewestRepeats && session.repeat_count <= kMostRepeats;
    const QString answer = session.prompts.input(flash_texts::kRepeatCountPrompt, QString(),
                                                 QString::number(inRange ? session.repeat_count : kDefaultRepeats));
    // An answer that is no 16-bit number counts as out of range.
    if (const auto count = basic::toInteger(answer)) {
        session.repeat_count = *count;
        if (*count >= kFewestRepeats && *count <= kMostRepeats)
            return;
    }
    session.repeat_count = kDefaultRepeats;
    session.prompts.message(flash_texts::kRepeatCountReset);
}

void change_speed(Session& session, CardStyle kind)
{
    const bool large = kind == CardStyle::large;
    const float usual = large ? 0.2f : 0.1f;
    const bool inRange = session.speed >= kFastestSpeed && session.speed <= kSlowestSpeed;
    const QString entry =
        session.prompts.input(large ? flash_texts::kLargeSpeedPrompt : flash_texts::kSmallSpeedPrompt,
                              flash_texts::kSpeedTitle, QString::number(double(inRange ? session.speed : usual)));
    const auto speed = basic::toSingle(entry);
    if (!speed)
        return;
    session.speed = *speed;
    if (large) {
        // A count of silence pieces beyond 16 bits leaves the count as it was.
        if (const auto pieces = basic::toInteger(basic::roundHalfEven(double(*speed) / kSilencePiece)))
            session.silence_count = *pieces;
    }
    if (session.speed < kFastestSpeed || session.speed > kSlowestSpeed) {
        session.speed = usual;
        session.prompts.message(large ? flash_texts::kLargeSpeedRefused : flash_texts::kSmallSpeedRefused);
    }
}

void ask_delay_top(Session& session)
{
    askNumber(session, flash_texts::kDelayTopPrompt, session.delay_top);
}

void ask_delay_bottom(Session& session)
{
    askNumber(session, flash_texts::kDelayBottomPrompt, session.delay_bottom);
}

void ask_interlace(Session& session, CardStyle kind)
{
    askNumber(session,
              kind == CardStyle::large ? flash_texts::kLargeInterlacePrompt : flash_texts::kSmallInterlacePrompt,
              session.interlace_count);
    session.say_mode = flags::kInterlace;
}

void choose_top_only(Session& session)
{
    session.prompts.message(flash_texts::kTopOnlyMessage);
    session.say_mode = flags::kNo;
}

void choose_both(Session& session)
{
    session.prompts.message(flash_texts::kBothMessage);
    session.say_mode = flags::kYes;
}

} // namespace quorvane
