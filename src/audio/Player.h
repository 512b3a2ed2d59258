#pragma once

#include "Song.h"

#include <QObject>

class PlayerEngine2;

// Plays one song: what the rest of the program talks to. Everything happens on the GUI thread;
// the requests are carried out before they return, and the notifications come from within them
// or from the clock. Times are milliseconds of the song, tempo is in percent (0 = as recorded,
// -40 to 40).
class Player : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isPlaying READ isPlaying)
    Q_PROPERTY(bool isLooping READ isLooping)
    Q_PROPERTY(int loopStart READ getLoopStart)
    Q_PROPERTY(int loopEnd READ getLoopEnd)
    Q_PROPERTY(int playtimeTotal READ getPlaytimeTotal)
    Q_PROPERTY(int playtime READ getPlaytime)
    Q_PROPERTY(SongPtr song READ getSong WRITE setSong)
    Q_PROPERTY(double tempo READ getTempo WRITE setTempo)

public:
    explicit Player(QObject *parent = nullptr);
    ~Player() override;

    // Stops what plays, lets go of the former song and decodes the new one, with that song's own
    // tempo; may run the event loop for up to 100 ms. The same song again changes nothing.
    void setSong(const SongPtr &song);
    SongPtr getSong() const;
    void setTempo(double percent);

    // From a start until a pause, a stop or the end; also during the foreplay.
    bool isPlaying() const;
    // False always, also while a part loops.
    bool isLooping() const { return false; }
    // The part to which the loop jumps, and the part behind which it does; 0 without a loop.
    int getLoopStart() const;
    int getLoopEnd() const;
    // The song's length in milliseconds, known to the second; 0 without a song.
    int getPlaytimeTotal() const;
    // 0 without a song, below 0 during the foreplay.
    int getPlaytime() const;
    double getTempo() const;
    // Gives the output what it can take. For who keeps the event loop waiting for longer than the
    // sound that is ready lasts (some 200 ms), every now and then; nothing is told meanwhile.
    void keepSounding();

public Q_SLOTS:
    void start();
    // Index into the song's positions; from the beginning where there is none.
    void startFromPart(int aPartIndex);
    void startFromPlaytime(int aStartPosition);
    // Plays a part again and again until the next stop; give the same index twice. The first part
    // is only started, and the last one runs on to the end of the song.
    void startLoop(int aPartIndexStart, int aPartIndexEnd);
    void stop();
    void pause();
    // Goes on where pause() left off; without a pause before it, from the beginning.
    void resume();
    // Tells the active part again, whether or not it has changed.
    void refreshActivePart();
    // Writes the current song's decoded sound to a WAV file, at this tempo in percent; see
    // Song::convert(). What plays is not disturbed, but the window stands still meanwhile.
    void convert(const QString &filename, int tempo, Song::EFileFormat format);
    void convert(const QString &filename, int tempo);

Q_SIGNALS:
    void requestStart();
    void requestStartFromPart(int aPartIndex);
    void requestStartFromPlaytime(int aStartPosition);
    void requestStartLoop(int aPartIndexStart, int aPartIndexEnd);
    void requestStop();
    void requestPause();
    void requestResume();
    void requestSetSong(SongPtr pSong);
    void requestSetTempo(double tempo);
    // Factor 0.0 to 2.0.
    void requestSetVolume(double volume);
    // Percent, -15 to 15; kept, but the sound doesn't change by it.
    void requestSetPitch(double pitch);
    void requestConvert(QString filename, int tempo, Song::EFileFormat format);

    // In steps of 100 ms.
    void notifyPlayTimeChanged(int playtime);
    // False at a pause, a stop and the end of the song.
    void notifyIsPlayingChanged(bool isPlaying);
    // Index of the position that plays, -1 for none.
    void notifyActivePartChanged(int part);
    // The number to show now, or that there is none.
    void notifyCountDown(CountDownEvent countdown);

private Q_SLOTS:
    void doNotifyPlayTimeChanged(int playtime);
    void doNotifyIsPlayingChanged(bool isPlaying);
    void doNotifyActivePartChanged(int part);
    void doNotifyCountDown(CountDownEvent countdown);

private:
    void connectRequests();
    void connectNotifications();

    PlayerEngine2 *engine;
};
