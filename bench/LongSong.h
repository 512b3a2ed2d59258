#pragma once

#include <QString>

// A dance as long as real ones.
namespace LongSong {

constexpr int ms = 180000;

// Writes it below the directory (made when missing): three minutes of sound from the first moment
// on, with its positions. The answer is its file. Needs the song store chain.
QString write(const QString &directory, const QString &name);

} // namespace LongSong
