#include "store/speech_voices.h"

#include "store/paths.h"
#include "store/text_files.h"

#include <QHash>

namespace quorvane {

namespace {

// Common folder names and the eSpeak NG voice of each (every one ships with espeak-ng-data).
const QHash<QString, QString>& voiceTable()
{
    static const QHash<QString, QString> table{
        {"afrikaans", "af"},  {"albanian", "sq"},   {"arabic", "ar"},     {"armenian", "hy"}, {"basque", "eu"},
        {"bengali", "bn"},    {"bulgarian", "bg"},  {"cantonese", "yue"}, {"catalan", "ca"},  {"chinese", "cmn"},
        {"croatian", "hr"},   {"czech", "cs"},      {"danish", "da"},     {"dutch", "nl"},    {"english", "en"},
        {"esperanto", "eo"},  {"estonian", "et"},   {"farsi", "fa"},      {"finnish", "fi"},  {"french", "fr"},
        {"georgian", "ka"},   {"german", "de"},     {"greek", "el"},      {"hebrew", "he"},   {"hindi", "hi"},
        {"hungarian", "hu"},  {"icelandic", "is"},  {"indonesian", "id"}, {"irish", "ga"},    {"italian", "it"},
        {"japanese", "ja"},   {"korean", "ko"},     {"latin", "la"},      {"latvian", "lv"},  {"lithuanian", "lt"},
        {"macedonian", "mk"}, {"malay", "ms"},      {"mandarin", "cmn"},  {"nepali", "ne"},   {"norwegian", "nb"},
        {"persian", "fa"},    {"polish", "pl"},     {"portuguese", "pt"}, {"romanian", "ro"}, {"russian", "ru"},
        {"serbian", "sr"},    {"slovak", "sk"},     {"slovenian", "sl"},  {"spanish", "es"},  {"swahili", "sw"},
        {"swedish", "sv"},    {"tamil", "ta"},      {"thai", "th"},       {"turkish", "tr"},  {"ukrainian", "uk"},
        {"urdu", "ur"},       {"vietnamese", "vi"}, {"welsh", "cy"},
    };
    return table;
}

} // namespace

QString voice_file(const QString& languagesFolder, const QString& language)
{
    return paths::languageFolder(languagesFolder, language) + QStringLiteral("voice_") + language +
           QStringLiteral(".dat");
}

QString table_voice(const QString& languageName)
{
    return voiceTable().value(languageName.toLower());
}

QString chosen_voice(const QString& languagesFolder, const QString& language)
{
    if (language.isEmpty())
        return {};
    const QString named = readFirstLine(voice_file(languagesFolder, language)).trimmed();
    return named.isEmpty() ? table_voice(language) : named;
}

} // namespace quorvane
