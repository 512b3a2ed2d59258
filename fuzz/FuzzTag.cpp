// A whole mp3 file through the tag store: loaded, saved, loaded again.

#include "FuzzPlace.h"
#include "Song.h"
#include "SongStore.h"

#include <cstdint>
#include <cstdlib>

namespace {

QString makeStores()
{
    const QString file = FuzzPlace::directory() + QStringLiteral("song.mp3");
    createSongStores();
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const QString file = makeStores();
    FuzzPlace::write(
        file, QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    Song song(file, false);
    const SongPositions before = song.getPositions();
    if (!song.save())
        return 0;
    // What was saved is what is there, in the order of the times.
    const Song again(file, false);
    if (again.getPositions().count() != before.count())
        std::abort();
    return 0;
}
