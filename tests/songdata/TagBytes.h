#pragma once

#include <QByteArray>

// ID3v2 tags of versions 2.3 and 2.4, put together byte by byte.
namespace TagBytes {

// At most 127 bytes of content.
inline QByteArray frame(const QByteArray &id, const QByteArray &content,
                        const QByteArray &flags = {})
{
    const char size[] = {0, 0, 0, static_cast<char>(content.size())};
    return id + QByteArray(size, 4) + (flags.isEmpty() ? QByteArray(2, 0) : flags) + content;
}

// claim: what the header says in place of the true size.
inline QByteArray tag(char version, const QByteArray &frames, int padding = 20, char flags = 0,
                      int claim = -1)
{
    const auto size = claim < 0 ? static_cast<int>(frames.size()) + padding : claim;
    const char sizeBytes[]
        = {static_cast<char>(size >> 21 & 0x7f), static_cast<char>(size >> 14 & 0x7f),
           static_cast<char>(size >> 7 & 0x7f), static_cast<char>(size & 0x7f)};
    return QByteArray("ID3") + version + '\0' + flags + QByteArray(sizeBytes, 4) + frames
           + QByteArray(padding, 0);
}

} // namespace TagBytes
