#include "flash/card_loop.h"
#include "store/paths.h"

#include "core/basic.h"
#include "core/clock.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/random_index.h"
#include "core/session.h"
#include "flash/mp3_tags.h"
#include "flash/texts.h"
#include "sound/playback.h"
#include "sound/texts.h"
#include "store/texts.h"
#include "store/word_files.h"
#include "store/word_moves.h"

#include <QObject>
#include <QPointer>
#include <QScopeGuard>

namespace quorvane {

namespace {

using flags::kNo;
using flags::kYes;
const QString kInterlace = QStringLiteral("interlace");

constexpr int kLargePoints = 48;
constexpr int kMediumPoints = 24;
constexpr int kSmallPoints = 12;
constexpr int kShortText = 20;
constexpr int kLongText = 76;
// From this many words up a card never follows itself.
constexpr int kNoRepeatCount = 11;
constexpr qint16 kMostDelay = 99;
constexpr double kSilencePiece = 0.2;
// Consecutive missing recordings after which the small card gives up.
constexpr qint16 kMostMissingSounds = 7;
constexpr float kTranslationWait = 0.01f;
constexpr float kGradeWait = 0.1f;

struct Rules
{
    float defaultSpeed;
    qint16 defaultRepeats;
    QString defaultSayMode;
    float playWait;
    bool large;
};

QByteArray captureTag(const Session& session)
{
    return id3_tag(capture_tags(session.current_language, session.current_list));
}

Rules rulesFor(CardStyle kind)
{
    if (kind == CardStyle::large)
        return {0.8f, 4, kNo, 0.001f, true};
    return {0.2f, 3, kYes, 0.01f, false};
}

// One run of the card loop, with the two counters that belong to the run alone.
class CardRun
{
public:
    CardRun(Session& session, CardView& view, QObject* viewObject, CardStyle kind)
        : m_session(session), m_view(view), m_watch(view, viewObject), m_rules(rulesFor(kind))
    {
    }

    void run()
    {
        m_view.showWindow();
        normalise();
        bool drawFirst = true;
        if (m_session.replay_flag == kYes) {
            m_session.replay_flag = kNo;
            drawFirst = false;
        }
        int count = m_session.wordCount();
        for (;;) {
            if (drawFirst) {
                if (!m_rules.large && m_session.missing_sound_count > kMostMissingSounds) {
                    m_session.prompts.message(flash_texts::kNotEnoughSounds);
                    return;
                }
                m_session.skip_flag.clear();
                count = m_session.wordCount();
                if (m_view.reviewing()) {
                    if (!nextReviewCard())
                        return;
                } else {
                    // A list of one word plays nothing; an empty list has nothing to draw from.
                    if (count <= 1)
                        return;
                    draw_card(m_session, count);
                }
            }
            drawFirst = true;
            if (playCard(count) == Step::end)
                return;
        }
    }

    // Why the run ended early ("" when it did not).
    const QString& error() const { return m_error; }

private:
    enum class Step { go, nextCard, end };

    void normalise()
    {
        Session& s = m_session;
        if (m_rules.large) {
            if (s.delay_top < 1 || s.delay_top > kMostDelay)
                s.delay_top = 0;
            if (s.delay_bottom < 1 || s.delay_bottom > kMostDelay)
                s.delay_bottom = 0;
        }
        if (s.speed == 0.0f)
            s.speed = m_rules.defaultSpeed;
        if (m_rules.large) {
            // A speed too long for a 16-bit count of silence pieces leaves the count as it was.
            if (const auto pieces = basic::toInteger(basic::roundHalfEven(double(s.speed) / kSilencePiece)))
                s.silence_count = *pieces;
        }
        if (s.repeat_count == 0)
            s.repeat_count = m_rules.defaultRepeats;
        if (s.say_mode.isEmpty())
            s.say_mode = m_rules.defaultSayMode;
        s.stop_flag = kNo;
        s.skip_flag.clear();
    }

    bool gone() const { return m_watch.gone(); }

    bool nextReviewCard()
    {
        const int index = m_view.nextReviewCard();
        if (index < 0)
            return false;
        m_session.previous_index = m_session.current_index;
        m_session.current_index = static_cast<qint16>(index);
        return true;
    }

    // A review card stays up after its plays until it is graded (which skips it) or skipped.
    Step awaitGrade()
    {
        Step step = check();
        while (step == Step::go) {
            wait_seconds(m_session, kGradeWait);
            step = check();
        }
        return afterCard(step);
    }

    // The checks made after every wait and every sound.
    Step check() const
    {
        if (gone() || m_session.stop_flag == kYes)
            return Step::end;
        if (m_session.skip_flag == kYes)
            return Step::nextCard;
        return Step::go;
    }

    static Step afterCard(Step step) { return step == Step::end ? Step::end : Step::nextCard; }

    QString currentSoundNumber() const { return m_session.sound_numbers.value(m_session.current_index); }

    // False, with error set, when the card's sound number names no translation.
    bool sayTranslation()
    {
        const auto number = card_translation(m_session, currentSoundNumber(), &m_error);
        if (!number)
            return false;
        say_word(m_session, *number, m_session.target_language, m_session.translations.value(m_session.current_index));
        return true;
    }

    Step playCard(int count)
    {
        Session& s = m_session;
        if (gone())
            return Step::end;
        m_view.showWordsLeft(flash_texts::wordsRemain(count));
        const QString word = s.words.value(s.current_index);
        const QString translation = s.translations.value(s.current_index);
        if (m_rules.large) {
            m_view.showWordCount(store_texts::wordsCaption(s.wordCount()));
            m_view.setCardPoints(card_points(word, translation));
        }
        m_view.showCard(word, translation);
        if (m_rules.large && s.mp3_words_left > 0) {
            // Counted down before the card's sounds: the last card asked for gets its beep while
            // the count is already 0, so its sounds are heard rather than captured. Kept.
            --s.mp3_words_left;
            if (capture_piece(s, paths::beepFile()) && s.mp3_words_left == 0)
                finish_mp3_capture(s, captureTag(s));
            m_view.showMp3Progress(flash_texts::wordsAdded(m_wordsPlayed));
        }
        if (s.say_mode == kYes || (s.say_mode == kInterlace && s.interlace_count > 1)) {
            wait_seconds(s, kTranslationWait);
            if (const Step step = check(); step != Step::go)
                return afterCard(step);
            if (!sayTranslation())
                return Step::end;
        }
        if (!m_rules.large)
            wait_seconds(s, kTranslationWait);
        int interlaceCounter = 0;
        ++m_wordsPlayed;

        // The bound is fixed here: a new repeat count applies from the next card.
        const int plays = s.repeat_count;
        for (int play = 1; play <= plays; ++play) {
            if (gone())
                return Step::end;
            if (m_rules.large)
                m_view.showTexts(play > s.delay_top, play > s.delay_bottom);
            m_view.showPlay(flash_texts::playOf(play, s.repeat_count), flash_texts::speedShown(s.speed));
            wait_seconds(s, m_rules.playWait);
            if (const Step step = check(); step != Step::go)
                return afterCard(step);
            say_word(s, currentSoundNumber(), s.current_language, s.words.value(s.current_index));
            if (const Step step = check(); step != Step::go)
                return afterCard(step);
            ++interlaceCounter;
            if (play != s.repeat_count && s.say_mode == kInterlace && interlaceCounter == s.interlace_count) {
                interlaceCounter = 0;
                wait_seconds(s, m_rules.playWait);
                if (!sayTranslation())
                    return Step::end;
                if (const Step step = check(); step != Step::go)
                    return afterCard(step);
            }
        }
        return m_view.reviewing() ? awaitGrade() : Step::nextCard;
    }

    Session& m_session;
    CardView& m_view;
    const ViewWatch m_watch;
    const Rules m_rules;
    // Words whose card has begun in this run.
    int m_wordsPlayed = 0;
    // Why the run ended early, when a card could not be played.
    QString m_error;
};

} // namespace

bool play_cards(Session& session, CardView& view, QObject* viewObject, CardStyle kind, QString* error)
{
    // missing_sound_count is 0 when the run ends, by return or by exception.
    const auto reset = qScopeGuard([&session] { session.missing_sound_count = 0; });
    view.showRunning(true);
    const auto ended = qScopeGuard([&view, guard = QPointer<QObject>(viewObject)] {
        if (guard)
            view.showRunning(false);
    });
    CardRun run(session, view, viewObject, kind);
    run.run();
    // However the run ended, out_file.mp3 holds what was captured so far.
    finish_mp3_capture(session, captureTag(session));
    if (run.error().isEmpty())
        return true;
    if (error)
        *error = run.error();
    return false;
}

int card_points(const QString& word, const QString& translation)
{
    if (word.size() >= kLongText || translation.size() >= kLongText)
        return kSmallPoints;
    if (word.size() < kShortText && translation.size() < kShortText)
        return kLargePoints;
    return kMediumPoints;
}

void draw_card(Session& session, int count)
{
    session.previous_index = session.current_index;
    auto draw = [&] { return static_cast<qint16>(random_index(session, 0, count - 1)); };
    qint16 index = draw();
    // The generator is seeded from the timer at every call: the clock must move on between draws
    // or the same index would come back for ever.
    while (count >= kNoRepeatCount && index == session.previous_index) {
        session.clock.processEvents();
        index = draw();
    }
    session.current_index = index;
}

std::optional<QString> card_translation(const Session& session, const QString& soundNumber, QString* error)
{
    if (soundNumber.isEmpty())
        return QString();
    const auto number = translation_sound_number(session, soundNumber);
    if (!number && error)
        *error = flash_texts::badSoundNumber(soundNumber);
    return number;
}

} // namespace quorvane
