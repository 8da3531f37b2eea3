#pragma once

#include "store/word_files.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <future>
#include <memory>
#include <optional>

namespace quorvane {

class Session;

// Most entries one search shows.
constexpr int kMaxSearchResults = 20001;
// Most lines of the translation language's master that the pairing reads.
constexpr int kMaxTargetLines = 30001;

// The master file of a language prepared for searching: each line split once, and its word and
// translation with the accents folded where they pass the accent test. Every search reads the
// file's bytes again and prepares them again only when they differ from the bytes prepared last,
// so a search always finds what reading the file afresh would find, whatever changed on disk.
class MasterCache
{
public:
    MasterCache();
    ~MasterCache();
    MasterCache(const MasterCache&) = delete;
    MasterCache& operator=(const MasterCache&) = delete;

    struct Line;
    // The lines of the master at path as it is now; nothing when it cannot be read (error says why).
    const QList<Line>* lines(const QString& path, QString* error);

    // Starts preparing the master at path on a thread of its own, so that the first search after a
    // language is chosen finds its lines ready; that search still compares them with the file.
    void prepareAhead(const QString& path);

private:
    struct Prepared;
    void takePrepared();

    // Filled by the preparation under way, which m_pending waits for (it is destroyed first).
    std::unique_ptr<Prepared> m_prepared;
    std::future<void> m_pending;
    QString m_path;
    QByteArray m_bytes;
    std::unique_ptr<QList<Line>> m_lines;
};

// The entries of the master file at path that match what a search box holds (field 0: the word
// box, 1: the translation box; any other field finds nothing). Nothing when the text is shorter
// than 2 characters. Throws
// TableLimitError, naming the file, for more than kMaxSearchResults matches or a line without the
// field searched. Nothing, with error set, when the master cannot be read.
std::optional<WordArrays> search_master(const QString& path, int field, const QString& text, MasterCache& cache,
                                        QString* error = nullptr);

// The search of the main window: fills the word arrays with the entries of the current
// language's master that match text, leaving shown_file and current_list as they were. True when
// the arrays were replaced (the caller shows them); a master that is missing or cannot be read gives
// false with error saying so (a text too short gives false and leaves error alone). Throws
// TableLimitError as search_master does, with the arrays unchanged.
bool search_master_list(Session& session, int field, const QString& text, MasterCache& cache, QString* error);

// The pairing key of a translation: the part before its first comma, every "to " removed, blanks
// kept.
QString pairing_key(const QString& translation);

// The lines of a trans index pairing the entries of a master with those of the translation
// language's master: for each entry of master, in order, its sound number, "|" and the sound
// number of the first target entry whose word equals the entry's pairing key. Entries without a
// partner give no line.
QStringList pair_masters(const QStringList& master, const QStringList& target);

// Writes trans_index_file anew from master_file and target_master_file. The number of pairs
// written; nothing, with error saying why, when a master is missing or cannot be read, or the
// index cannot be written. Throws TableLimitError, before writing, for a target master of more
// than kMaxTargetLines lines.
std::optional<int> create_trans_index(Session& session, QString* error);

// The pairing as contributors ask for it: refused (nothing, with error saying why) before a
// language is chosen or when the current language has no trans file of its own (its target is then
// the previous language's, whose index must not be overwritten); otherwise create_trans_index, and
// the new pairs loaded into the pairing table at once. The number of pairs written, for the caller
// to tell.
std::optional<int> pair_recordings(Session& session, QString* error);

} // namespace quorvane
