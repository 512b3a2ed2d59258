#pragma once

#include "Cuesheet.h"

class QFile;
class Song;

// What a cache file holds: everything that the tag store delivers of a song. Numbers are
// big-endian; texts and documents are written as QDataStream does it.
namespace CacheRecord {

struct Bytes
{
    QByteArray content;
    // Where the song's document begins in it.
    qint64 documentOffset = 0;
};

Bytes write(const Song &song);

// False, with the song untouched, when this is no record of the present version. Of a file that
// ends too early the song gets empty values from there on, and is marked as incomplete; so it is
// when there is more behind the record. The document is passed over. state is that of the same
// file.
bool read(QFile &file, const Platform::FileState &state, Song &song);

// Gives a song all that a record holds, but for the version. The lists share no entry.
void copy(const Song &from, Song &to);

// Makes an incomplete song whole. What is still as in loaded, its copy from right after the load,
// becomes as in whole, the same song read from its tags; what differs was changed since and stays.
// In a changed list this goes entry by entry.
void fill(Song &song, const Song &loaded, const Song &whole);

} // namespace CacheRecord
