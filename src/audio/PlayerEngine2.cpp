#include "PlayerEngine2.h"

#include "SongAudioData.h"

#include <QTimer>
#include <QtDebug>

#include <algorithm>
#include <utility>

namespace {

constexpr int tickMs = 50;
constexpr int playtimeStepMs = 100;
// What the stretcher can take.
constexpr int mostChannels = 16;
constexpr int highestSampleRate = 192000;

double factorOf(double percent, double limit)
{
    return std::clamp(percent / 100.0 + 1.0, 1.0 - limit, 1.0 + limit);
}

double tempoFactor(double percent)
{
    return factorOf(percent, 0.4);
}

double pitchFactor(double percent)
{
    return factorOf(percent, 0.15);
}

double volumeFactor(double factor)
{
    return std::clamp(factor, 0.0, 2.0);
}

} // namespace

PlayerEngine2::PlayerEngine2(QObject *parent)
    : QThread(parent)
{
    connect(&output, &AudioOutput::stateChanged, this, &PlayerEngine2::outputStateChanged);
}

PlayerEngine2::~PlayerEngine2() = default;

// The timer's thread is the new one and its receiver lives on the GUI thread: each tick is posted.
void PlayerEngine2::run()
{
    QTimer tickTimer;
    connect(&tickTimer, &QTimer::timeout, this, &PlayerEngine2::checkPlaytime);
    tickTimer.start(tickMs);
    exec();
    tickTimer.stop();
}

void PlayerEngine2::doStart()
{
    internalStart();
}

void PlayerEngine2::doStartFromPart(int aPartIndex)
{
    internalStartFromPart(aPartIndex);
}

void PlayerEngine2::doStartFromPlaytime(int aStartPosition)
{
    internalStartFromPlaytime(aStartPosition);
}

void PlayerEngine2::doStop()
{
    internalStop();
}

void PlayerEngine2::doPause()
{
    internalPause();
}

void PlayerEngine2::doResume()
{
    internalResume();
}

void PlayerEngine2::doSetTempo(double percent)
{
    tempo = tempoFactor(percent);
    device.setTempo(tempo);
}

void PlayerEngine2::doSetVolume(double factor)
{
    volume = volumeFactor(factor);
    output.setVolume(volume);
}

void PlayerEngine2::doSetPitch(double percent)
{
    pitch = pitchFactor(percent);
}

void PlayerEngine2::doSetSong(SongPtr pSong)
{
    if (pSong)
        pSong->resetCountDowns();
    if (pSong == song)
        return;
    internalStop();
    if (song)
        song->releaseAudio();
    song = pSong;
    startPosition = 0;
    if (song)
        takeOver(pSong);
}

// Decoding runs the event loop: by the time it returns, another song may have come, or this one
// may play already.
void PlayerEngine2::takeOver(const SongPtr &pSong)
{
    doSetVolume(pSong->getVolume());
    doSetPitch(pSong->getPitch());
    doSetTempo(pSong->getTempo());
    pSong->decodeAudio();
    if (song != pSong)
        return;
    if (!isPlaying)
        loadDevice();
    if (const SongAudioData *audio = song->getAudioData().get())
        connect(audio, &SongAudioData::decodingEnded, this, &PlayerEngine2::checkEnd);
}

void PlayerEngine2::internalStart()
{
    internalStop();
    if (isPlaying || !song)
        return;
    song->resetCountDowns();
    startPosition = 0;
    internalResume();
}

void PlayerEngine2::internalStartFromPart(int index)
{
    const int t = partTime(index);
    if (song)
        song->resetCountDowns();
    internalPause();
    if (t < 0)
        internalStart();
    else
        startPosition = t;
    internalResume();
}

void PlayerEngine2::internalStartFromPlaytime(int ms)
{
    if (song)
        song->resetCountDowns();
    internalPause();
    if (ms >= 0)
        startPosition = ms;
    else
        internalStart();
    internalResume();
}

void PlayerEngine2::internalStop()
{
    internalPause();
    output.stop();
    startPosition = 0;
    lastProcessedUSecs = playedUSecs = 0;
    if (isPlaying)
        setPlaying(false);
    if (activePart > 0)
        setActivePart(-1);
    setPlaytime(0);
}

void PlayerEngine2::internalPause()
{
    if (isPlaying) {
        startPosition = playtime;
        lastProcessedUSecs = playedUSecs = 0;
        output.stop();
        setPlaying(false);
    }
    forgetPartAtStart();
}

void PlayerEngine2::internalResume()
{
    if (song)
        qDebug() << "Resume Song: " << song->getFilename();
    if (isPlaying || !song)
        return;
    setPlaying(true);
    forgetPartAtStart();
    startAudioOutput();
}

void PlayerEngine2::startAudioOutput()
{
    loadDevice();
    if (!openOutput())
        giveUpStart();
    lastProcessedUSecs = playedUSecs = 0;
}

// A song without a file, or one whose sound nobody could read, leaves the device empty.
void PlayerEngine2::loadDevice()
{
    device.setSong(isPlayable() ? song : SongPtr(), tempo);
}

bool PlayerEngine2::isPlayable() const
{
    return song && !song->isMissingFile() && song->getFrequency() > 0
           && song->getFrequency() <= highestSampleRate && song->getChannels() > 0
           && song->getChannels() <= mostChannels;
}

bool PlayerEngine2::openOutput()
{
    if (!isPlayable() || !output.prepare(song->getFormat())) {
        qCritical() << "Selected audio format not supported by backend, cannot play audio.";
        return false;
    }
    if (!device.isOpen() && !device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qCritical() << "Cannot open Audio Output Device";
    device.seekToPlaytime(startPosition);
    return output.start(&device);
}

void PlayerEngine2::giveUpStart()
{
    setPlaying(false);
    forgetPartAtStart();
}

void PlayerEngine2::outputStateChanged(QAudio::State state)
{
    if (state == QAudio::StoppedState && output.error() != QAudio::NoError)
        qDebug() << "PlayerEngine2: Audio Output is in Error: " << output.error();
    if (state == QAudio::IdleState)
        checkEnd();
}

// The place is kept: the music goes on at another output, or waits for one in a pause.
void PlayerEngine2::leaveLostOutput()
{
    if (!isPlaying || !output.isLost())
        return;
    internalPause();
    internalResume();
}

// An output that had nothing to play for a moment goes on by itself: that is no end.
void PlayerEngine2::checkEnd()
{
    if (isPlaying && device.hasEnded() && output.hasPlayedOut())
        endSong();
}

void PlayerEngine2::endSong()
{
    if (device.isOpen())
        device.close();
    startPosition = 0;
    lastProcessedUSecs = playedUSecs = 0;
    setPlaying(false);
    if (activePart > 0)
        setActivePart(-1);
    setPlaytime(0);
}

void PlayerEngine2::checkPlaytime()
{
    leaveLostOutput();
    checkEnd();
    countPlayed();
    setPlaytime(static_cast<int>(playedUSecs / 1000) + startPosition);
}

void PlayerEngine2::countPlayed()
{
    if (output.state() != QAudio::ActiveState)
        return;
    const qint64 processed = output.processedUSecs();
    playedUSecs += static_cast<qint64>(double(processed - lastProcessedUSecs) * tempo);
    lastProcessedUSecs = processed;
}

void PlayerEngine2::setPlaytime(int t)
{
    if (t == playtime)
        return;
    const bool newStep = playtime / playtimeStepMs != t / playtimeStepMs;
    playtime = t;
    if (newStep)
        Q_EMIT notifyPlayTimeChanged(playtime);
    refreshActivePart(false);
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

int PlayerEngine2::partTime(int index) const
{
    return index >= 0 && index < positions().count() ? positions().at(index).getTime() : 0;
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
