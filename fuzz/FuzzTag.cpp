// A whole mp3 file through the tag store: loaded, saved, loaded again.

#include "Song.h"
#include "SongStore.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {

// In memory where the machine offers that: a run makes thousands of files a second.
QString workingFile()
{
    static const QTemporaryDir directory(QDir(QStringLiteral("/dev/shm")).exists()
                                             ? QStringLiteral("/dev/shm/tarvelo-fuzz")
                                             : QString());
    return directory.filePath(QStringLiteral("song.mp3"));
}

bool prepare()
{
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    createSongStores();
    return true;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool prepared = prepare();
    static_cast<void>(prepared);
    QFile file(workingFile());
    if (!file.open(QIODevice::WriteOnly))
        std::abort();
    file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size));
    file.close();
    Song song(file.fileName(), false);
    const SongPositions before = song.getPositions();
    if (!song.save())
        return 0;
    // What was saved is what is there, in the order of the times.
    const Song again(file.fileName(), false);
    if (again.getPositions().count() != before.count())
        std::abort();
    return 0;
}
