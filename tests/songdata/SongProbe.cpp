#include "Song.h"
#include "SongStore.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>
#include <sys/resource.h>

namespace {

void limit(__rlimit_resource resource, rlim_t most)
{
    const rlimit both{most, most};
    setrlimit(resource, &both);
}

} // namespace

// Loads the file, saves it (with a comment of as many characters as a second argument says),
// loads it again: with ten seconds of processor time and half a gigabyte of memory.
int main(int argc, char *argv[])
{
    limit(RLIMIT_CPU, 10);
#if !defined(__SANITIZE_ADDRESS__)
    limit(RLIMIT_AS, rlim_t{512} << 20);
#endif
    const QCoreApplication application(argc, argv);
    createSongStores();
    Song song(QFile::decodeName(argv[1]), false);
    if (argc > 2)
        song.setComment(QString(QByteArray(argv[2]).toInt(), u'x'));
    const bool saved = song.save();
    const Song again(song.getFilename(), false);
    std::printf("%s\n", saved ? "saved" : "not saved");
    return 0;
}
