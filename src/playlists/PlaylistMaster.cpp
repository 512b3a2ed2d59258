#include "PlaylistMaster.h"

PlaylistMaster::PlaylistMaster(SongLibrary *songManager, QObject *parent)
    : Playlist(songManager, parent)
{ }

QString PlaylistMaster::name() const
{
    return tr("<Musikbibliothek>");
}

bool PlaylistMaster::removeEntry(const QString &path, bool flag)
{
    return songManager()->removeSong(path, flag);
}

bool PlaylistMaster::removeEntryAt(int index, bool flag)
{
    if (index < 0 || index >= count())
        return false;
    // Held here: the removal takes the song from the list, and with it its name.
    const SongPtr song = songs().at(index);
    return removeEntry(song->getFilename(), flag);
}

bool PlaylistMaster::add(const QString &path)
{
    return songManager()->addSong(path);
}

bool PlaylistMaster::insert(const QString &path, int)
{
    return add(path);
}

void PlaylistMaster::refresh()
{
    shown = songManager()->getSongs().values();
}
