#include "PlayerEngine2.h"

#include "SongAudioData.h"

#include <QtDebug>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr int tickMs = 50;
// How long a song waits for an output: a sound server takes some seconds to start again.
constexpr int patienceMs = 10000;
constexpr int betweenTriesMs = 500;
constexpr int reconnectMs = 3500;

// A text in a file may say "nan".
double factorOf(double percent, double limit)
{
    if (!std::isfinite(percent))
        return 1.0;
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
    return std::isfinite(factor) ? std::clamp(factor, 0.0, 2.0) : 1.0;
}

} // namespace

PlayerEngine2::PlayerEngine2(QObject *parent)
    : QThread(parent)
{
    connect(&output, &AudioOutput::stateChanged, this, &PlayerEngine2::outputStateChanged);
    foreplayTimer.setTimerType(Qt::PreciseTimer);
    connect(&foreplayTimer, &QTimer::timeout, this, &PlayerEngine2::foreplayTimerExpired);
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
    resetEventPlayTime();
    internalStart();
}

void PlayerEngine2::doStartFromPart(int aPartIndex)
{
    resetEventPlayTime();
    internalStartFromPart(aPartIndex);
}

void PlayerEngine2::doStartFromPlaytime(int aStartPosition)
{
    resetEventPlayTime();
    internalStartFromPlaytime(aStartPosition);
}

// The names of the arguments are crossed: the first one is the part at whose end the loop jumps,
// the second one the part to which. Whoever calls gives the same part twice.
void PlayerEngine2::doStartLoop(int aPartIndexStart, int aPartIndexEnd)
{
    resetEventPlayTime();
    loopStartPart = aPartIndexEnd;
    loopEndPart = aPartIndexStart;
    loopStartTime = partTime(aPartIndexEnd);
    loopEndTime = partTime(qint64(aPartIndexStart) + 1);
    // The last part has no end: microseconds taken for milliseconds lie far behind the song's end,
    // where it runs out, but on a song that stands this end makes every tick jump back.
    constexpr qint64 justBefore = 250;
    if (loopEndPart > 0 && loopEndTime == 0)
        loopEndTime = playedUSecs - justBefore;
    internalStartFromPart(aPartIndexEnd);
}

void PlayerEngine2::doStop()
{
    resetEventPlayTime();
    internalStop();
}

void PlayerEngine2::resetEventPlayTime()
{
    registration.reset(song);
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

void PlayerEngine2::doConvert(const QString &filename, int tempoPercent, Song::EFileFormat format)
{
    if (song)
        song->convert(filename, tempoPercent, format);
}

void PlayerEngine2::doSetSong(SongPtr pSong)
{
    if (pSong)
        pSong->resetCountDowns();
    if (pSong == song)
        return;
    if (song)
        registration.logState("Set new Song. Old song: ", *song);
    internalStop();
    device.setSong(SongPtr(), tempo);
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
    // Half a second before the first number shows.
    constexpr qint64 ahead = 500;
    const qint64 lead = song->getCountDowns().earliestStart() - ahead;
    if (lead < 0)
        startForeplay(static_cast<int>(std::max<qint64>(lead, std::numeric_limits<int>::min())));
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
    foreplayTimer.stop();
    internalPause();
    // Somebody may have started the song again when it fell silent.
    foreplayTimer.stop();
    loopStartPart = loopStartTime = loopEndPart = loopEndTime = 0;
    output.stop();
    startPosition = 0;
    lastProcessedUSecs = playedUSecs = 0;
    if (isPlaying)
        setPlaying(false);
    if (activePart > 0)
        setActivePart(-1);
    setPlaytime(0);
}

// A pause in the foreplay is a stop.
void PlayerEngine2::internalPause()
{
    lostSince.invalidate();
    if (isInForeplay())
        internalStop();
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
    lostSince.invalidate();
    setPlaying(true);
    forgetPartAtStart();
    // Whoever heard that may have stopped it.
    if (isPlaying && !isInForeplay())
        startAudioOutput();
}

void PlayerEngine2::startAudioOutput()
{
    if (!isPlayable() || !output.prepare(song->getFormat())) {
        qCritical() << "Selected audio format not supported by backend, cannot play audio.";
        giveUpStart();
    } else if (!feedOutput()) {
        giveUpStart();
    }
    lastProcessedUSecs = playedUSecs = 0;
}

// Of an output that is prepared; false when it could not be opened.
bool PlayerEngine2::feedOutput()
{
    loadDevice();
    if (!device.isOpen() && !device.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        qCritical() << "Cannot open Audio Output Device";
    device.seekToPlaytime(startPosition);
    aheadUSecs = aheadOfTheEar();
    return output.start(&device);
}

// By how much the parts have to be told early to come with their beat: half a tick, the stretcher's
// own way of placing sounds, and what the seek has left out. Microseconds of the output.
qint64 PlayerEngine2::aheadOfTheEar() const
{
    constexpr qint64 halfATick = tickMs * 1000 / 2;
    return halfATick + device.leadUSecs()
           + static_cast<qint64>(double(device.skippedUSecs()) / tempo);
}

// A song without a file, or one whose sound nobody could read, leaves the device empty.
void PlayerEngine2::loadDevice()
{
    device.setSong(isPlayable() ? song : SongPtr(), tempo);
}

bool PlayerEngine2::isPlayable() const
{
    return song && song->isPlayable();
}

// A loop would try again at every tick.
void PlayerEngine2::giveUpStart()
{
    loopStartPart = loopStartTime = loopEndPart = loopEndTime = 0;
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

// The song counts as playing all the time, so that nobody takes the move for its end.
void PlayerEngine2::leaveLostOutput()
{
    if (!isPlaying || (!lostSince.isValid() && !output.isLost()))
        return;
    if (!lostSince.isValid())
        beginToWait();
    if (!nextTry.hasExpired())
        return;
    nextTry.setRemainingTime(betweenTriesMs);
    if (output.prepare(song->getFormat()) && feedOutput()) {
        lostSince.invalidate();
    } else if (lostSince.hasExpired(patienceMs)) {
        qWarning() << "No audio output came back.";
        giveUpStart();
    }
}

void PlayerEngine2::beginToWait()
{
    qWarning() << "The audio output is gone.";
    // An output that fails though it is listed was on a server that has gone: Qt doesn't notice,
    // nor may it be asked to play there, before it connects anew.
    nextTry.setRemainingTime(output.isPresent() ? reconnectMs : 0);
    startPosition += static_cast<int>(playedUSecs / 1000);
    lastProcessedUSecs = playedUSecs = 0;
    output.giveUp();
    lostSince.start();
}

// An output that had nothing to play for a moment goes on by itself: that is no end.
void PlayerEngine2::checkEnd()
{
    if (isPlaying && device.hasEnded() && output.hasPlayedOut())
        endSong();
}

void PlayerEngine2::endSong()
{
    // One that runs on would pull from a closed device.
    output.stop();
    if (device.isOpen())
        device.close();
    startPosition = 0;
    lastProcessedUSecs = playedUSecs = 0;
    setPlaying(false);
    // The next song may play by now.
    if (isPlaying)
        return;
    if (activePart > 0)
        setActivePart(-1);
    setPlaytime(0);
}
