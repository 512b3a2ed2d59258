#pragma once

#include <QAudio>
#include <QAudioDevice>
#include <QElapsedTimer>
#include <QObject>

class QAudioFormat;
class QAudioSink;
class QIODevice;

// The default audio output, opened when there is something to play and kept from song to song
// while the format stays and it is the default. Lives on the GUI thread.
class AudioOutput : public QObject
{
    Q_OBJECT

public:
    explicit AudioOutput(QObject *parent = nullptr);
    ~AudioOutput() override;

    // Makes the output that is the default now ready for sound of this format. False when there is
    // no output, or none that takes this format.
    bool prepare(const QAudioFormat &format);
    // Plays what the source delivers, from now on; the output must be prepared. False when the
    // output could not be opened.
    bool start(QIODevice *source);
    // Silent at once; what was pulled and not yet heard is lost.
    void stop();

    // Stopped while there is no output. Idle means no more than that the source had nothing.
    QAudio::State state() const;
    QAudio::Error error() const;
    // Heard since start(), in microseconds.
    qint64 processedUSecs() const;
    // The source had nothing, and all that it had delivered before has been heard.
    bool hasPlayedOut() const;
    // The output played and is gone, or has given up.
    bool isLost() const;
    // Whether the output is among those that there are, as far as Qt knows.
    bool isPresent() const;
    // Gives a lost output up: the next start opens one anew, also where it has the same name.
    void giveUp();
    // Takes what fits out of the source now, and not at the next turn of the event loop.
    void pullAtOnce();
    // Factor; above 1.0 is no louder. Without an output it has no effect, also not later.
    void setVolume(double factor);

Q_SIGNALS:
    void stateChanged(QAudio::State state);

private:
    bool fits(const QAudioFormat &format) const;
    void create(const QAudioDevice &wanted, const QAudioFormat &format);
    void onStateChanged(QAudio::State state);

    QAudioSink *sink = nullptr;
    // Started, and not stopped by us.
    bool isRunning = false;
    QAudioDevice device;
    // What was still to be heard when the source had nothing more.
    QElapsedTimer idleSince;
    qint64 restMs = 0;
};
