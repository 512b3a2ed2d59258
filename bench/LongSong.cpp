#include "LongSong.h"

#include "Bench.h"

#include <Library.h>

#include <QDir>

namespace {

// A demo song's parts again and again, until the time is full.
Demo::Score makeScore(const QString &name)
{
    Demo::Score score = Demo::songs().constFirst();
    score.path = name;
    score.rate = 44100;
    score.channels = 2;
    score.firstBeatMs = 0; // a silent beginning would tell nothing of the start
    const QList<Demo::Part> parts = score.parts;
    while (score.beatMs(score.beats()) < LongSong::ms)
        score.parts.append(parts.at(score.parts.size() % parts.size()));
    return score;
}

} // namespace

QString LongSong::write(const QString &directory, const QString &name)
{
    const QString failure = Demo::writeLibrary(directory, {makeScore(name)});
    Bench::check(failure.isEmpty(), qPrintable(failure));
    return QDir(directory).filePath(name);
}
