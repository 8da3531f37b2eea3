#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace quorvane {

// The intent journal of a language's word edits, in its folder; packing never takes it.
inline const QString kEditJournalName = QStringLiteral("edits.journal");
// A file's new contents wait beside it under its name followed by this until the edit commits.
inline const QString kStagedSuffix = QStringLiteral(".edit.tmp");

// A change of several files that is made in all of them or in none, also across a kill.
struct EditPlan
{
    // A file replaced whole by these bytes.
    struct Rewrite
    {
        QString path;
        QByteArray bytes;
    };
    // Lines added at the end of a file (made when missing).
    struct Append
    {
        QString path;
        QStringList lines;
    };
    QList<Rewrite> rewrites;
    QList<Append> appends;
};

// Makes the change of plan under the journal of languageFolder; the caller holds the language's
// lock. First the journal naming every step is written and synced, then each new file is staged
// beside its target, then the journal is marked committed, then the staged files are renamed into
// place and the lines appended, then the journal goes. A failure before the commit removes what was
// staged and leaves every file as it was; a failure after it is completed by a second try, or, if
// that fails too, at the next start. False, with error naming the file and the cause, when the
// change was not made.
bool apply_edit(const QString& languageFolder, const EditPlan& plan, QString* error = nullptr);

// Finishes what a killed edit left in languageFolder: a committed journal is replayed (a rename
// whose staged file is gone was done; an append found whole is not made twice, one cut short is
// made again), an uncommitted one is rolled back (its staged files are removed). Runs under the
// language's lock, at start and before every edit. False, with error set, when a committed
// journal could not be completed (it stays for the next try).
bool recover_edits(const QString& languageFolder, QString* error = nullptr);

} // namespace quorvane
