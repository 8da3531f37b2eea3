#include "review/settings.h"

#include "core/prompts.h"
#include "core/session.h"
#include "review/texts.h"

namespace quorvane::review {

namespace {

constexpr double kLeastRetention = 0.70;
constexpr double kMostRetention = 0.99;
constexpr int kMostNewWords = 1000;

} // namespace

std::optional<double> parse_retention(const QString& text)
{
    bool ok = false;
    const double value = QString(text).replace(u',', u'.').trimmed().toDouble(&ok);
    if (!ok || value < kLeastRetention - 1e-9 || value > kMostRetention + 1e-9)
        return std::nullopt;
    return value;
}

std::optional<int> parse_new_words(const QString& text)
{
    bool ok = false;
    const int value = text.trimmed().toInt(&ok);
    if (!ok || value < 0 || value > kMostNewWords)
        return std::nullopt;
    return value;
}

bool ask_review_settings(Session& session)
{
    const QString retentionText = session.prompts.input(review_texts::kRetentionPrompt, review_texts::kSettingsTitle,
                                                        QString::number(session.desired_retention));
    if (retentionText.isEmpty())
        return false;
    const std::optional<double> retention = parse_retention(retentionText);
    if (!retention) {
        session.prompts.message(review_texts::kBadRetention, review_texts::kSettingsTitle);
        return false;
    }
    const QString newWordsText = session.prompts.input(review_texts::kNewWordsPrompt, review_texts::kSettingsTitle,
                                                       QString::number(session.new_words_per_day));
    if (newWordsText.isEmpty())
        return false;
    const std::optional<int> newWords = parse_new_words(newWordsText);
    if (!newWords) {
        session.prompts.message(review_texts::kBadNewWords, review_texts::kSettingsTitle);
        return false;
    }
    session.desired_retention = *retention;
    session.new_words_per_day = *newWords;
    return true;
}

} // namespace quorvane::review
