#pragma once

#include "AudioOutput.h"
#include "CountDownEvent.h"
#include "PlayRegistration.h"
#include "PlayerDevice.h"
#include "Song.h"

#include <QAudio>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QThread>
#include <QTimer>

// The machine behind Player: holds the current song, drives the audio output, tells the play time,
// the active part and the state of the countdowns, and registers the play. All of it lives on the
// GUI thread; the thread that it runs is a clock and no more.
//
// Play time is song time: what the output has played, times the tempo, since startPosition.
// A pause stops the output, so that a resume goes the whole way through its start. Where a
// countdown begins so early that nobody could get ready for it, a start first runs through the
// foreplay: time below 0, without sound.
class PlayerEngine2 : public QThread
{
    Q_OBJECT

public:
    explicit PlayerEngine2(QObject *parent = nullptr);
    // The thread must have ended.
    ~PlayerEngine2() override;

    const SongPtr &getSong() const { return song; }
    bool isPlayingNow() const { return isPlaying; }
    // Milliseconds of the song, as last told.
    int getPlaytime() const { return playtime; }
    // See Player.
    void keepSounding();
    // Factor, 0.6 to 1.4.
    double getTempo() const { return tempo; }
    // As they were handed to doStartLoop(); 0 when no loop was started since the last stop.
    int getLoopStartPart() const { return static_cast<int>(loopStartPart); }
    int getLoopEndPart() const { return static_cast<int>(loopEndPart); }
    // force: tell the active part even if it is the one that was told last.
    void refreshActivePart(bool force);

public Q_SLOTS:
    void doStart();
    void doStartFromPart(int aPartIndex);
    void doStartFromPlaytime(int aStartPosition);
    void doStartLoop(int aPartIndexStart, int aPartIndexEnd);
    void doStop();
    void doPause();
    void doResume();
    void doSetSong(SongPtr pSong);
    void doSetTempo(double percent);
    void doSetVolume(double factor);
    void doSetPitch(double percent);
    void doConvert(const QString &filename, int tempoPercent, Song::EFileFormat format);

Q_SIGNALS:
    void notifyPlayTimeChanged(int playtime);
    void notifyIsPlayingChanged(bool isPlaying);
    void notifyActivePartChanged(int part);
    void notifyCountDown(CountDownEvent countdown);

protected:
    void run() override;

private:
    void internalStart();
    void internalStartFromPart(int index);
    void internalStartFromPlaytime(int ms);
    void internalStop();
    void internalPause();
    void internalResume();
    void resetEventPlayTime();

    void startForeplay(int lead);
    bool isInForeplay() const;
    void foreplayTimerExpired();

    void takeOver(const SongPtr &pSong);
    void loadDevice();
    bool isPlayable() const;
    void startAudioOutput();
    bool feedOutput();
    qint64 aheadOfTheEar() const;
    void giveUpStart();
    void outputStateChanged(QAudio::State state);
    void leaveLostOutput();
    void beginToWait();
    void checkEnd();
    void endSong();

    void checkPlaytime();
    void countPlayed();
    void setPlaytime(int t);
    void followCountDowns();
    void tellCountDown(const CountDownEvent &event);
    const SongPositions &positions() const;
    int partAt(int t) const;
    int partTime(qint64 index) const;
    void setPlaying(bool playing);
    void setActivePart(int part);
    void forgetPartAtStart();

    SongPtr song;
    PlayerDevice device;
    AudioOutput output;
    bool isPlaying = false;
    int activePart = -1;
    int playtime = 0;
    int startPosition = 0;
    double volume = 1.0;
    double pitch = 1.0;
    double tempo = 1.0;
    // Runs while a song that plays waits for an output to come back.
    QElapsedTimer lostSince;
    QDeadlineTimer nextTry;
    qint64 lastProcessedUSecs = 0;
    qint64 playedUSecs = 0;
    // By how much this start is counted ahead of what is heard.
    qint64 aheadUSecs = 0;
    PlayRegistration registration;
    // The loop is on while loopEndPart is above 0; times in milliseconds.
    qint64 loopStartPart = 0;
    qint64 loopStartTime = 0;
    qint64 loopEndPart = 0;
    qint64 loopEndTime = 0;
    CountDownEvent lastCountDown;
    QTimer foreplayTimer;
    QElapsedTimer foreplayClock;
    // Milliseconds of the song, below 0 until the music starts.
    double foreplayTime = 0.0;
};
