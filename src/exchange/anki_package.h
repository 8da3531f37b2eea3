#pragma once

#include "exchange/imported_words.h"

#include <QString>

#include <optional>

namespace quorvane {

// The words of an Anki package (.apkg or .colpkg): a zip holding the SQLite collection
// (collection.anki21, else collection.anki2), whose notes' fields are separated by the character
// 0x1F, and a "media" file mapping the zip's numbered entries to the media names ({"0": "a.mp3"}).
// Each note gives its first two fields as word and translation, HTML stripped, and the first
// [sound:name] of any field as its audio. A package without media gives words without audio.
// Nothing, with error set, for a file that is not a zip, a zip without a collection, a collection
// that cannot be read, or a package whose collection is only in the newer compressed form (the
// message says how to export it in the form read here).
std::optional<ImportBatch> readAnkiPackage(const QString& path, QString* error);

} // namespace quorvane
