#pragma once

// How soon the window answers a key, measured in this process: the settings tell the library.
namespace WindowAnswers {

// From P pressed to the first sound that leaves the process, of a window's first song, in
// milliseconds. The library's first song sounds from its beginning on.
double keyToSoundMs();

// From a key pressed to the end of the repaint, in milliseconds: what 95 of 100 take at the most.
struct Percentiles
{
    double selectMs = 0; // Down, held
    double screenMs = 0; // the keys of the five screens
};
// The library has so many songs, two at least.
Percentiles measure(int songs);

} // namespace WindowAnswers
