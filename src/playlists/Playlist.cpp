#include "Playlist.h"

Playlist::Playlist(SongLibrary *songManager, QObject *parent)
    : QObject(parent)
    , library(songManager)
{ }

bool Playlist::addAll(const QStringList &paths)
{
    bool all = true;
    for (const QString &path : paths)
        all = add(path) && all;
    return all;
}

// From the last to the first: so they keep their order.
bool Playlist::insertAll(const QStringList &paths, int index)
{
    bool all = true;
    for (auto path = paths.crbegin(); path != paths.crend(); ++path)
        all = insert(*path, index) && all;
    return all;
}
