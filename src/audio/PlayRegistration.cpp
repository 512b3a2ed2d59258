#include "PlayRegistration.h"

#include "Settings.h"

#include <QtDebug>

namespace {

qint64 threshold()
{
    constexpr int usual = 90;
    const QVariant stored = Settings::value(Settings::Key::RegisterPlay);
    return stored.isValid() ? stored.toInt() : usual;
}

} // namespace

PlayRegistration::PlayRegistration()
    : registerPlaySeconds(threshold())
{ }

void PlayRegistration::reset(const SongPtr &song)
{
    if (song)
        logState("Reset EventPlayTime Song: ", *song);
    eventPlayUSecs = 0;
    generatedEvent = false;
    registerPlaySeconds = threshold();
}

void PlayRegistration::registerWhenDue(const SongPtr &song, double tempo)
{
    if (!song || !isDue())
        return;
    const double percent = tempo * 100.0 - 100.0;
    generatedEvent = true;
    // Its file may have moved while it played.
    const SongPtr written = Song::present(song);
    written->getDanceEvents().addPlay(percent);
    written->setTempo(percent);
    written->save();
    qDebug() << "Written Event for song " << written->getFilename() << " after " << playedSeconds()
             << " Seconds";
}

void PlayRegistration::logState(const char *occasion, const Song &song) const
{
    qDebug() << occasion << song.getFilename() << " generatedEvent=" << generatedEvent
             << " playtime=" << playedSeconds() << " toBeWritten After=" << registerPlaySeconds;
}

bool PlayRegistration::isDue() const
{
    return !generatedEvent && playedSeconds() > registerPlaySeconds;
}

qint64 PlayRegistration::playedSeconds() const
{
    constexpr qint64 second = 1'000'000;
    return eventPlayUSecs / second;
}
