#pragma once

#include <QString>

// The tempo in percent, as the tempo display shows it: " +5%", " 0%", "-22%". A number of one
// digit gets a blank in front.
QString tempoText(int percent);

// The beats a minute at this tempo, "114b"; empty for a song without a bpm.
QString tempoBpmText(int percent, int bpm);

// The text of a preset button: "+5%", "0%", "-22%".
QString tempoPresetText(int percent);
