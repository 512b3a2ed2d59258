#pragma once

#include "Song.h"

#include <QIODevice>

#include <array>
#include <memory>
#include <optional>

namespace soundtouch {
class SoundTouch;
}

// What the audio output pulls its sound from: the song's decoded buffers, stretched to the tempo
// without a change of pitch, as 16-bit samples at the song's own rate and channel count. Each
// pull stretches just enough input to answer it. Lives on the GUI thread like the output itself.
//
// A pull that gets nothing is either the end (hasEnded()) or a decoder that is behind; in that
// case readyRead() comes with the next decoded buffer.
class PlayerDevice : public QIODevice
{
    Q_OBJECT

public:
    explicit PlayerDevice(QObject *parent = nullptr);
    ~PlayerDevice() override;

    // Prepares playing from the first buffer on. An empty song or one without a file gives
    // silence; any other must have a channel count (1 to 16) and a sample rate (1 to 192000 Hz).
    void setSong(const SongPtr &newSong, double newTempo);
    // Factor, 1.0 = as recorded; heard from the next pulled block on.
    void setTempo(double newTempo);
    // Goes on at the first buffer that begins after this time of the song; if that one isn't
    // decoded yet, silence until it is. A time behind the beginning of the song's last buffer
    // changes nothing: right after setSong() that is the song's beginning.
    void seekToPlaytime(qint64 milliseconds);

    // Song time that the last seek left out, in microseconds.
    qint64 skippedUSecs() const { return skipped; }
    // How much earlier than its place in the song a sound first comes out of the stretcher, on
    // average; in microseconds of the output.
    qint64 leadUSecs() const;

    // Nothing is left to play, and nothing more will come.
    bool hasEnded() const;

    bool isSequential() const override { return true; }
    // Size of the buffers known at setSong(), whatever has been played: only a hint of whether
    // there is sound at all.
    qint64 bytesAvailable() const override;

protected:
    qint64 readData(char *data, qint64 maxlen) override;
    qint64 writeData(const char *data, qint64 maxlen) override;

private:
    SongAudioData *decoded() const;
    int decodedCount() const;
    void configureStretcher();
    void fillStretcher();
    void feed(const QAudioBuffer &buffer);
    qint64 drainStretcher(char *data, qint64 maxlen);
    bool seekTo(qint64 target, int from);
    void onBufferAdded();
    void onDecodingEnded();
    void listenTo(const SongAudioData *audio);
    void wakeReader();

    SongPtr song;
    double tempo = 1.0;
    // Of the stretcher.
    uint channels = 1;
    qint64 totalBytes = 0;
    qint64 readBytes = 0;
    qint64 bufferIndex = 0;
    qint64 skipped = 0;
    bool starving = false;
    // Microseconds of the song, while the decoder has yet to get there.
    std::optional<qint64> pendingSeek;
    std::array<QMetaObject::Connection, 2> supply;
    std::shared_ptr<soundtouch::SoundTouch> stretcher;
};
