#pragma once

#include <QString>

namespace quorvane {

// The word with its lower-case accented vowels and n folded to plain letters: only the twelve
// a keyboard without accents cannot type (à á ã è é ì í ñ ò ó õ ö).
QString fold_accents(QString word);

} // namespace quorvane
