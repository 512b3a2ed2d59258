#pragma once

#include "Song.h"

#include <QHash>
#include <QString>

// What a playlist needs of the library.
class SongLibrary
{
public:
    virtual ~SongLibrary() = default;

    // The song with this path, or an empty pointer.
    virtual SongPtr getSong(const QString &filename) const = 0;
    // Every song of the library by its path.
    virtual const QHash<QString, SongPtr> &getSongs() const = 0;
    // True when the library holds the song afterwards.
    virtual bool addSong(const QString &filename) = 0;
    // Moves the song's file to the recycle bin and takes it out of the library; with fromPlaylists
    // out of all playlists too. False when the file stays.
    virtual bool removeSong(const QString &filename, bool fromPlaylists) = 0;
};
