#pragma once

#include "SongPositions.h"

#include <QStringList>

#include <array>
#include <functional>

// The texts of the positions table.

enum PositionsColumn {
    NumberColumn,
    PartColumn,
    TimeColumn,
    BeatsColumn,
    StepsColumn,
    PositionsColumnCount
};

// Which of the columns are on show; number and steps always are.
using ShownColumns = std::array<bool, PositionsColumnCount>;

// The texts of one row, one a column.
using PositionsRow = std::array<QString, PositionsColumnCount>;

// The row's texts: its number from 1, part, start time, the beats to the next position (the last
// one's to the end of the song, durationMs), steps. Without a bpm the beats are empty.
PositionsRow positionsRow(const SongPositions &positions, int row, int bpm, int durationMs);

using TextWidth = std::function<int(const QString &text)>;

struct WidestLine
{
    QString line;
    int width = 0; // pixels
};

// The line of a text that is widest; of several the first.
WidestLine widestLine(const QString &text, const TextWidth &width);

// What the size search needs to know of a whole table.
struct PositionsExtent
{
    PositionsRow widest; // the widest text of each shown column
    int lines = 0;       // rows plus the line feeds in their steps; parts don't count
};
PositionsExtent positionsExtent(const QList<PositionsRow> &rows, const ShownColumns &shown,
                                const TextWidth &width);
