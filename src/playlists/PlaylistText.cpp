#include "PlaylistText.h"

#include <QDir>
#include <QStringDecoder>

namespace {

constexpr QChar lineFeed = u'\n';
constexpr QChar carriageReturn = u'\r';

bool isSkipped(QStringView line)
{
    return line.startsWith(u"#EXTINF") || line.startsWith(u"#EXTM3U");
}

// What Windows-1252 has where Latin-1 has control characters; the five codes that it leaves open
// stay as they are, so that no two bytes give the same letter.
QChar windowsLetter(uchar byte)
{
    static constexpr char16_t letters[]
        = {0x20ac, 0x81,   0x201a, 0x192,  0x201e, 0x2026, 0x2020, 0x2021, 0x2c6,  0x2030, 0x160,
           0x2039, 0x152,  0x8d,   0x17d,  0x8f,   0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
           0x2013, 0x2014, 0x2dc,  0x2122, 0x161,  0x203a, 0x153,  0x9d,   0x17e,  0x178};
    const bool differs = byte >= 0x80 && byte < 0x80 + std::size(letters);
    return differs ? letters[byte - 0x80] : char16_t{byte};
}

qsizetype lengthOfSequence(uchar first)
{
    if (first < 0x80)
        return 1;
    if (first < 0xe0)
        return 2;
    return first < 0xf0 ? 3 : 4;
}

QString decodeUtf8(QByteArrayView bytes)
{
    // A mark inside the text is part of it.
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    if (bytes.isValidUtf8())
        return decoder(bytes);
    QString text;
    text.reserve(bytes.size());
    for (qsizetype at = 0; at < bytes.size();) {
        const auto first = static_cast<uchar>(bytes[at]);
        const QByteArrayView sequence
            = bytes.sliced(at, qMin(lengthOfSequence(first), bytes.size() - at));
        const bool valid = sequence.isValidUtf8();
        text += valid ? QString(decoder(sequence)) : QString(windowsLetter(first));
        at += valid ? sequence.size() : 1;
    }
    return text;
}

// Half a surrogate pair can't be written again.
QString withoutHalfCharacters(QString text)
{
    if (text.isValidUtf16())
        return text;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const bool isPair = text.at(at).isHighSurrogate() && at + 1 < text.size()
                            && text.at(at + 1).isLowSurrogate();
        if (isPair)
            ++at;
        else if (text.at(at).isSurrogate())
            text[at] = QChar::ReplacementCharacter;
    }
    return text;
}

QString decode(const QByteArray &content)
{
    const auto encoding = QStringConverter::encodingForData(content);
    if (!encoding)
        return decodeUtf8(content);
    if (*encoding == QStringConverter::Utf8)
        return decodeUtf8(QByteArrayView(content).sliced(3));
    QStringDecoder decoder(*encoding);
    return withoutHalfCharacters(decoder(content));
}

// The text up to the next line feed, without the line end; taken from the text, which isn't empty.
// What stands behind the last line feed may end with a carriage return of its own.
QStringView takePart(QStringView &text)
{
    const qsizetype feed = text.indexOf(lineFeed);
    QStringView part = feed < 0 ? text : text.first(feed);
    text = feed < 0 ? QStringView() : text.sliced(feed + 1);
    if (feed < 0 && part.endsWith(carriageReturn))
        part.chop(1);
    while (feed >= 0 && part.endsWith(carriageReturn))
        part.chop(1);
    return part;
}

} // namespace

QStringList PlaylistText::read(const QByteArray &content, const QString &directory, qsizetype most)
{
    QStringList entries;
    const QString text = decode(content).replace(u'\\', u'/');
    for (QStringView rest = text; !rest.isEmpty();) {
        for (const QStringView line : takePart(rest).tokenize(carriageReturn)) {
            if (entries.size() >= most)
                return entries;
            if (!isSkipped(line))
                entries.append(QDir::cleanPath(directory + line.toString()));
        }
    }
    return entries;
}

QByteArray PlaylistText::write(const QStringList &entries, const QString &directory,
                               LineEnd lineEnd)
{
    const QDir base(directory);
    const auto end
        = lineEnd == LineEnd::Windows ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
    QByteArray content = QByteArrayLiteral("\xef\xbb\xbf#EXTM3U") + end;
    for (const QString &entry : entries) {
        QString line = base.relativeFilePath(entry);
        line.replace(lineFeed, u' ').replace(carriageReturn, u' ');
        // A file of such a name would be skipped at reading.
        if (isSkipped(line))
            line.prepend(QStringLiteral("./"));
        content += line.toUtf8() + end;
    }
    return content;
}
