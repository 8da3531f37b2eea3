#pragma once

#include <QString>

// The values of the program's text flags (stop_flag, skip_flag, replay_flag, recording_active,
// one_word_mode ...). They are compared exactly; any other value counts as not set.
namespace quorvane::flags {

inline const QString kYes = QStringLiteral("yes");
inline const QString kNo = QStringLiteral("no");
inline const QString kQuit = QStringLiteral("quit");
inline const QString kInterlace = QStringLiteral("interlace");

} // namespace quorvane::flags
