#pragma once

#include "SongStore.h"

#include <QByteArray>

// The music file itself: the general fields of every format, and in an mp3 the ID3v2 frames that
// carry the dance. Frames and fields that this program does not know stay as they are, and so
// does every field whose value has not changed.
class SongStoreTags : public SongStore
{
public:
    // False for an empty file, for what is no regular file and for one that no reader understands.
    bool load(Song &song, const QFileInfo &file) override;
    // Sorts the song's positions and sets its modification time. An mp3 gets an ID3v2.4 tag.
    // False also where the file would lose something: see TagGuard.h.
    bool save(Song &song) override;
    // The file itself is removed by Song; there is nothing else to remove.
    bool remove(const Song &song) override;

    // The choreography in the tag of this music file; empty when there is none or it can't be
    // read.
    static QByteArray cuesheetOf(const QString &path);
};
