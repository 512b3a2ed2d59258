#pragma once

#include "Score.h"

#include <cstdint>
#include <vector>

namespace Demo {

// Plays a score: 16-bit samples at the score's rate, channels interleaved, the same ones at every
// call. A kick marks every beat: its onset lies on the sample that beatFrame() tells.
std::vector<std::int16_t> play(const Score &score);

// The first sample of beat n, counted from 0.
std::size_t beatFrame(const Score &score, int beat);

} // namespace Demo
