#pragma once

#include <QAudioDevice>

// The audio output that is the system's default now; null when there is none. May ask the sound
// server, which takes a few milliseconds.
QAudioDevice defaultOutput();
