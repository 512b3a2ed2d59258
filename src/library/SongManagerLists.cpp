// The lists of SongManager.

#include "SongManager.h"

#include "FilesIn.h"
#include "SameFile.h"
#include "Settings.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr int firstFile = 2;

bool isBeforeByName(const PlaylistPtr &one, const PlaylistPtr &other)
{
    return QString::compare(one->name(), other->name(), Qt::CaseInsensitive) < 0;
}

} // namespace

void SongManager::updateAllLists()
{
    masterList->refresh();
    tempList->refresh();
    for (const PlaylistPtr &playlist : std::as_const(playlists))
        playlist->refresh();
    Q_EMIT notifyListsChanged();
}

QList<PlaylistPtr> SongManager::listsBesideMaster() const
{
    return QList<PlaylistPtr>{tempList} + playlists;
}

PlaylistPtr SongManager::getPlaylist(int index) const
{
    if (index == 0)
        return masterList;
    return index > 0 ? listsBesideMaster().value(index - 1) : PlaylistPtr();
}

QStringList SongManager::getPlaylistNames() const
{
    QStringList names{masterList->name()};
    for (const PlaylistPtr &playlist : listsBesideMaster())
        names.append(playlist->name());
    return names;
}

PlaylistPtr SongManager::loadPlaylist(const QString &path)
{
    const PlaylistPtr playlist(new PlaylistFile(this));
    playlist->load(path);
    playlists.append(playlist);
    return playlist;
}

void SongManager::sortPlaylists()
{
    std::stable_sort(playlists.begin(), playlists.end(), isBeforeByName);
}

void SongManager::loadPlaylists()
{
    const QString directory = Settings::playlistDir();
    playlists.clear();
    // An empty name would mean the working directory.
    if (!directory.isEmpty())
        loadPlaylistFiles(directory);
    sortPlaylists();
    updateAllLists();
}

void SongManager::loadPlaylistFiles(const QString &path)
{
    QDir directory(path);
    directory.setNameFilters({QStringLiteral("*.m3u"), QStringLiteral("*.m3u8")});
    for (const QString &name : filesIn(directory))
        loadPlaylist(pathIn(directory, name));
}

QList<PlaylistPtr> SongManager::listsOf(const QString &path) const
{
    QList<PlaylistPtr> lists;
    for (const PlaylistPtr &playlist : playlists) {
        if (isSameFile(playlist->fullPath(), path))
            lists.append(playlist);
    }
    return lists;
}

void SongManager::dropLists(const QList<PlaylistPtr> &lists)
{
    playlists.removeIf([&](const PlaylistPtr &playlist) { return lists.contains(playlist); });
}

PlaylistPtr SongManager::newPlaylist(const QString &path)
{
    // Two lists of one file would overwrite each other's entries.
    dropLists(listsOf(path));
    const PlaylistPtr playlist = loadPlaylist(path);
    sortPlaylists();
    updateAllLists();
    return playlist;
}

bool SongManager::removePlaylist(const PlaylistPtr &playlist)
{
    if (!playlist)
        return false;
    QList<PlaylistPtr> gone = listsOf(playlist->fullPath());
    if (!playlist->remove())
        return false;
    // Of a link the link alone is gone.
    gone.removeIf([](const PlaylistPtr &list) { return QFileInfo::exists(list->fullPath()); });
    dropLists(gone);
    updateAllLists();
    return true;
}

bool SongManager::savePlaylist(const PlaylistPtr &playlist)
{
    return playlist && playlist->save();
}

bool SongManager::savePlaylistAs(const PlaylistPtr &playlist, const QString &filename)
{
    if (!playlist)
        return false;
    const bool wasNew = playlist->isNew();
    const QString before = playlist->fullPath();
    if (!playlist->saveAs(filename))
        return false;
    dropLists(listsOf(filename));
    playlists.append(playlist);
    if (wasNew)
        tempList.reset(new PlaylistFile(this));
    else if (listsOf(before).isEmpty())
        loadPlaylist(before);
    sortPlaylists();
    updateAllLists();
    return true;
}

void SongManager::renameSong(const QString &oldPath, const QString &newPath)
{
    renameInLists(oldPath, newPath);
    updateAllLists();
}

void SongManager::renameInLists(const QString &oldPath, const QString &newPath)
{
    for (const PlaylistPtr &playlist : listsBesideMaster())
        playlist->renameSong(oldPath, newPath);
}

void SongManager::removeFromLists(const QString &path)
{
    for (const PlaylistPtr &playlist : listsBesideMaster())
        playlist->removeSong(path);
}
