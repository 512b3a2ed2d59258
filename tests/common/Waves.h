#pragma once

#include <QList>

// Sounds that are made for a test, and what can be said of a sound: samples of 16 bits at 44100 Hz.
namespace Waves {

constexpr int rate = 44100;

// -1.0 to 1.0, t in seconds.
double sine(double hertz, double t);

// Stereo samples from a function of the time in seconds to -1.0 to 1.0.
template <typename Wave> QList<qint16> render(double seconds, Wave wave, double peak = 16000.0)
{
    QList<qint16> samples;
    const int frames = static_cast<int>(seconds * rate);
    samples.reserve(frames * 2);
    for (int i = 0; i < frames; ++i)
        samples.insert(samples.size(), 2, static_cast<qint16>(wave(double(i) / rate) * peak));
    return samples;
}

// One channel out of interleaved ones: their mean.
QList<qint16> mono(const QList<qint16> &samples, int channels);

// The following are about one channel; most of them about the samples [from, to).

// The loudest sample.
int peak(const QList<qint16> &samples);

// Of a tone, in Hz, from its zero crossings. 0 when there are none.
double frequency(const QList<qint16> &samples, qsizetype from, qsizetype to);
double centsFrom(double hertz, double measured);
// The largest step from one sample to the next.
int largestJump(const QList<qint16> &samples, qsizetype from, qsizetype to);

// Where a piece of sound was found, and how like it is there: 1 is the same but for its loudness.
struct Match
{
    qsizetype frame = -1;
    double likeness = 0;
};
// The first place at which the piece is as like as that, or else the best one; its first sample
// lies in [from, to).
Match find(const QList<qint16> &piece, const QList<qint16> &samples, qsizetype from, qsizetype to,
           double likeness);

} // namespace Waves
