#pragma once

#include "SongStore.h"

#include <QString>

// One small file a song, with all that the tag store would deliver, in the directory of the
// setting cacheDir as it was when the store was made; an empty setting means that there is no
// cache. The files can be thrown away at any time. Nothing here is ever told to the user.
class SongStoreCache : public SongStore
{
public:
    SongStoreCache();

    // Name without directory of the cache file of the song with this absolute path.
    static QString fileNameFor(const QString &songPath);

    // False unless the cache file is newer than the music file, and of the present format.
    bool load(Song &song, const QFileInfo &file) override;
    // The file is replaced whole or not at all. What the music file does not hold yet gets a time
    // that makes it no newer than any music: it is read again only once it was written after the
    // music file.
    bool save(Song &song) override;
    bool remove(const Song &song) override;

private:
    bool isOff() const { return cacheBase.size() < 2; }

    QString cacheBase; // ends with a slash
};
