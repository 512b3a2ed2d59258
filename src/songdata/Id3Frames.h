#pragma once

#include <QByteArray>

class Song;

namespace TagLib::ID3v2 {
class Tag;
}

// The frames of an mp3's ID3v2 tag that hold a song's own data: TBPM, POPM, SYLT and the user
// text frames. No other frame is looked at.
namespace Id3Frames {

// The choreography: the bytes of the user text "Cuesheet", which holds them in base64.
QByteArray cuesheet(const TagLib::ID3v2::Tag &tag);

void read(const TagLib::ID3v2::Tag &tag, Song &song);

// Sorts the song's positions.
void write(TagLib::ID3v2::Tag &tag, Song &song);

} // namespace Id3Frames
