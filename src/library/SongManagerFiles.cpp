// What SongManager does with the music files themselves.

#include "FileTransfer.h"
#include "FilesIn.h"
#include "Settings.h"
#include "SongImportTalk.h"
#include "SongManager.h"

#include <QDir>
#include <QFileInfo>
#include <QtDebug>

using namespace Qt::StringLiterals;

namespace {

QString placeIn(const QString &directory, const QString &file)
{
    return pathIn(QDir(directory), QFileInfo(file).fileName());
}

QString importDirectory()
{
    return pathIn(QDir(Settings::musicDir()), u"Import/"_s);
}

void tell(const SongManager::Step &step)
{
    if (step)
        step();
}

} // namespace

bool SongManager::copySong(const QString &destination, const SongPtr &song, bool update)
{
    if (!FileTransfer::copy(song->getFilename(), destination))
        return false;
    insertSong(destination);
    if (update)
        updateAllLists();
    return true;
}

SongPtr SongManager::copySongs(const QString &directory, const QList<SongPtr> &list,
                               const Step &step)
{
    SongPtr failed;
    for (const SongPtr &song : list) {
        if (!copySong(placeIn(directory, song->getFilename()), song, false)) {
            failed = song;
            break;
        }
        tell(step);
    }
    updateAllLists();
    return failed;
}

bool SongManager::moveSong(const QString &destination, const SongPtr &song, bool updatePlaylists,
                           bool update)
{
    // Held here: it may be the last one, and its name is needed.
    const SongPtr before = song;
    const SongPtr moved = before->moveTo(destination);
    if (!moved)
        return false;
    songs.remove(before->getFilename());
    songs.insert(moved->getFilename(), moved);
    if (updatePlaylists)
        renameInLists(before->getFilename(), moved->getFilename());
    if (update)
        updateAllLists();
    return true;
}

SongPtr SongManager::moveSongs(const QString &directory, const QList<SongPtr> &list,
                               bool updatePlaylists, const Step &step)
{
    SongPtr failed;
    for (const SongPtr &song : list) {
        if (!moveSong(placeIn(directory, song->getFilename()), song, updatePlaylists, false)) {
            failed = song;
            break;
        }
        tell(step);
    }
    updateAllLists();
    return failed;
}

bool SongManager::removeSong(const QString &filename, bool fromPlaylists)
{
    qDebug() << "Remove Song from filesystem:" << filename;
    // A copy: the name may be the one in the song that goes.
    const QString path = filename;
    const SongPtr song = songs.value(path);
    if (!song || !song->removeFromDisk())
        return false;
    songs.remove(path);
    if (fromPlaylists)
        removeFromLists(path);
    updateAllLists();
    return true;
}

SongPtr SongManager::removeSongs(const QList<SongPtr> &list, bool fromPlaylists)
{
    SongPtr failed;
    for (const SongPtr &song : list) {
        const QString path = song->getFilename();
        qDebug() << "Remove Song from filesystem:" << path;
        if (!song->removeFromDisk()) {
            failed = song;
            break;
        }
        songs.remove(path);
        if (fromPlaylists)
            removeFromLists(path);
    }
    updateAllLists();
    return failed;
}

int SongManager::importSongs(const QStringList &files)
{
    if (Settings::musicDir().isEmpty()) {
        if (importTalk)
            importTalk->tellNoMusicDirectory();
        return 0;
    }
    const QString directory = importDirectory();
    if (!QDir(directory).exists() && !QDir().mkpath(directory)) {
        if (importTalk)
            importTalk->tellDirectoryFailed(directory);
        return 0;
    }
    if (importTalk)
        importTalk->importBegins(static_cast<int>(files.size()));
    const int count = importInto(directory, files);
    // The lists first: a message runs the event loop.
    updateAllLists();
    if (importTalk)
        importTalk->importEnds(count, directory);
    return count;
}

int SongManager::importInto(const QString &directory, const QStringList &files)
{
    int count = 0;
    for (const QString &file : files) {
        const QString target = placeIn(directory, file);
        if (FileTransfer::copy(file, target)) {
            insertSong(target);
            ++count;
        } else if (!isImportToGoOn(file, target)) {
            break;
        }
        if (importTalk)
            importTalk->importStepped();
    }
    return count;
}

bool SongManager::isImportToGoOn(const QString &source, const QString &target) const
{
    return importTalk && importTalk->askAfterFailure(source, target);
}
