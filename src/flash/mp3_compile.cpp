#include "flash/mp3_compile.h"

#include "core/basic.h"
#include "core/clock.h"
#include "core/flags.h"
#include "core/prompts.h"
#include "core/session.h"
#include "flash/card_loop.h"
#include "flash/mp3_tags.h"
#include "flash/texts.h"
#include "sound/playback.h"
#include "sound/spoken_words.h"
#include "sound/texts.h"
#include "store/paths.h"
#include "store/text_files.h"

#include <QDir>
#include <QFile>

#include <cmath>
#include <optional>
#include <unordered_map>
#include <utility>

namespace quorvane {

namespace {

constexpr int kWordsPerFile = 100;
constexpr int kWordsPerProgress = 10;
constexpr float kProgressWait = 0.15f;
constexpr double kSilencePiece = 0.2;
// What each box offers before anything is typed: the values its own text recommends.
const QString kRecommendedWords = QStringLiteral("50");
const QString kRecommendedRepeats = QStringLiteral("5");
const QString kRecommendedSilence = QStringLiteral("0.5");
const QByteArray kLineEnd = QByteArrayLiteral("\r\n");
// The playlist of the numbered files, beside them.
const QString kPlaylistFile = QStringLiteral("100words.m3u8");

// The bytes of every piece, read once per run: a word list names the same few pieces thousands
// of times. A file that cannot be read is remembered as missing. The pieces handed out stay valid
// for the life of the cache (the map's nodes never move).
class PieceCache
{
public:
    const QByteArray* bytes(const QString& path)
    {
        auto found = m_pieces.find(path);
        if (found == m_pieces.end()) {
            std::optional<QByteArray> piece;
            QFile file(path);
            if (file.open(QIODevice::ReadOnly))
                piece = file.readAll();
            found = m_pieces.emplace(path, std::move(piece)).first;
        }
        return found->second.has_value() ? &*found->second : nullptr;
    }

private:
    std::unordered_map<QString, std::optional<QByteArray>> m_pieces;
};

// One output file, built in memory and written in one piece beside its name, then renamed into
// place: the same bytes as appending each piece with its CR LF, without reopening the file
// thousands of times, and never a file cut short. Like appending, nothing is created when every
// piece is missing; an old file of that name is then deleted.
class OutputFile
{
public:
    void begin(const QString& path, qsizetype expectedSize)
    {
        m_path = path;
        m_bytes.clear();
        m_bytes.reserve(expectedSize);
        m_touched = false;
    }

    void append(const QByteArray* piece)
    {
        if (!piece)
            return;
        m_bytes += *piece;
        m_bytes += kLineEnd;
        m_touched = true;
    }

    // False, with error set, when the file could not be written; the old file is then left. The
    // tag goes before the audio.
    bool finish(QString* error, const QByteArray& tag = {})
    {
        const QString path = std::exchange(m_path, QString());
        if (path.isEmpty())
            return true;
        if (!m_touched) {
            QFile::remove(path);
            return true;
        }
        const bool written = writeBytes(path, QList<QByteArrayView>{tag, m_bytes}, error);
        m_bytes.clear();
        return written;
    }

    const QString& path() const { return m_path; }
    bool touched() const { return m_touched; }
    qsizetype size() const { return m_bytes.size(); }

private:
    QString m_path;
    QByteArray m_bytes;
    bool m_touched = false;
};

// The silence entry as a count of 0.2-second pieces: the whole part of entry / 0.2, cut towards
// zero, so 0.5 gives 2 and 0.3 gives 1. Nothing for an entry that is no number or too large.
std::optional<qint16> silencePieces(const QString& entry)
{
    bool ok = false;
    const double seconds = entry.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(seconds))
        return std::nullopt;
    return basic::toInteger(std::trunc(seconds / kSilencePiece));
}

} // namespace

QString recording_path(const Session& session, const QString& soundNumber, const QString& language)
{
    return paths::releasedRecording(session.languages_folder, language, soundNumber);
}

void create_mp3(Session& session)
{
    if (const auto words =
            basic::toInteger(session.prompts.input(flash_texts::kCreateMp3Prompt, QString(), kRecommendedWords)))
        session.mp3_words_left = *words;
    QFile::remove(paths::mp3OutputFile());
    QFile::remove(mp3_capture_file());
    session.prompts.message(flash_texts::kCreateMp3Started);
}

void auto_mp3(Session& session, const Mp3Progress& progress)
{
    Prompts& prompts = session.prompts;
    const int count = session.wordCount();
    // A sound number that names no translation is told before anything is asked or written.
    QString error;
    QStringList translationNumbers;
    translationNumbers.reserve(count);
    for (int i = 0; i < count; ++i) {
        const auto number = card_translation(session, session.sound_numbers.value(i), &error);
        if (!number) {
            prompts.message(error);
            return;
        }
        translationNumbers.append(*number);
    }
    if (!prompts.okCancel(flash_texts::kAutoMp3Confirm)) {
        prompts.message(flash_texts::kCancelled);
        return;
    }
    // Cancel gives an empty entry; an entry that is no number is taken the same way.
    const auto repeats =
        basic::toInteger(prompts.input(flash_texts::kAutoMp3RepeatPrompt, QString(), kRecommendedRepeats));
    if (!repeats) {
        prompts.message(flash_texts::kCancelled);
        return;
    }
    const auto pieces =
        silencePieces(prompts.input(flash_texts::kAutoMp3SilencePrompt, QString(), kRecommendedSilence));
    if (!pieces) {
        prompts.message(flash_texts::kCancelled);
        return;
    }
    session.silence_count = *pieces;

    PieceCache cache;
    const QByteArray* silence = cache.bytes(paths::silenceFile());
    const QByteArray* beep = cache.bytes(paths::beepFile());
    // A stop (the cards paused, the window closed) arrives while the compilation lets events
    // through; a stop already in force when it began is the paused cards' and is not its own.
    const bool stoppable = session.stop_flag != flags::kYes;
    OutputFile output;
    int done = 0;
    // Finishes the file being filled, tagged with the words it holds (done is one past the last of
    // them), and lists it, in order, for the playlist.
    QList<PlaylistEntry> playlist;
    auto finishFile = [&]() {
        const QString path = output.path();
        const int number = (done - 1) / kWordsPerFile + 1;
        const Mp3Tags tags =
            block_tags(session.current_language, session.current_list, number, (number - 1) * kWordsPerFile + 1, done);
        const bool written = output.touched();
        if (!output.finish(&error, path.isEmpty() ? QByteArray() : id3_tag(tags))) {
            prompts.message(flash_texts::mp3NotWritten(path, error));
            return false;
        }
        if (written)
            playlist.append({path, tags.title});
        return true;
    };
    for (; done < count; ++done) {
        if (done % kWordsPerProgress == 0) {
            if (progress)
                progress(flash_texts::wordsCompleted(done));
            wait_seconds(session, kProgressWait);
        }
        if (stoppable && session.stop_flag == flags::kYes)
            break;
        if (done % kWordsPerFile == 0) {
            const qsizetype lastSize = output.size();
            if (!finishFile())
                return;
            output.begin(paths::numberedMp3File(done / kWordsPerFile + 1), lastSize);
        }
        const QString soundNumber = session.sound_numbers.value(done);
        const QByteArray* word = cache.bytes(recording_path(session, soundNumber, session.current_language));
        const QString& translationNumber = translationNumbers.at(done);
        const QByteArray* translation =
            cache.bytes(recording_path(session, translationNumber, session.target_language));
        // Words without a recording are spoken, so the player's files have no holes.
        std::optional<QByteArray> spokenWord;
        std::optional<QByteArray> spokenTranslation;
        if (!word && !soundNumber.isEmpty() &&
            (spokenWord = spoken_mp3(session, session.current_language, session.words.value(done))))
            word = &*spokenWord;
        if (!translation && !translationNumber.isEmpty() &&
            (spokenTranslation = spoken_mp3(session, session.target_language, session.translations.value(done))))
            translation = &*spokenTranslation;
        for (int repeat = 0; repeat < *repeats; ++repeat) {
            output.append(translation);
            output.append(word);
            for (int piece = 0; piece < session.silence_count; ++piece)
                output.append(silence);
        }
        output.append(beep);
        // Between the waits of every tenth word, a Pause or a close still reaches the loop.
        session.clock.processEvents();
    }
    const QString last = output.path();
    if (!finishFile())
        return;
    // The files are whole whatever becomes of their playlist: that is said last.
    const bool listed = playlist.isEmpty() || writeBytes(kPlaylistFile, m3u8_playlist(playlist), &error);
    if (done == 0 && count > 0)
        prompts.message(flash_texts::kCancelled);
    else if (done < count)
        prompts.message(flash_texts::mp3Stopped(done, last));
    else
        prompts.message(flash_texts::filesCompleted(count / kWordsPerFile + 1));
    if (!listed)
        prompts.message(flash_texts::playlistNotWritten(kPlaylistFile, error));
}

} // namespace quorvane
