#pragma once

#include "FileEdit.h"

#include <tiostream.h>

#include <string>

// A music file as the tag library has to see it. What the library writes is only composed: the
// file changes at commit(), whole or not at all.
//
// The library stops at the first frame without content, reads UTF-16 text without a byte order mark
// as nothing, and drops frames with the flag for it; a save would then write what is left. In an
// ID3v2 tag such frames are left out, marked or unmarked here before the library sees them.
class TagStream : public TagLib::IOStream
{
public:
    TagStream(const QString &path, FileEdit::Access access);

    // Once the library has written an ID3v2 tag: where the file has to be copied anyway, the tag
    // gets room for the plays to come, so that they can be saved in place. Not so much that the
    // library would take it back.
    void addRoom();
    // Brings what was written to the disk. False when that failed, or when another program has
    // changed the file meanwhile: it is then as it was.
    bool commit() { return edit.commit(); }

    TagLib::FileName name() const override;
    TagLib::ByteVector readBlock(unsigned long length) override;
    void writeBlock(const TagLib::ByteVector &data) override;
    void insert(const TagLib::ByteVector &data, unsigned long start,
                unsigned long replace) override;
    void removeBlock(unsigned long start, unsigned long length) override;
    bool readOnly() const override { return !edit.isWritable(); }
    bool isOpen() const override { return edit.isOpen(); }
    void seek(long offset, Position from) override;
    void clear() override { }
    long tell() const override { return place; }
    long length() override { return static_cast<long>(edit.size()); }
    void truncate(long length) override { edit.resize(length); }

private:
#ifdef Q_OS_WIN
    std::wstring nativeName;
#else
    std::string nativeName;
#endif
    FileEdit edit;
    long place = 0;
};

// The same tag, header included, with those frames mended and as long as before; empty when there
// is nothing to mend or the tag is of a kind that is not looked into.
TagLib::ByteVector mendedId3Tag(const TagLib::ByteVector &tag);
