#include "SongStoreCache.h"

#include "CacheRecord.h"
#include "SafeFile.h"
#include "Settings.h"
#include "Song.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace {

// Compared by the millisecond, in which the song's time is told.
bool isNewer(const Platform::FileState &cache, const Song &song)
{
    constexpr qint64 nanoseconds = 1'000'000;
    return cache.modified / nanoseconds > song.getModified().toMSecsSinceEpoch();
}

// Neither a clock that is wrong nor a file system that counts in seconds makes this one newer than
// the music.
QDateTime beforeAnyMusic(const Song &song)
{
    const QDateTime epoch = QDateTime::fromMSecsSinceEpoch(0);
    return song.getModified() < epoch && song.getModified().isValid() ? song.getModified() : epoch;
}

// The file is there, and older than the music or as old: see beforeAnyMusic().
bool writeAhead(const QString &path, const QByteArray &content, const Song &song)
{
    const bool written = SafeFile::replaceDated(path, content, beforeAnyMusic(song));
    const auto state = Platform::fileState(path);
    if (written && state && !isNewer(*state, song))
        return true;
    // A file of before, or one that a file system gave another time, could count after the save.
    QFile::remove(path);
    return false;
}

} // namespace

SongStoreCache::SongStoreCache()
    : cacheBase(Settings::cacheDir() + u'/')
{ }

QString SongStoreCache::fileNameFor(const QString &songPath)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(songPath.toUtf8(), QCryptographicHash::Md5).toHex());
}

bool SongStoreCache::load(Song &song, const QFileInfo &info)
{
    if (isOff() || !song.getModified().isValid())
        return false;
    QFile file(cacheBase + fileNameFor(info.absoluteFilePath()));
    // Not by QFileInfo: for each time that it tells it looks at the system's time zone.
    const auto state = Platform::fileState(file.fileName());
    return state && state->isRegular && isNewer(*state, song) && file.open(QIODevice::ReadOnly)
           && CacheRecord::read(file, *state, song);
}

bool SongStoreCache::save(Song &song)
{
    if (isOff())
        return false;
    const QString path = cacheBase + fileNameFor(song.getFilename());
    const CacheRecord::Bytes bytes = CacheRecord::write(song);
    const bool written = song.isAheadOfFile() ? writeAhead(path, bytes.content, song)
                                              : SafeFile::replace(path, bytes.content,
                                                                  SafeFile::Durability::Unsynced);
    if (!written)
        return false;
    const auto state = song.hasChoreography() ? Platform::fileState(path) : std::nullopt;
    if (state)
        song.getCuesheet().noteCache({path, *state, bytes.documentOffset});
    return true;
}

bool SongStoreCache::remove(const Song &song)
{
    return !isOff() && QFile::remove(cacheBase + fileNameFor(song.getFilename()));
}
