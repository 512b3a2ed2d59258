#pragma once

#include <tfilestream.h>

// A music file as the tag library has to see it. The library stops at the first frame without
// content and reads UTF-16 text without a byte order mark as nothing, and a save would then write
// what is left. In an ID3v2 tag such frames are left out or marked while they are read; nothing
// is written before the library writes.
class TagStream : public TagLib::FileStream
{
public:
    explicit TagStream(TagLib::FileName path);

    TagLib::ByteVector readBlock(unsigned long length) override;
    void insert(const TagLib::ByteVector &data, unsigned long start,
                unsigned long replace) override;
    void removeBlock(unsigned long start, unsigned long length) override;

private:
    // What is read at the file's beginning in place of its own bytes.
    TagLib::ByteVector mended;
};

// The same tag, header included, with those frames mended and as long as before; empty when there
// is nothing to mend or the tag is of a kind that is not looked into.
TagLib::ByteVector mendedId3Tag(const TagLib::ByteVector &tag);
