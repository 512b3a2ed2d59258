#pragma once

#include <QAudioDevice>

// The audio output that is the system's default now; null when there is none. May ask the sound
// server, which takes a few milliseconds; where it doesn't answer in time, present stays the
// default as long as it is there.
QAudioDevice defaultOutput(const QAudioDevice &present = {});
