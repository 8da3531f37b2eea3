#pragma once

#include <QString>

#include <optional>

namespace quorvane {

class Session;

namespace review {

// A desired retention typed by the student: a number from 0.70 to 0.99 ("0,9" is read too).
std::optional<double> parse_retention(const QString& text);
// New words a day: a whole number from 0 to 1000.
std::optional<int> parse_new_words(const QString& text);

// The review settings box: asks for the desired retention, then for the new words a day, each
// shown with its value in force. Cancel keeps everything; a value that cannot be used is said and
// nothing is changed. True when the settings were changed.
bool ask_review_settings(Session& session);

} // namespace review
} // namespace quorvane
