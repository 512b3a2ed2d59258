#pragma once

#include <vector>

class SongListTableModel;

// How the rows of a song table sort by one column, worked out once for all comparisons: numbers,
// lengths and dates by their value, levels by their difficulty, texts as a dictionary has them.
class SongSortKeys
{
public:
    void prepare(const SongListTableModel &model, int column);
    bool arePrepared() const { return preparedColumn >= 0; }
    bool arePreparedFor(int column) const { return preparedColumn == column; }
    // To be called whenever a song or a row may have changed.
    void clear();
    // Of two rows that were there at prepare().
    bool isLess(int row, int other) const;

private:
    void prepareTexts(const SongListTableModel &model, int column);

    int preparedColumn = -1;
    // Of texts their places in the order.
    std::vector<double> numbers;
};
