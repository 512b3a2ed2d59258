#include "SongBytes.h"

#include <QtEndian>

namespace {

constexpr int headerSize = 10;

int syncsafe(const QByteArray &bytes, int at)
{
    int value = 0;
    for (int i = at; i < at + 4; ++i)
        value = value << 7 | (bytes.at(i) & 0x7f);
    return value;
}

// True when frames and padding fill the tag exactly.
bool readFrames(const QByteArray &tag, QHash<QByteArray, QList<QByteArray>> &frames)
{
    qsizetype at = headerSize;
    while (at < tag.size() && tag.at(at) != 0) {
        if (at + headerSize > tag.size())
            return false;
        const qsizetype size = syncsafe(tag, static_cast<int>(at) + 4);
        if (at + headerSize + size > tag.size())
            return false;
        frames[tag.mid(at, 4)].append(tag.mid(at + headerSize, size));
        at += headerSize + size;
    }
    return tag.mid(at).count('\0') == tag.size() - at;
}

QByteArray takeEnd(QByteArray &file, qsizetype size)
{
    const QByteArray end = file.right(size);
    file.chop(size);
    return end;
}

bool takeApe(QByteArray &file, QByteArray &ape)
{
    const QByteArray footer = file.right(32);
    if (!footer.startsWith("APETAGEX"))
        return true;
    const auto flags = qFromLittleEndian<quint32>(footer.constData() + 20);
    const qsizetype size = qFromLittleEndian<quint32>(footer.constData() + 12)
                           + (flags & 0x80000000U ? qsizetype(32) : qsizetype(0));
    if (size > file.size())
        return false;
    ape = takeEnd(file, size);
    return !(flags & 0x80000000U) || ape.startsWith("APETAGEX");
}

// ASCII out of an encoded text: without marks, zeros and what follows the first terminator.
QByteArray ascii(char encoding, QByteArray text)
{
    if (encoding == 1 || encoding == 2)
        return text.replace("\xff\xfe", "").replace("\xfe\xff", "").replace('\0', "");
    const qsizetype end = text.indexOf('\0');
    return end < 0 ? text : text.left(end);
}

// Where the text that begins here ends, and its terminator's length.
std::pair<qsizetype, qsizetype> endOfText(const QByteArray &content, qsizetype from, char encoding)
{
    if (encoding != 1 && encoding != 2) {
        const qsizetype end = content.indexOf('\0', from);
        return {end < 0 ? content.size() : end, 1};
    }
    for (qsizetype at = from; at + 1 < content.size(); at += 2)
        if (content.at(at) == 0 && content.at(at + 1) == 0)
            return {at, 2};
    return {content.size(), 2};
}

} // namespace

std::optional<SongBytes> SongBytes::read(const QByteArray &bytes)
{
    SongBytes song;
    QByteArray file = bytes;
    if (file.startsWith("ID3")) {
        if (file.size() < headerSize || file.at(3) != 4 || file.at(5) != 0)
            return {};
        const qsizetype size = headerSize + syncsafe(file, 6);
        if (size > file.size() || !readFrames(file.left(size), song.frames))
            return {};
        file.remove(0, size);
    }
    if (file.right(128).startsWith("TAG"))
        song.id3v1 = takeEnd(file, 128);
    if (!takeApe(file, song.ape))
        return {};
    song.audio = file;
    const bool isMusic = file.size() > 4 && file.at(0) == '\xff' && (file.at(1) & 0xe0) == 0xe0;
    return isMusic ? std::optional(song) : std::nullopt;
}

QByteArray SongBytes::text(const QByteArray &id) const
{
    const QByteArray content = frames.value(id).value(0);
    return content.isEmpty() ? QByteArray() : ascii(content.at(0), content.mid(1));
}

QByteArray SongBytes::userText(const QByteArray &description) const
{
    for (const QByteArray &content : frames.value("TXXX")) {
        const char encoding = content.at(0);
        const auto [end, terminator] = endOfText(content, 1, encoding);
        if (ascii(encoding, content.mid(1, end - 1)) == description)
            return ascii(encoding, content.mid(end + terminator));
    }
    return {};
}

QByteArray SongBytes::comment() const
{
    const QByteArray content = frames.value("COMM").value(0);
    if (content.size() < 4)
        return {};
    const auto [end, terminator] = endOfText(content, 4, content.at(0));
    return ascii(content.at(0), content.mid(end + terminator));
}

QList<std::pair<int, QByteArray>> SongBytes::positions() const
{
    const QByteArray content = frames.value("SYLT").value(0);
    QList<std::pair<int, QByteArray>> entries;
    if (content.size() < 6)
        return entries;
    const char encoding = content.at(0);
    const auto [first, length] = endOfText(content, 6, encoding);
    qsizetype at = first + length;
    while (at + 4 < content.size()) {
        const auto [end, terminator] = endOfText(content, at, encoding);
        if (end + terminator + 4 > content.size())
            return {};
        entries.append({qFromBigEndian<qint32>(content.constData() + end + terminator),
                        ascii(encoding, content.mid(at, end - at))});
        at = end + terminator + 4;
    }
    return entries;
}
