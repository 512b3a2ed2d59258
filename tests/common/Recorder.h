#pragma once

#include <QList>
#include <QObject>
#include <QProcess>

// What a listener hears: records the monitor of the session's null sink and knows when each of
// its sound frames was heard, on the clock of now(). One channel, 44100 frames a second.
// What is heard reaches the recorder some 10 to 30 ms late; it never gets there early.
class Recorder : public QObject
{
    Q_OBJECT

public:
    static constexpr int rate = 44100;
    // Below this nobody hears anything.
    static constexpr int silence = 200;

    Recorder();
    ~Recorder() override;

    // Waits until the first frames have come. False when there is no sink to record.
    bool start(const QString &monitor = QStringLiteral("null.monitor"));
    // Waits until all that was heard up to now has come.
    void catchUp();
    void stop();

    // Milliseconds of a steady clock.
    static double now();
    double timeOf(qsizetype frame) const;
    // Within the record; of a time before it, 0.
    qsizetype frameAt(double time) const;
    const QList<qint16> &samples() const { return frames; }

    // First frame from here on that can be heard, -1 if there is none.
    qsizetype firstSound(qsizetype from = 0) const;
    // Last frame that can be heard, -1 if there is none.
    qsizetype lastSound() const;
    // Longest silence between two frames, in milliseconds.
    double longestSilence(qsizetype from, qsizetype to) const;
    // Of a tone, in Hz, from its zero crossings.
    double frequency(qsizetype from, qsizetype to) const;
    // Begins of sounds that come after at least this much silence.
    QList<qsizetype> onsets(double silenceMs, qsizetype from = 0) const;

private:
    void take();
    double begin(qsizetype frame) const;

    QProcess process;
    QByteArray raw;
    QList<qint16> frames;
    // For each second of the record, when the whole record would have begun.
    QList<double> begins;
};
