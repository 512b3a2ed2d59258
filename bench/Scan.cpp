// How long the library's scan takes against the bare libraries on the same files, and how much
// memory its songs do.

#include "BareScan.h"
#include "Bench.h"
#include "ProcessUsage.h"
#include "ScanLibrary.h"

#include <SongManager.h>
#include <SongStore.h>
#include <TarveloSplashScreen.h>

#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtDebug>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int songsWithDocument = 1000;
constexpr int rounds = 5;

void scanWith(SongManager &manager, int count, bool cached)
{
    int fromCache = 0;
    QObject::connect(&manager, &SongManager::notifySongScanned, &manager,
                     [&](int, const QString &, bool isCached) { fromCache += isCached ? 1 : 0; });
    manager.loadSongList();
    if (manager.getSongs().size() != count || fromCache != (cached ? count : 0))
        qFatal("The scan found %d songs, %d of them in the cache.", int(manager.getSongs().size()),
               fromCache);
}

void scan(int count, bool cached)
{
    SongManager manager;
    scanWith(manager, count, cached);
}

void scanWithSplash(int count)
{
    SongManager manager;
    TarveloSplashScreen splash;
    splash.show();
    QObject::connect(&manager, &SongManager::notifySongCount, &splash,
                     &TarveloSplashScreen::setRange);
    QObject::connect(&manager, &SongManager::notifySongScanned, &splash,
                     &TarveloSplashScreen::setSplashProgress);
    scanWith(manager, count, true);
    splash.finish();
}

// An empty directory of this name.
QString emptied(const QString &path)
{
    QDir(path).removeRecursively();
    QDir().mkpath(path);
    return path;
}

// In a process of its own, where no memory of an earlier scan is used again.
void tellMemory(int count)
{
    const auto kilobytes = [](const char *field) {
        return ProcessUsage::kilobytes(QCoreApplication::applicationPid(), field);
    };
    const double before = kilobytes("VmRSS");
    SongManager manager;
    scanWith(manager, count, true);
    std::printf("%.3f %.3f\n", (kilobytes("VmRSS") - before) / count, kilobytes("VmHWM") / 1024);
}

struct Memory
{
    double kilobytesPerSong = 0;
    double mostMegabytes = 0;
};

Memory measureMemory(int count)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {QString::number(count)});
    process.waitForFinished(-1);
    const QList<QByteArray> values = process.readAllStandardOutput().simplified().split(' ');
    if (process.exitCode() != 0 || values.size() != 2)
        qFatal("The memory can't be measured.");
    return {values.at(0).toDouble(), values.at(1).toDouble()};
}

void reportRatio(const QByteArray &name, const QList<double> &times, const QList<double> &bare)
{
    Bench::report((name + "_ms").constData(), Bench::median(times));
    Bench::report((name + ".ratio").constData(), Bench::median(times) / Bench::median(bare));
}

void measureCold(const QStringList &songs, const QString &cache)
{
    QList<double> bare;
    QList<double> cold;
    const int count = static_cast<int>(songs.size());
    scan(count, false); // the page cache is warm for both
    const QList<BareScan::CacheFile> files = BareScan::cacheFiles(cache);
    for (int round = 0; round < rounds; ++round) {
        const QString twin = emptied(cache + u" twin"_s);
        bare.append(Bench::once([&] {
            BareScan::readTags(songs);
            BareScan::write(files, twin);
        }));
        emptied(cache);
        cold.append(Bench::once([&] { scan(count, false); }));
    }
    Bench::report("scan.cold.bare_ms", Bench::median(bare));
    reportRatio("scan.cold", cold, bare);
}

void measureWarm(int count, const QString &cache)
{
    QList<double> bare;
    QList<double> warm;
    QList<double> splash;
    const QList<BareScan::CacheFile> files = BareScan::cacheFiles(cache);
    for (int round = 0; round < rounds; ++round) {
        bare.append(Bench::once([&] { BareScan::read(files); }));
        warm.append(Bench::once([&] { scan(count, true); }));
        splash.append(Bench::once([&] { scanWithSplash(count); }));
    }
    Bench::report("scan.bare_ms", Bench::median(bare));
    reportRatio("scan.warm", warm, bare);
    reportRatio("scan.splash", splash, bare);
    Bench::report("scan.rss_kb_per_song", measureMemory(count).kilobytesPerSong);
}

struct Library
{
    QString music;
    QString cache;
    double warm() const
    {
        ScanLibrary::use(music, cache);
        return Bench::once([] { scan(songsWithDocument, true); });
    }
};

Library makeLibrary(const QString &song, const QString &music)
{
    ScanLibrary::links(song, music, songsWithDocument);
    const Library library{music, emptied(music + u" cache"_s)};
    ScanLibrary::use(library.music, library.cache);
    scan(songsWithDocument, false);
    return library;
}

void measureDocuments(const QString &song, const QDir &home)
{
    QList<double> without;
    QList<double> with;
    const Library bare = makeLibrary(song, home.filePath(u"few"_s));
    const QString full
        = ScanLibrary::makeSongWithDocument(song, home.filePath(u"template/document.mp3"_s));
    const Library documents = makeLibrary(full, home.filePath(u"documents"_s));
    for (int round = 0; round < rounds; ++round) {
        without.append(bare.warm());
        with.append(documents.warm());
    }
    reportRatio("scan.choreo", with, without);
    Bench::report("scan.choreo.rss_mb", measureMemory(songsWithDocument).mostMegabytes);
}

void measure(const QDir &home)
{
    const int count = Bench::count(10000);
    const QString music = home.filePath(u"music"_s);
    const QString cache = emptied(home.filePath(u"cache"_s));
    const QString song = ScanLibrary::makeSong(home.filePath(u"template"_s));
    const QStringList songs = ScanLibrary::copies(song, music, count);
    ScanLibrary::use(music, cache);
    Bench::report("scan.songs", count);
    measureCold(songs, cache);
    measureWarm(count, cache);
    measureDocuments(song, home);
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    // The working directory holds the settings: the user's own stay untouched.
    if (argc > 1) {
        createSongStores();
        tellMemory(std::atoi(argv[1]));
    } else {
        const QTemporaryDir home;
        QDir::setCurrent(home.path());
        QFile(u"Tarvelo.ini"_s).open(QIODevice::WriteOnly);
        QDir::temp().mkdir(u"Tarvelo"_s); // where the database lies
        ScanLibrary::use(home.path(), QString());
        measure(QDir(home.path()));
    }
    destroySongStores();
}
