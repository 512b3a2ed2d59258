// Any bytes as the cache file of a song: loaded, and what was loaded written and loaded again.

#include "CacheRecord.h"
#include "FuzzPlace.h"
#include "Settings.h"
#include "Song.h"
#include "SongStoreCache.h"

#include <QFile>

#include <cstdint>
#include <cstdlib>

namespace {

struct Paths
{
    QString song;
    QString record;
};

// Old enough for every cache file to count.
void makeSong(const QString &path)
{
    QByteArray frame("\xff\xfb\x90\x64", 4);
    frame.append(417 - frame.size(), '\0');
    FuzzPlace::write(path, frame.repeated(3));
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite)
        || !file.setFileTime(QDateTime::fromSecsSinceEpoch(1000000000),
                             QFileDevice::FileModificationTime))
        std::abort();
}

Paths prepare()
{
    const QString directory = FuzzPlace::directory();
    const QString song = directory + QStringLiteral("song.mp3");
    makeSong(song);
    Settings::setValue(Settings::Key::CacheDir, directory);
    createSongStores();
    return {song, directory + SongStoreCache::fileNameFor(song)};
}

void expectSame(const Song &song, const Song &again)
{
    if (!again.isCached() || again.isIncomplete()
        || CacheRecord::write(again).content != CacheRecord::write(song).content)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Paths paths = prepare();
    FuzzPlace::write(paths.record, QByteArray(reinterpret_cast<const char *>(data),
                                              static_cast<qsizetype>(size)));
    Song song(paths.song, false);
    if (!song.isCached())
        return 0;
    // As a save does it: what is written now must not be moved as old positions are.
    song.setVersionTag(QString::number(Song::tagFormatVersion));
    if (!song.getCuesheet().fetch() || !SongStoreCache().save(song))
        std::abort();
    const Song again(paths.song, false);
    expectSame(song, again);
    return 0;
}
