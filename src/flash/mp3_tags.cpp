#include "flash/mp3_tags.h"

#include "core/product.h"
#include "flash/texts.h"

#include <taglib/id3v2tag.h>
#include <taglib/tstring.h>

namespace quorvane {

namespace {

TagLib::String tagText(const QString& text)
{
    return TagLib::String(text.toStdString(), TagLib::String::UTF8);
}

} // namespace

QByteArray id3_tag(const Mp3Tags& tags)
{
    TagLib::ID3v2::Tag tag;
    tag.setTitle(tagText(tags.title));
    tag.setAlbum(tagText(tags.album));
    tag.setArtist(tagText(tags.artist));
    if (tags.track > 0)
        tag.setTrack(static_cast<unsigned int>(tags.track));
    // Version 2.3: what portable players read most widely.
    const TagLib::ByteVector bytes = tag.render(TagLib::ID3v2::v3);
    return QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

Mp3Tags block_tags(const QString& language, const QString& list, int fileNumber, int first, int last)
{
    return {flash_texts::blockTitle(list, first, last), flash_texts::compilationAlbum(language, list),
            QString::fromLatin1(product::kName), fileNumber};
}

Mp3Tags capture_tags(const QString& language, const QString& list)
{
    return {flash_texts::captureTitle(list), flash_texts::compilationAlbum(language, list),
            QString::fromLatin1(product::kName), 1};
}

QByteArray m3u8_playlist(const QList<PlaylistEntry>& entries)
{
    QByteArray bytes = QByteArrayLiteral("#EXTM3U\n");
    for (const PlaylistEntry& entry : entries) {
        // -1: the length is not known; players work it out.
        bytes += "#EXTINF:-1," + entry.title.toUtf8() + '\n';
        bytes += entry.file.toUtf8() + '\n';
    }
    return bytes;
}

} // namespace quorvane
