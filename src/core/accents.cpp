#include "core/accents.h"

namespace quorvane {

namespace {

constexpr QStringView kAccented = u"\u00E0\u00E1\u00E3\u00E8\u00E9\u00EC\u00ED\u00F1\u00F2\u00F3\u00F5\u00F6";
constexpr QStringView kFolded = u"aaaeeiinoooo";

} // namespace

QString fold_accents(QString word)
{
    for (QChar& character : word) {
        if (const qsizetype at = kAccented.indexOf(character); at >= 0)
            character = kFolded.at(at);
    }
    return word;
}

} // namespace quorvane
