#pragma once

#include "Score.h"

namespace Demo {

// Writes the songs below directory (made when missing) as mp3 files with full tags, and a
// "demo.json" that tells each song's file, tempo, beats and parts. Files of the same names are
// replaced. Needs the song store chain and the program "lame". The same bytes at every call.
// The answer is empty, or says what failed.
QString writeLibrary(const QString &directory, const QList<Score> &scores);

} // namespace Demo
