#include "exchange/imported_words.h"

#include "store/text_files.h"

#include <QRegularExpression>

namespace quorvane {

namespace {

// The characters Windows-1252 can hold beyond Latin-1's: those its bytes 0x80 to 0x9F decode to.
const QString& windows1252Extras()
{
    static const QString extras = [] {
        QByteArray bytes;
        for (int b = 0x80; b <= 0x9F; ++b)
            bytes.append(static_cast<char>(b));
        return decodeWindows1252(bytes);
    }();
    return extras;
}

bool fitsWindows1252(char32_t code)
{
    if (code < 0x80 || (code >= 0xA0 && code <= 0xFF))
        return true;
    return code <= 0xFFFF && windows1252Extras().contains(QChar(static_cast<char16_t>(code)));
}

} // namespace

QString fitToWordFile(const QString& text, int* replaced)
{
    QString result;
    result.reserve(text.size());
    const QList<uint> codes = text.toUcs4();
    for (const uint code : codes) {
        if (code == '\r' || code == '\n' || code == '\t') {
            result.append(u' ');
        } else if (code == '|') {
            result.append(u'/');
            ++*replaced;
        } else if (fitsWindows1252(code)) {
            result.append(QChar(static_cast<char16_t>(code)));
        } else {
            result.append(u'?');
            ++*replaced;
        }
    }
    return result.trimmed();
}

QString stripHtml(const QString& html)
{
    static const QRegularExpression breaks(QStringLiteral("<\\s*(br|/?div|/?p|/?li|/?tr)\\b[^>]*>"),
                                           QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression tags(QStringLiteral("<[^>]*>"));
    static const QRegularExpression references(QStringLiteral("&(#[0-9]+|#[xX][0-9a-fA-F]+|[a-zA-Z]+);"));
    static const QRegularExpression blanks(QStringLiteral("\\s+"));
    QString text = html;
    text.replace(breaks, QStringLiteral(" "));
    text.remove(tags);
    QString decoded;
    qsizetype from = 0;
    auto match = references.globalMatch(text);
    while (match.hasNext()) {
        const auto found = match.next();
        decoded += text.mid(from, found.capturedStart() - from);
        from = found.capturedEnd();
        const QString name = found.captured(1);
        char32_t code = 0;
        if (name.startsWith(u"#x") || name.startsWith(u"#X"))
            code = name.mid(2).toUInt(nullptr, 16);
        else if (name.startsWith(u'#'))
            code = name.mid(1).toUInt();
        else if (name == u"nbsp")
            code = ' ';
        else if (name == u"amp")
            code = '&';
        else if (name == u"lt")
            code = '<';
        else if (name == u"gt")
            code = '>';
        else if (name == u"quot")
            code = '"';
        else if (name == u"apos")
            code = '\'';
        if (code == 0 || code > 0x10FFFF)
            decoded += found.captured(0);
        else
            decoded += QString::fromUcs4(&code, 1);
    }
    decoded += text.mid(from);
    return decoded.replace(blanks, QStringLiteral(" ")).trimmed();
}

bool looksLikeMp3(const QByteArray& bytes)
{
    if (bytes.startsWith("ID3"))
        return true;
    return bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFF &&
           (static_cast<unsigned char>(bytes[1]) & 0xE0) == 0xE0;
}

} // namespace quorvane
