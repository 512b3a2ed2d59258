#include "SaveStates.h"
#include "Song.h"
#include "SongStore.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace {

// What a start of the program does before it scans; then nothing more.
int start()
{
    createSongStores();
    return 0;
}

// Saves one state after the other and tells each that is saved, until it is stopped.
int saveForEver(const QString &path, SaveStates::Change change, int number)
{
    createSongStores();
    for (;; ++number) {
        Song song(path, false);
        SaveStates::put(song, change, number);
        std::printf("%s %d\n", song.save() ? "saved" : "failed", number);
        std::fflush(stdout);
    }
}

} // namespace

// song_saver                              starts as the program does, and ends
// song_saver FILE fits|grows|shrinks N    saves states from number N on, for ever
int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc < 4)
        return start();
    return saveForEver(QFile::decodeName(argv[1]), SaveStates::changeNamed(argv[2]),
                       QByteArray(argv[3]).toInt());
}
