// How long the window's screens keep a user waiting.

#include "Bench.h"

#include <Player.h>
#include <PositionsPage.h>
#include <Theme.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr QSize screen(1920, 1080);
constexpr int barMs = 2000;

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

void measurePositions(int rounds)
{
    Player player;
    PositionsPage page(&player);
    page.resize(screen);
    page.show();
    QCoreApplication::processEvents();
    Bench::report("window.positions_ms.20", rebuildMs(page, 20, rounds));
    Bench::report("window.positions_ms.200", rebuildMs(page, 200, rounds));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QLoggingCategory::setFilterRules(u"*.debug=false"_s);
    // The working directory holds the settings: the user's own stay untouched.
    const QTemporaryDir home;
    QDir::setCurrent(home.path());
    const Theme &theme = themeNamed(u"Dark Night"_s);
    QApplication::setPalette(theme.palette);
    qApp->setStyleSheet(filledStyleSheet(styleSheetText(theme), {}));
    measurePositions(Bench::count(25));
}
