// Makes seeds of real songs and one that holds everything:
//   fuzz_seeds cache DIRECTORY SONG...   their cache files
//   fuzz_seeds tag DIRECTORY SONG        the song itself, full

#include "CacheRecord.h"
#include "FuzzPlace.h"
#include "Settings.h"
#include "Song.h"
#include "SongStore.h"

#include <QFile>

namespace {

void fill(Song &song)
{
    song.setTitle(QStringLiteral("Title"));
    song.setBpm(QStringLiteral("120"));
    song.setVersionTag(QString::number(Song::tagFormatVersion));
    song.getPositions().clear();
    song.getPositions().insert(0, Position(-300, QStringLiteral("A"), QStringLiteral("Triple")));
    song.getPositions().insert(1, Position(5000, QStringLiteral("B"), QStringLiteral("Basic")));
    song.getCuesheet().set("%PDF-1.4");
    song.getDanceEvents().fromTagText(QStringLiteral("1600000000\tTraining\tUlm\t5\n"));
    song.getCountDowns().addNew();
}

void makeCacheFiles(const QString &directory, const QStringList &songs)
{
    Song full(QString(), true);
    fill(full);
    FuzzPlace::write(directory + QStringLiteral("/full"), CacheRecord::write(full).content);
    Settings::setValue(Settings::Key::CacheDir, directory);
    createSongStores();
    for (const QString &song : songs)
        Song(song, false);
}

void makeFullSong(const QString &directory, const QString &song)
{
    const QString path = directory + QStringLiteral("/full.mp3");
    QFile::remove(path);
    createSongStores();
    if (!QFile::copy(song, path))
        qFatal("The song can't be copied.");
    Song full(path, false);
    fill(full);
    if (!full.save())
        qFatal("The song can't be saved.");
}

} // namespace

int main(int count, char **arguments)
{
    FuzzPlace::directory();
    if (count < 4)
        return 1;
    QStringList words;
    for (int index = 1; index < count; ++index)
        words.append(QFile::decodeName(arguments[index]));
    if (words.at(0) == u"tag")
        makeFullSong(words.at(1), words.at(2));
    else
        makeCacheFiles(words.at(1), words.mid(2));
    return 0;
}
