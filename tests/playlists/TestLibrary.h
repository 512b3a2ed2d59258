#pragma once

#include "SongLibrary.h"

#include <QStringList>

// A library whose songs a test chooses; their files need not be there. It notes what is asked of
// it.
class TestLibrary : public SongLibrary
{
public:
    SongPtr put(const QString &path)
    {
        songs.insert(path, SongPtr(new Song(path, false)));
        return songs.value(path);
    }

    SongPtr getSong(const QString &filename) const override { return songs.value(filename); }
    const QHash<QString, SongPtr> &getSongs() const override { return songs; }
    bool addSong(const QString &filename) override
    {
        calls.append(QStringLiteral("add ") + filename);
        return true;
    }
    bool removeSong(const QString &filename, bool fromPlaylists) override
    {
        calls.append(
            (fromPlaylists ? QStringLiteral("remove everywhere ") : QStringLiteral("remove "))
            + filename);
        return songs.remove(filename) > 0;
    }

    QHash<QString, SongPtr> songs;
    QStringList calls;
};
