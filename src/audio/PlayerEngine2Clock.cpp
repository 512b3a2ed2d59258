// What the engine does by its clock: the tick, the foreplay, and what follows the play time.

#include "PlayerEngine2.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int playtimeStepMs = 100;

} // namespace

void PlayerEngine2::startForeplay(int lead)
{
    playtime = startPosition = lead;
    foreplayTime = lead;
    foreplayTimer.start(1);
    foreplayClock.start();
}

bool PlayerEngine2::isInForeplay() const
{
    return playtime < 0 && foreplayTimer.isActive();
}

// A timer of 1 ms comes late and never catches up: the time that has passed counts.
void PlayerEngine2::foreplayTimerExpired()
{
    constexpr double nanoseconds = 1'000'000.0;
    const qint64 passed = foreplayClock.nsecsElapsed();
    foreplayClock.start();
    foreplayTime = std::min(foreplayTime + double(passed) / nanoseconds * tempo, 0.0);
    setPlaytime(static_cast<int>(foreplayTime));
    // A listener may have stopped the song.
    if (playtime < 0 || !foreplayTimer.isActive() || !isPlaying)
        return;
    playtime = startPosition = 0;
    foreplayTimer.stop();
    startAudioOutput();
}

void PlayerEngine2::checkPlaytime()
{
    if (isInForeplay())
        return;
    leaveLostOutput();
    checkEnd();
    countPlayed();
    registration.registerWhenDue(song, tempo);
    const int now = static_cast<int>(playedUSecs / 1000) + startPosition;
    if (loopEndPart > 0 && now > loopEndTime)
        internalStartFromPlaytime(static_cast<int>(loopStartTime));
    else
        setPlaytime(now);
}

void PlayerEngine2::countPlayed()
{
    if (output.state() != QAudio::ActiveState)
        return;
    const qint64 heard = output.processedUSecs();
    const qint64 processed = heard > 0 ? heard + aheadUSecs : 0;
    const auto delta = static_cast<qint64>(double(processed - lastProcessedUSecs) * tempo);
    lastProcessedUSecs = processed;
    playedUSecs += delta;
    registration.addPlayed(delta);
}

void PlayerEngine2::setPlaytime(int t)
{
    if (t == playtime)
        return;
    const bool newStep = playtime / playtimeStepMs != t / playtimeStepMs;
    playtime = t;
    if (newStep)
        Q_EMIT notifyPlayTimeChanged(playtime);
    followCountDowns();
    refreshActivePart(false);
}

// The first one that is active is shown. Behind the last one the display keeps what it shows as
// long as the song plays: its own last number is of type 0.
void PlayerEngine2::followCountDowns()
{
    if (const CountDownItem *item = song ? song->getCountDowns().activeAt(playtime) : nullptr)
        tellCountDown(item->makeEvent(playtime, isPlaying));
    else if (!isPlaying && lastCountDown.isOn())
        tellCountDown(CountDownEvent());
}

void PlayerEngine2::tellCountDown(const CountDownEvent &event)
{
    if (event == lastCountDown)
        return;
    lastCountDown = event;
    Q_EMIT notifyCountDown(lastCountDown);
}

void PlayerEngine2::refreshActivePart(bool force)
{
    const int part = isPlaying ? partAt(playtime) : -1;
    if (part != activePart || force)
        setActivePart(part);
}

// Read only: a write access would copy a list that an undo step shares.
const SongPositions &PlayerEngine2::positions() const
{
    static const SongPositions none;
    return song ? std::as_const(*song).getPositions() : none;
}

int PlayerEngine2::partAt(int t) const
{
    int part = positions().count() - 1;
    while (part >= 0 && positions().at(part).getTime() >= t)
        --part;
    return part;
}

int PlayerEngine2::partTime(qint64 index) const
{
    const bool exists = index >= 0 && index < positions().count();
    return exists ? positions().at(static_cast<int>(index)).getTime() : 0;
}

void PlayerEngine2::setPlaying(bool playing)
{
    isPlaying = playing;
    Q_EMIT notifyIsPlayingChanged(playing);
}

void PlayerEngine2::setActivePart(int part)
{
    activePart = part;
    Q_EMIT notifyActivePartChanged(part);
}

void PlayerEngine2::forgetPartAtStart()
{
    if (startPosition == 0 && activePart >= 1)
        setActivePart(-1);
}

// Not near the end: what follows an end is for the event loop.
void PlayerEngine2::keepSounding()
{
    constexpr int endMs = 3000;
    if (isPlaying && song && playtime < song->getPlayLength() * 1000 - endMs && !device.hasEnded())
        output.pullAtOnce();
}
