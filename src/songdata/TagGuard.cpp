#include "TagGuard.h"

#include <flacfile.h>
#include <id3v2extendedheader.h>
#include <id3v2frame.h>
#include <id3v2synchdata.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <mpegheader.h>
#include <tbytevectorlist.h>

#include <algorithm>

using TagLib::ByteVector;
using namespace TagLib::ID3v2;

namespace {

// The library's own reader of frame headers knows how sizes are told in each version, and by
// which programs wrongly.
struct FrameAccess : Frame
{
    using Reader = Frame::Header;
};

struct FoundFrame
{
    bool isNamed;
    bool isPacked;
    // The library can't read it and writes it back without saying so any more, or drops it.
    bool isLost;
    ByteVector id;
    unsigned int headerSize;
    unsigned int size;
    unsigned int wholeSize() const { return headerSize + size; }
};

bool isFrameId(const ByteVector &id)
{
    return std::all_of(id.begin(), id.end(),
                       [](char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); });
}

FoundFrame frameAt(const ByteVector &data, unsigned int version)
{
    const unsigned int headerSize = version < 3 ? 6 : 10;
    ByteVector id = data.mid(0, version < 3 ? 3 : 4);
    // Some programs put the short names of version 2.2 into a tag of version 2.3.
    if (version == 3 && id.size() == 4 && id[3] == '\0')
        id.resize(3);
    if (data.size() <= headerSize || !isFrameId(id))
        return {false, false, false, id, headerSize, 0};
    const FrameAccess::Reader header(data, version);
    const bool isLost
        = header.encryption() || header.groupingIdentity() || header.tagAlterPreservation();
    return {true, version > 2 && data[9] != 0, isLost, id, headerSize, header.frameSize()};
}

bool hasMark(const ByteVector &text)
{
    return text.startsWith(ByteVector("\xff\xfe", 2)) || text.startsWith(ByteVector("\xfe\xff", 2));
}

// UTF-16 text without a byte order mark is none to the library. In a list of texts the mark of
// the first one counts for all.
bool holdsUnreadableText(const FoundFrame &frame, const ByteVector &content)
{
    const bool isList = frame.id[0] == 'T';
    const ByteVector kind = frame.id.mid(0, 3);
    const unsigned int start = isList ? 1 : 4;
    if ((!isList && kind != "COM" && kind != "USL" && kind != "ULT") || frame.isPacked
        || content.size() <= start || content[0] != 1)
        return false;
    const auto texts = TagLib::ByteVectorList::split(content.mid(start), ByteVector(2, '\0'), 2);
    if (isList && hasMark(texts.front()))
        return false;
    return std::any_of(texts.begin(), texts.end(),
                       [](const ByteVector &text) { return text.size() > 1 && !hasMark(text); });
}

// The frames of one tag as the library walks over them.
class TagWalk
{
public:
    TagWalk(TagLib::File &file, long offset)
    {
        file.seek(offset);
        const ByteVector bytes = file.readBlock(Header::size());
        header.setData(bytes);
        hasBadSize = header.tagSize() == 0 && bytes.mid(6, 4) != ByteVector(4, '\0');
        body = file.readBlock(header.tagSize());
        if (isDecodedWhole())
            body = SynchData::decode(body);
        walk();
    }
    bool isDecodedWhole() const { return header.unsynchronisation() && header.majorVersion() <= 3; }
    unsigned int end() const { return position; }
    bool isWhole() const { return !hasBadSize && !unreadable && !hasFrameBehind(); }

private:
    void walk();
    bool hasFrameBehind() const;

    Header header;
    ByteVector body;
    unsigned int position = 0;
    bool hasBadSize = false;
    bool unreadable = false;
};

void TagWalk::walk()
{
    const unsigned int version = header.majorVersion();
    unsigned int length = body.size();
    if (header.extendedHeader()) {
        ExtendedHeader extended;
        extended.setData(body);
        if (extended.size() <= length)
            position = extended.size();
    }
    if (header.footerPresent() && length >= Header::size())
        length -= Header::size();
    while (position < length) {
        const ByteVector rest = body.mid(position);
        const FoundFrame frame = frameAt(rest, version);
        if (position + frame.headerSize >= length || frame.size == 0 || frame.size > rest.size())
            return;
        ByteVector content = rest.mid(frame.headerSize, frame.size);
        if (version > 3 && header.unsynchronisation())
            content = SynchData::decode(content);
        unreadable = unreadable || frame.isLost || holdsUnreadableText(frame, content);
        position += frame.wholeSize();
    }
}

bool TagWalk::hasFrameBehind() const
{
    for (unsigned int at = position; at < body.size(); ++at) {
        const ByteVector rest = body.mid(at);
        const FoundFrame frame = frameAt(rest, header.majorVersion());
        // Where a frame has to be, one that is cut off counts as well.
        if (frame.size > 0 && (at == position || frame.wholeSize() <= rest.size()))
            return true;
    }
    return false;
}

bool holdsMusic(TagLib::File &file, long from, long to)
{
    if (from >= to)
        return false;
    file.seek(from);
    const ByteVector data = file.readBlock(static_cast<unsigned long>(to - from));
    for (int at = 0; at < static_cast<int>(data.size()); ++at) {
        if (data[at] == '\xff' && TagLib::MPEG::Header(&file, from + at, true).isValid())
            return true;
    }
    return false;
}

const Tag *id3Tag(TagLib::File &file)
{
    if (auto *mpeg = dynamic_cast<TagLib::MPEG::File *>(&file))
        return mpeg->hasID3v2Tag() ? mpeg->ID3v2Tag() : nullptr;
    if (auto *flac = dynamic_cast<TagLib::FLAC::File *>(&file))
        return flac->hasID3v2Tag() ? flac->ID3v2Tag() : nullptr;
    return nullptr;
}

} // namespace

bool TagGuard::isUnderstood(TagLib::File &file)
{
    const Tag *tag = id3Tag(file);
    if (!tag)
        return true;
    const long offset = file.find("ID3");
    const long end = offset + static_cast<long>(tag->header()->completeTagSize());
    if (offset < 0 || end > file.length())
        return false;
    const TagWalk walk(file, offset);
    const long music = offset + static_cast<long>(Header::size())
                       + static_cast<long>(walk.isDecodedWhole() ? 0 : walk.end());
    return walk.isWhole() && !holdsMusic(file, music, end);
}
