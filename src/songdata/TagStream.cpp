#include "TagStream.h"

#include <id3v2synchdata.h>
#include <tbytevectorlist.h>

#include <algorithm>

using TagLib::ByteVector;

namespace {

constexpr unsigned int headerSize = 10;
constexpr char utf16 = 1;
constexpr char utf16BigEndian = 2;

bool isFrameId(const ByteVector &id)
{
    return std::all_of(id.begin(), id.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

unsigned int frameSize(const ByteVector &header, bool isVersion4)
{
    const ByteVector size = header.mid(4, 4);
    return isVersion4 ? TagLib::ID3v2::SynchData::toUInt(size) : size.toUInt();
}

bool hasByteOrderMark(const ByteVector &frame)
{
    const ByteVector mark = frame.mid(headerSize + 1, 2);
    return mark == ByteVector("\xff\xfe", 2) || mark == ByteVector("\xfe\xff", 2);
}

// Plain text frames alone: neither user texts nor any with flags for how they are packed.
bool lacksByteOrderMark(const ByteVector &frame)
{
    return frame[0] == 'T' && !frame.startsWith("TXXX") && frame[9] == 0
           && frame[headerSize] == utf16 && frame.size() >= headerSize + 3 && frame.size() % 2 == 1
           && !hasByteOrderMark(frame);
}

// Without the mark the text has to be big-endian. Little-endian is what is found in files; a
// leading zero byte tells the other.
ByteVector asBigEndian(ByteVector frame)
{
    frame[headerSize] = utf16BigEndian;
    const unsigned int text = headerSize + 1;
    if (frame[static_cast<int>(text)] == 0 && frame[static_cast<int>(text) + 1] != 0)
        return frame;
    for (unsigned int at = text; at + 1 < frame.size(); at += 2)
        std::swap(frame[static_cast<int>(at)], frame[static_cast<int>(at) + 1]);
    return frame;
}

// "To be dropped by whoever changes the tag and doesn't know this frame": the library drops it even
// if it knows it.
char dropMark(bool isVersion4)
{
    return static_cast<char>(isVersion4 ? 0x40 : 0x80);
}

// The frame as the library has to see it to keep it.
ByteVector mended(ByteVector frame, bool isVersion4)
{
    frame[8] = static_cast<char>(frame[8] & ~dropMark(isVersion4));
    return lacksByteOrderMark(frame) ? asBigEndian(frame) : frame;
}

#ifdef Q_OS_WIN
std::wstring nameOf(const QString &path)
{
    return path.toStdWString();
}
#else
std::string nameOf(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}
#endif

QByteArray bytesOf(const ByteVector &data)
{
    return QByteArray(data.data(), static_cast<qsizetype>(data.size()));
}

bool isLookedInto(const ByteVector &tag)
{
    return tag.size() > headerSize && tag.startsWith("ID3") && (tag[3] == 3 || tag[3] == 4)
           && tag[5] == 0;
}

} // namespace

ByteVector mendedId3Tag(const ByteVector &tag)
{
    if (!isLookedInto(tag))
        return ByteVector();
    TagLib::ByteVectorList frames;
    bool changed = false;
    unsigned int at = headerSize;
    while (at + headerSize <= tag.size() && isFrameId(tag.mid(at, 4))) {
        const unsigned int size = frameSize(tag.mid(at, headerSize), tag[3] == 4);
        if (size > tag.size() - at - headerSize)
            break;
        const ByteVector frame = tag.mid(at, headerSize + size);
        if (size > 0)
            frames.append(mended(frame, tag[3] == 4));
        changed = changed || size == 0 || frames.back() != frame;
        at += headerSize + size;
    }
    if (!changed)
        return ByteVector();
    ByteVector result = tag.mid(0, headerSize);
    for (const ByteVector &frame : frames)
        result.append(frame);
    result.append(tag.mid(at));
    return result.resize(tag.size(), 0);
}

TagStream::TagStream(const QString &path, FileEdit::Access access)
    : nativeName(nameOf(path))
    , edit(path, access)
{
    const ByteVector header = readBlock(headerSize);
    place = 0;
    if (!header.startsWith("ID3") || header.size() < headerSize)
        return;
    const ByteVector tag
        = readBlock(headerSize + TagLib::ID3v2::SynchData::toUInt(header.mid(6, 4)));
    place = 0;
    if (const ByteVector mended = mendedId3Tag(tag); !mended.isEmpty())
        edit.replace(0, tag.size(), bytesOf(mended));
}

// The library leaves 1024 bytes of padding and takes back what is more than that and more than a
// hundredth of the file.
void TagStream::addRoom()
{
    constexpr qint64 wanted = 8192;
    constexpr qint64 given = 1024;
    const qint64 more = std::min(wanted, edit.size() / 100) - given;
    const QByteArray header = edit.read(0, headerSize);
    if (more <= 0 || edit.keepsPlaces() || !header.startsWith("ID3\4") || header[5] != 0)
        return;
    const qint64 size = TagLib::ID3v2::SynchData::toUInt(ByteVector(header.constData() + 6, 4));
    edit.replace(headerSize + size, 0, QByteArray(more, '\0'));
    const auto newSize = static_cast<unsigned int>(size + more);
    edit.replace(6, 4, bytesOf(TagLib::ID3v2::SynchData::fromUInt(newSize)));
}

TagLib::FileName TagStream::name() const
{
    return nativeName.c_str();
}

ByteVector TagStream::readBlock(unsigned long length)
{
    const QByteArray bytes = edit.read(place, static_cast<qint64>(length));
    place += static_cast<long>(bytes.size());
    return ByteVector(bytes.constData(), static_cast<unsigned int>(bytes.size()));
}

void TagStream::writeBlock(const ByteVector &data)
{
    edit.replace(place, data.size(), bytesOf(data));
    place += static_cast<long>(data.size());
}

void TagStream::insert(const ByteVector &data, unsigned long start, unsigned long replace)
{
    edit.replace(static_cast<qint64>(start), static_cast<qint64>(replace), bytesOf(data));
    place = static_cast<long>(start + data.size());
}

void TagStream::removeBlock(unsigned long start, unsigned long length)
{
    edit.replace(static_cast<qint64>(start), static_cast<qint64>(length), {});
}

void TagStream::seek(long offset, Position from)
{
    const long base = from == Beginning ? 0 : from == Current ? place : length();
    place = std::max(0L, base + offset);
}
