#pragma once

#include <QString>

namespace quorvane {

// The plain-language explanation of a sound library error code.
QString sound_error_text(int code);

} // namespace quorvane
