#pragma once

#include <QCollator>

#include <vector>

class SongListTableModel;

// How the rows of a song table sort by one column, worked out once for all comparisons: numbers,
// lengths and dates by their value, levels by their difficulty, texts as a dictionary has them.
class SongSortKeys
{
public:
    // Works them out if they aren't there for this column.
    void prepare(const SongListTableModel &model, int column);
    // To be called whenever a song or a row may have changed.
    void clear();
    // Of two rows that were there at prepare().
    bool isLess(int row, int other) const;

private:
    int preparedColumn = -1;
    // One of them is filled.
    std::vector<double> numbers;
    std::vector<QCollatorSortKey> texts;
};
