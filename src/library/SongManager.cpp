#include "SongManager.h"

#include "FilesIn.h"
#include "SafeFile.h"
#include "Settings.h"

#include <QDir>

namespace {

constexpr int mostLinks = 8;

const QStringList &musicNames()
{
    static const QStringList filters{QStringLiteral("*.mp3"), QStringLiteral("*.m4a"),
                                     QStringLiteral("*.flac"), QStringLiteral("*.ogg")};
    return filters;
}

} // namespace

SongManager::SongManager(QObject *parent)
    : QObject(parent)
    , masterList(new PlaylistMaster(this))
    , tempList(new PlaylistFile(this))
{ }

SongPtr SongManager::getSong(const QString &filename) const
{
    return songs.value(filename);
}

bool SongManager::addSong(const QString &filename)
{
    if (songs.contains(filename))
        return true;
    insertSong(filename);
    updateAllLists();
    return true;
}

SongPtr SongManager::insertSong(const QString &filename)
{
    const SongPtr song(new Song(filename, false));
    songs.insert(song->getFilename(), song);
    return song;
}

void SongManager::loadSongList()
{
    musicDir = Settings::musicDir();
    cacheDir = Settings::cacheDir();
    QStringList directories;
    // An empty name would mean the working directory.
    if (!musicDir.isEmpty()) {
        directories.append(musicDir);
        // It may be another one than at the start of the program.
        SafeFile::recoverIn(musicDir);
    }
    scanCounter = 0;
    linksFollowed.clear();
    QList<Folder> folders;
    Q_EMIT notifySongCount(findFolders(directories, nullptr, {}, folders));
    songs.clear();
    for (const Folder &folder : std::as_const(folders))
        loadFiles(folder);
    updateAllLists();
}

void SongManager::loadAllLists()
{
    loadSongList();
    loadPlaylists();
}

int SongManager::findFolders(const QStringList &directories, const QDir *parent,
                             const QStringList &ancestors, QList<Folder> &found)
{
    int count = 0;
    for (const QString &entry : directories) {
        QDir directory(parent ? pathIn(*parent, entry) : entry);
        // A link back to where we came from would lead round without end.
        const QString place = directory.canonicalPath();
        if (place.isEmpty() || ancestors.contains(place))
            continue;
        if (QFileInfo(directory.path()).isSymLink() && ++linksFollowed[place] > mostLinks)
            continue;
        directory.setNameFilters(musicNames());
        const EntriesIn entries = entriesIn(directory);
        found.append({directory, entries.files});
        count += static_cast<int>(entries.files.size());
        count
            += findFolders(entries.directories, &directory, ancestors + QStringList(place), found);
    }
    return count;
}

void SongManager::loadFiles(const Folder &folder)
{
    for (const QString &file : folder.files) {
        const SongPtr song = insertSong(pathIn(folder.directory, file));
        Q_EMIT notifySongScanned(++scanCounter, file, song->isCached());
    }
}
