#pragma once

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

} // namespace Samples
