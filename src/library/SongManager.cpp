#include "SongManager.h"

#include "Settings.h"

#include <QDir>

namespace {

constexpr int mostLinks = 8;

QStringList musicFiles(QDir &directory)
{
    directory.setNameFilters({QStringLiteral("*.mp3"), QStringLiteral("*.m4a"),
                              QStringLiteral("*.flac"), QStringLiteral("*.ogg")});
    QStringList names;
    for (const QFileInfo &entry :
         directory.entryInfoList(QDir::Files | QDir::Readable, QDir::NoSort)) {
        // A link to a pipe or a device is listed too.
        if (entry.isFile())
            names.append(entry.fileName());
    }
    return names;
}

// QDir takes a name that begins with ":" for a path of its own.
QString pathIn(const QDir &directory, const QString &name)
{
    const QString path = directory.absolutePath();
    return path.endsWith(u'/') ? path + name : path + u'/' + name;
}

} // namespace

SongManager::SongManager(QObject *parent)
    : QObject(parent)
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
    // An empty name would mean the working directory.
    const QStringList directories = musicDir.isEmpty() ? QStringList() : QStringList(musicDir);
    scanCounter = 0;
    linksFollowed.clear();
    Q_EMIT notifySongCount(scanDirectories(directories, nullptr, {}, ScanPass::Count));
    songs.clear();
    linksFollowed.clear();
    scanDirectories(directories, nullptr, {}, ScanPass::Load);
    updateAllLists();
}

void SongManager::loadAllLists()
{
    loadSongList();
}

int SongManager::scanDirectories(const QStringList &directories, const QDir *parent,
                                 const QStringList &ancestors, ScanPass pass)
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
        const QStringList files = musicFiles(directory);
        if (pass == ScanPass::Count)
            count += static_cast<int>(files.size());
        else
            loadFiles(directory, files);
        const QStringList below = directory.entryList(
            QDir::AllDirs | QDir::Executable | QDir::NoDot | QDir::NoDotDot, QDir::NoSort);
        count += scanDirectories(below, &directory, ancestors + QStringList(place), pass);
    }
    return count;
}

void SongManager::loadFiles(const QDir &directory, const QStringList &files)
{
    for (const QString &file : files) {
        const SongPtr song = insertSong(pathIn(directory, file));
        Q_EMIT notifySongScanned(++scanCounter, file, song->isCached());
    }
}

void SongManager::updateAllLists()
{
    Q_EMIT notifyListsChanged();
}
