// How soon the program is there, how long its window keeps a user waiting, and what it takes of the
// machine.

#include "BareScan.h"
#include "Bench.h"
#include "LongSong.h"
#include "ProgramRun.h"
#include "ScanLibrary.h"
#include "StoredSettings.h"
#include "WindowAnswers.h"

#include <Player.h>
#include <PositionsPage.h>
#include <Settings.h>
#include <SongManager.h>
#include <SongStore.h>
#include <Theme.h>

#include <QApplication>
#include <QDir>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize screen(1920, 1080);
constexpr int barMs = 2000;
constexpr int settleSeconds = 3;
constexpr int watchSeconds = 20;

// Three lines of steps a position, the last ones longer than the first, as songs have them.
SongPtr makeSong(int positions)
{
    const SongPtr song(new Song(u"/none.mp3"_s, true));
    song->setPlayLength(positions * barMs / 1000);
    song->setBpm(u"120"_s);
    for (int i = 0; i < positions; ++i)
        song->getPositions().insert(i, {i * barMs, u"Chorus %1"_s.arg(i),
                                        u"Triple, Basic %1\nRocking Chair, 2 Steps\n"_s.arg(i)
                                            + u"Cowboy left, Turkey right, turn 1/2"_s});
    return song;
}

// The slower of the two ways to show them.
double rebuildMs(PositionsPage &page, int positions, int rounds)
{
    page.setSong(makeSong(positions));
    double slowest = 0;
    for (const bool fullWidth : {false, true}) {
        page.setFullWidth(fullWidth);
        QList<double> times;
        for (int round = 0; round < rounds; ++round) {
            times.append(Bench::once([&page] { page.refreshPositionsWindow(); }));
            QCoreApplication::processEvents();
        }
        slowest = std::max(slowest, Bench::median(times));
    }
    return slowest;
}

void measurePositions()
{
    constexpr int rounds = 25;
    Player player;
    PositionsPage page(&player);
    page.resize(screen);
    page.show();
    QCoreApplication::processEvents();
    Bench::report("window.positions_ms.20", rebuildMs(page, 20, rounds));
    Bench::report("window.positions_ms.200", rebuildMs(page, 200, rounds));
}

struct Library
{
    QString music;
    QString cache;
};

// With a cache file of every song.
Library cached(const QDir &directory)
{
    const Library library{directory.filePath(u"music"_s), directory.filePath(u"cache"_s)};
    for (const QString &path : {library.music, library.cache})
        QDir().mkpath(path);
    ScanLibrary::use(library.music, library.cache);
    SongManager().loadSongList();
    return library;
}

Library manySongs(const QDir &directory, int count)
{
    const QString song = ScanLibrary::makeSong(directory.filePath(u"template"_s));
    ScanLibrary::copies(song, directory.filePath(u"music"_s), count);
    const Library library = cached(directory);
    Bench::check(BareScan::cacheFiles(library.cache).size() == count, "The cache is not whole.");
    return library;
}

double startMs(const Library &library)
{
    return ProgramRun(library.music, library.cache).startMs();
}

void measureStart(const Library &many, const Library &none)
{
    constexpr int rounds = 7;
    const QList<BareScan::CacheFile> files = BareScan::cacheFiles(many.cache);
    QList<double> bare;
    QList<double> full;
    QList<double> empty;
    startMs(many); // what it reads is in memory from now on
    for (int round = 0; round < rounds; ++round) {
        bare.append(Bench::once([&] { BareScan::read(files); }));
        empty.append(startMs(none));
        full.append(startMs(many));
    }
    Bench::report("window.start_ms", Bench::median(full));
    Bench::report("window.start_empty_ms", Bench::median(empty));
    Bench::report("window.start.bare_ms", Bench::median(bare));
    Bench::report("window.start.ratio",
                  (Bench::median(full) - Bench::median(empty)) / Bench::median(bare));
}

void measureIdle(const Library &library)
{
    const ProgramRun program(library.music, library.cache);
    QThread::sleep(settleSeconds);
    Bench::report("window.idle.cpu_percent", program.processorPercent(watchSeconds));
    Bench::report("window.rss_mb", program.megabytes());
}

bool isSoundOn()
{
    QProcess pactl;
    pactl.start(u"pactl"_s, {u"list"_s, u"sink-inputs"_s});
    pactl.waitForFinished();
    return pactl.readAllStandardOutput().contains("Corked: no");
}

// The first song with its positions, slower than it was recorded, in a window as large as the
// screen.
void measurePlay(const Library &library)
{
    ProgramRun program(library.music, library.cache);
    program.press({u"m"_s, u"Home"_s, u"Return"_s});
    QThread::sleep(settleSeconds); // the song is decoded meanwhile
    program.press({u"F10"_s, u"p"_s});
    QThread::sleep(settleSeconds);
    Bench::report("window.play.cpu_percent", program.processorPercent(watchSeconds));
    Bench::check(isSoundOn(), "The music did not play on.");
}

void use(const Library &library)
{
    StoredSettings::write(*Settings::instance(), library.music, library.cache);
}

void measureAnswers(const Library &many, int count)
{
    use(many);
    const WindowAnswers::Percentiles answers = WindowAnswers::measure(count);
    Bench::report("window.select_ms.p95", answers.selectMs);
    Bench::report("window.screen_ms.p95", answers.screenMs);
}

void measureKeyToSound(const Library &one)
{
    use(one);
    Bench::report("window.key_to_sound_ms", WindowAnswers::keyToSoundMs());
}

void measureProgram(const QDir &home)
{
    const int count = Bench::count(10000);
    const Library many = manySongs(QDir(home.filePath(u"many"_s)), count);
    const Library none = cached(QDir(home.filePath(u"none"_s)));
    LongSong::write(home.filePath(u"one/music"_s), u"song.mp3"_s);
    const Library one = cached(QDir(home.filePath(u"one"_s)));
    destroySongStores();
    Bench::report("window.songs", count);
    measureStart(many, none);
    measureIdle(many);
    measurePlay(one);
    measureKeyToSound(one);
    measureAnswers(many, count);
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(u"*.debug=false"_s);
    // The working directory holds the settings: the user's own stay untouched.
    const QTemporaryDir home;
    QDir::setCurrent(home.path());
    QFile(u"Tarvelo.ini"_s).open(QIODevice::WriteOnly);
    QDir::temp().mkdir(u"Tarvelo"_s); // where the database lies
    ScanLibrary::use(home.path(), QString());
    const Theme &theme = themeNamed(u"Dark Night"_s);
    QApplication::setPalette(theme.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {}));
    measurePositions();
    measureProgram(QDir(home.path()));
}
