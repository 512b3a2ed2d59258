#pragma once

#include <QList>
#include <QString>

// Small real music files, made with ffmpeg's own encoders.
namespace Samples {

struct Tone
{
    double seconds = 2.0;
    int hertz = 440;
    int rate = 44100;
    int channels = 2;
};

// Writes a sine tone to path; the suffix (mp3, m4a, flac, ogg, wav) chooses the format. An mp3
// bears no tag at all. False, with a warning in the test's output, when ffmpeg failed.
bool writeTone(const QString &path, const Tone &tone = {});

// Writes 16-bit samples (channels interleaved) as they are, as a WAV file. False when it can't.
bool writeWave(const QString &path, const QList<qint16> &samples, int rate = 44100,
               int channels = 2);
// Encodes an existing music file into another; the suffix chooses the format, as above.
bool encode(const QString &from, const QString &to);

// Writes the first frames of a tagless mp3 (MPEG 1 layer 3, 44100 Hz), without the information
// frame in front of them, as another one. False when it can't.
bool writeMp3Frames(const QString &from, const QString &to, int count);

} // namespace Samples
