#pragma once

#include "StepSong.h"

#include <QList>
#include <QString>

// How long after a beat is heard the player tells that its part has begun.
struct StepOffset
{
    int percent = 0;
    // What was done with the song: "whole", "seeks" …
    QString how;
    double songSeconds = 0;
    double ms = 0;
};

using StepOffsets = QList<StepOffset>;

// As a table of commas and as a picture (PNG), one line a tempo. False when it can't be written.
bool writeTable(const QString &path, const StepOffsets &offsets);
bool writePicture(const QString &path, const StepOffsets &offsets, double boundMs);
