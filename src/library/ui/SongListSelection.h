#pragma once

#include "Song.h"

#include <QList>

class FrozenTableView;
class SongListFilter;

// What is selected in a song table, and how keys move through it. The filter row is never selected
// this way. Moves that answer a song answer that of the row which is selected then, an empty
// pointer when none is.
class SongListSelection
{
public:
    // Both outlive it.
    SongListSelection(FrozenTableView *view, SongListFilter *songs);

    // The song of the one selected row; empty when none or several are selected.
    SongPtr song() const;
    // In the order of the rows.
    QList<SongPtr> songs() const;
    QList<int> rows() const;
    // The one selected row, -1 when none or several are selected.
    int row() const;

    void clear();
    // In a list where several rows can be selected.
    void selectAll();
    // Selects the song and shows it; clears the selection where the list doesn't hold it.
    void select(const SongPtr &wanted);
    // Selects the row with the song that lies next to this one; nothing happens without any.
    void selectNear(const SongPtr &wanted, int row);

    // Selects the row n rows away from the selected one, the first or last at most. Without one
    // selected row, up goes from the end of the list and down does nothing, unless it is for more
    // than a row: then it goes to the end of a selection of several.
    void scrollUp(int n);
    void scrollDown(int n);
    // Add the row before the first selected one, or behind the last.
    void extendUp();
    void extendDown();
    // Rows that fit on the screen less one, at least 1: a page.
    int pageStep() const;
    int visibleRows() const;

    SongPtr goToFirst();
    SongPtr goToLast();
    // From the last row to the first and back.
    SongPtr goToPrevious();
    SongPtr goToNext();
    SongPtr goPageUp();
    SongPtr goPageDown();
    // With exactly one row selected: its neighbour instead of it. At the end of the list nothing is
    // selected any more.
    SongPtr previousEntry();
    SongPtr nextEntry();

private:
    int lastRow() const;
    bool canSelectSeveral() const;
    SongPtr goTo(int target);
    SongPtr goToNeighbour(int step);
    void selectRow(int target);
    void add(int target);
    void show(int target);

    FrozenTableView *table;
    SongListFilter *filter;
};
