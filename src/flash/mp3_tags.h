#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace quorvane {

// What a portable player shows for a compiled MP3 file.
struct Mp3Tags
{
    QString title;
    QString album;
    QString artist;
    int track = 0; // 0: no track number
};

// The ID3v2.3 tag of these details (text outside Latin-1 goes in UTF-16), to be put before the
// first byte of an MP3 file: players skip it, the audio after it stays as it was.
QByteArray id3_tag(const Mp3Tags& tags);

// The tags of file number fileNumber of a list's compilation, holding its words first..last
// (counted from 1): title "verbs 1-100", album "spanish - verbs", artist "Quorvane".
Mp3Tags block_tags(const QString& language, const QString& list, int fileNumber, int first, int last);

// The tags of the file the running flash cards capture: "verbs flash cards".
Mp3Tags capture_tags(const QString& language, const QString& list);

// One file of a playlist: its name beside the playlist, and its title.
struct PlaylistEntry
{
    QString file;
    QString title;
};

// An extended M3U playlist in UTF-8, its files in the order given, named relative to the playlist
// so that the folder can be copied to a player whole.
QByteArray m3u8_playlist(const QList<PlaylistEntry>& entries);

} // namespace quorvane
