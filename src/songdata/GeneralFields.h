#pragma once

#include <QtGlobal>

class Song;

namespace TagLib {
class File;
class Tag;
} // namespace TagLib

// The fields that every format has: artist, album, comment, genre, title, track and year.
namespace GeneralFields {

void read(const TagLib::Tag &tag, Song &song);

// Into each tag that the file has, and only where the tag shows another value than the song: a
// list of genres, a full date or "3 of 12" stay whole.
void write(TagLib::File &file, const Song &song);

} // namespace GeneralFields
