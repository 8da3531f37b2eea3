#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace quorvane {

// One word read from a file that is imported: its two sides and, where the file gives one, its
// audio (the file's bytes as they are, audioName naming it in messages).
struct ImportedWord
{
    QString word;
    QString translation;
    QByteArray audio;
    QString audioName;
};

// What a reader made of a file: the words in file order, and the lines (or entries) it left out,
// each with its reason. audioLost counts words whose audio was named but could not be read; their
// reasons are in audioReasons.
struct ImportBatch
{
    QList<ImportedWord> words;
    int skipped = 0;
    QStringList reasons;
    int audioLost = 0;
    QStringList audioReasons;

    void skip(const QString& reason)
    {
        ++skipped;
        reasons.append(reason);
    }
    void loseAudio(const QString& reason)
    {
        ++audioLost;
        audioReasons.append(reason);
    }
};

// A text as a word file can hold it: blanks at both ends trimmed, line breaks and tabs made blanks,
// "|" (the field separator) made "/", and every character Windows-1252 cannot hold made "?". Adds
// to replaced the characters replaced other than blanks.
QString fitToWordFile(const QString& text, int* replaced);

// The visible text of an HTML fragment: tags removed (a line break or block becomes a blank),
// character references decoded, runs of blanks made one.
QString stripHtml(const QString& html);

// True for bytes that are an MP3 file: an ID3 tag or an MPEG audio frame at the start.
bool looksLikeMp3(const QByteArray& bytes);

} // namespace quorvane
