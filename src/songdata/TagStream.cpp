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
        const bool mend = size > 0 && lacksByteOrderMark(frame);
        changed = changed || mend || size == 0;
        if (size > 0)
            frames.append(mend ? asBigEndian(frame) : frame);
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

TagStream::TagStream(TagLib::FileName path)
    : FileStream(path)
{
    if (!isOpen())
        return;
    const ByteVector header = FileStream::readBlock(headerSize);
    seek(0);
    if (!header.startsWith("ID3") || header.size() < headerSize)
        return;
    const unsigned int size = TagLib::ID3v2::SynchData::toUInt(header.mid(6, 4));
    mended = mendedId3Tag(FileStream::readBlock(headerSize + size));
    seek(0);
}

ByteVector TagStream::readBlock(unsigned long length)
{
    const long start = tell();
    ByteVector block = FileStream::readBlock(length);
    for (long at = start; at < start + static_cast<long>(block.size()); ++at) {
        if (at >= static_cast<long>(mended.size()))
            break;
        block[static_cast<int>(at - start)] = mended[static_cast<int>(at)];
    }
    return block;
}

void TagStream::insert(const ByteVector &data, unsigned long start, unsigned long replace)
{
    mended.clear();
    FileStream::insert(data, start, replace);
}

void TagStream::removeBlock(unsigned long start, unsigned long length)
{
    mended.clear();
    FileStream::removeBlock(start, length);
}
