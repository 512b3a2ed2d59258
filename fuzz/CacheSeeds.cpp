// Makes the cache files of songs, and one that holds everything: cache_seeds DIRECTORY SONG...

#include "CacheRecord.h"
#include "FuzzPlace.h"
#include "Settings.h"
#include "Song.h"
#include "SongStore.h"

#include <QFile>

namespace {

QByteArray fullRecord()
{
    Song song(QString(), true);
    song.setTitle(QStringLiteral("Title"));
    song.setBpm(QStringLiteral("120"));
    song.setVersionTag(QString::number(Song::tagFormatVersion));
    song.getPositions().insert(0, Position(-300, QStringLiteral("A"), QStringLiteral("Triple")));
    song.getPositions().insert(1, Position(5000, QStringLiteral("B"), QStringLiteral("Basic")));
    song.getCuesheet().set("%PDF-1.4");
    song.getDanceEvents().fromTagText(QStringLiteral("1600000000\tTraining\tUlm\t5\n"));
    song.getCountDowns().addNew();
    return CacheRecord::write(song).content;
}

} // namespace

int main(int count, char **arguments)
{
    FuzzPlace::directory();
    if (count < 2)
        return 1;
    const QString seeds = QFile::decodeName(arguments[1]);
    FuzzPlace::write(seeds + QStringLiteral("/full"), fullRecord());
    Settings::setValue(Settings::Key::CacheDir, seeds);
    createSongStores();
    for (int index = 2; index < count; ++index)
        Song(QFile::decodeName(arguments[index]), false);
    return 0;
}
