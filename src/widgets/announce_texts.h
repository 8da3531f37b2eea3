#pragma once

#include <QString>

// The names a screen reader announces for the boxes that have no label beside them.
namespace quorvane::announce_texts {

inline const QString kWords = QStringLiteral("Words");
inline const QString kTranslations = QStringLiteral("Translations");
inline const QString kSearchWords = QStringLiteral("Search the words");
inline const QString kSearchTranslations = QStringLiteral("Search the translations");
inline const QString kWordsWithSounds = QStringLiteral("Words with sounds");
inline const QString kTranslationsWithSounds = QStringLiteral("Translations of the words with sounds");
inline const QString kWordsWithoutSounds = QStringLiteral("Words without sounds");
inline const QString kTranslationsWithoutSounds = QStringLiteral("Translations of the words without sounds");
inline const QString kWord = QStringLiteral("Word");
inline const QString kTranslation = QStringLiteral("Translation");
inline const QString kListText = QStringLiteral("Text of the word list");
inline const QString kResults = QStringLiteral("Test results");

} // namespace quorvane::announce_texts
