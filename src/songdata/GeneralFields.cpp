#include "GeneralFields.h"

#include "Song.h"
#include "TagText.h"

#include <apetag.h>
#include <commentsframe.h>
#include <flacfile.h>
#include <id3v1tag.h>
#include <id3v2tag.h>
#include <mpegfile.h>
#include <textidentificationframe.h>
#include <xiphcomment.h>

#include <vector>

using TagLib::Tag;

namespace {

// A comment with a description belongs to another program (a player's gain values, say), also
// where it is shown for want of a plain one.
void setId3Comment(TagLib::ID3v2::Tag &tag, const TagLib::String &text)
{
    for (auto *frame : tag.frameList("COMM")) {
        auto *comment = dynamic_cast<TagLib::ID3v2::CommentsFrame *>(frame);
        if (comment && comment->description().isEmpty()) {
            TagText::mendEncoding(*comment);
            comment->setText(text);
            return;
        }
    }
    auto *comment = new TagLib::ID3v2::CommentsFrame(TagLib::String::Latin1);
    comment->setText(text);
    tag.addFrame(comment);
}

void setComment(Tag &tag, const TagLib::String &text)
{
    if (auto *id3 = dynamic_cast<TagLib::ID3v2::Tag *>(&tag))
        setId3Comment(*id3, text);
    else
        tag.setComment(text);
}

void mendEncodings(TagLib::ID3v2::Tag &tag)
{
    for (const char *id : {"TPE1", "TALB", "TCON", "TIT2", "TRCK", "TDRC"}) {
        for (auto *frame : tag.frameList(id)) {
            if (auto *text = dynamic_cast<TagLib::ID3v2::TextIdentificationFrame *>(frame))
                TagText::mendEncoding(*text);
        }
    }
}

struct TextField
{
    TagLib::String (*read)(const Tag &);
    void (*write)(Tag &, const TagLib::String &);
    const QString &(Song::*get)() const;
    void (Song::*set)(const QString &);
};

constexpr TextField textFields[] = {
    {[](const Tag &tag) { return tag.artist(); },
     [](Tag &tag, const TagLib::String &text) { tag.setArtist(text); }, &Song::getArtist,
     &Song::setArtist},
    {[](const Tag &tag) { return tag.album(); },
     [](Tag &tag, const TagLib::String &text) { tag.setAlbum(text); }, &Song::getAlbum,
     &Song::setAlbum},
    {[](const Tag &tag) { return tag.comment(); }, setComment, &Song::getComment,
     &Song::setComment},
    {[](const Tag &tag) { return tag.genre(); },
     [](Tag &tag, const TagLib::String &text) { tag.setGenre(text); }, &Song::getGenre,
     &Song::setGenre},
    {[](const Tag &tag) { return tag.title(); },
     [](Tag &tag, const TagLib::String &text) { tag.setTitle(text); }, &Song::getTitle,
     &Song::setTitle},
};

void writeTo(Tag &tag, const Song &song)
{
    for (const TextField &field : textFields) {
        const QString text = (song.*field.get)();
        if (TagText::fromTag(field.read(tag)) != text)
            field.write(tag, TagText::toTag(text));
    }
    if (const unsigned int track = song.getTrackNum().toUInt(); track != tag.track())
        tag.setTrack(track);
    if (const unsigned int year = song.getYear().toUInt(); year != tag.year())
        tag.setYear(year);
}

// Null entries stand for tags that the file has not got. An mp3 always has all but an APE tag here:
// the library adds an empty one of ID3v1 when it reads the file, and writes it once it is filled.
std::vector<Tag *> tagsOf(TagLib::File &file)
{
    if (auto *mpeg = dynamic_cast<TagLib::MPEG::File *>(&file))
        return {mpeg->ID3v2Tag(false), mpeg->APETag(false), mpeg->ID3v1Tag(false)};
    if (auto *flac = dynamic_cast<TagLib::FLAC::File *>(&file))
        return {flac->xiphComment(true), flac->ID3v2Tag(false), flac->ID3v1Tag(false)};
    return {file.tag()};
}

} // namespace

void GeneralFields::read(const Tag &tag, Song &song)
{
    for (const TextField &field : textFields)
        (song.*field.set)(TagText::fromTag(field.read(tag)));
    const unsigned int track = tag.track();
    song.setTrackNum(track == 0 ? QString() : QString::number(track));
    song.setYear(QString::number(tag.year()));
}

void GeneralFields::write(TagLib::File &file, const Song &song)
{
    for (Tag *tag : tagsOf(file)) {
        if (auto *id3 = dynamic_cast<TagLib::ID3v2::Tag *>(tag))
            mendEncodings(*id3);
        if (tag)
            writeTo(*tag, song);
    }
}
