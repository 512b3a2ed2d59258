#pragma once

#include <QString>

// The texts in which times are shown. Every part but the first has two digits.

// Length of a song: "2:05", "1:02:05"; empty for 0.
QString durationText(int seconds);

// Start of a position, to the millisecond: "01:02:345", "-00:00:300". Minutes wrap at an hour.
QString positionTimeText(int ms);

// Run time of the play: "02:05". A time before the start counts up to "00:00" in whole seconds,
// so -500 ms is "-00:01".
QString runTimeText(int ms);
