#include "SongListSelection.h"

#include "FrozenTableView.h"
#include "SongListFilter.h"

#include <QHeaderView>
#include <QItemSelectionModel>
#include <QScrollBar>

#include <algorithm>
#include <cstdlib>

SongListSelection::SongListSelection(FrozenTableView *view, SongListFilter *songs)
    : table(view)
    , filter(songs)
{ }

int SongListSelection::lastRow() const
{
    return filter->rowCount() - 1;
}

bool SongListSelection::canSelectSeveral() const
{
    return table->selectionMode() == QAbstractItemView::ExtendedSelection;
}

// The ranges span all columns; asking row by row would take as many looks as there are cells.
QList<int> SongListSelection::rows() const
{
    QList<int> found;
    for (const QItemSelectionRange &range : table->selectionModel()->selection()) {
        for (int row = std::max(range.top(), 1); row <= range.bottom(); ++row)
            found.append(row);
    }
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

int SongListSelection::row() const
{
    const QList<int> selected = rows();
    return selected.size() == 1 ? selected.constFirst() : -1;
}

SongPtr SongListSelection::song() const
{
    return filter->song(row());
}

QList<SongPtr> SongListSelection::songs() const
{
    QList<SongPtr> found;
    for (const int row : rows())
        found.append(filter->song(row));
    return found;
}

void SongListSelection::clear()
{
    table->clearSelection();
}

void SongListSelection::selectAll()
{
    if (!canSelectSeveral() || lastRow() < 1)
        return;
    const QItemSelection all(filter->index(1, 0),
                             filter->index(lastRow(), filter->columnCount() - 1));
    table->selectionModel()->select(all, QItemSelectionModel::ClearAndSelect);
}

void SongListSelection::select(const SongPtr &wanted)
{
    if (wanted && song() == wanted)
        return show(row());
    const int found = filter->rowOf(wanted);
    if (found < 0)
        return clear();
    selectRow(found);
}

void SongListSelection::selectNear(const SongPtr &wanted, int row)
{
    int nearest = -1;
    for (int found = 1; found <= lastRow(); ++found) {
        const bool isNearer = nearest < 0 || std::abs(found - row) < std::abs(nearest - row);
        if (isNearer && filter->song(found) == wanted)
            nearest = found;
    }
    if (nearest > 0)
        selectRow(nearest);
}

// Whatever modifiers are down: a key that moves has some of its own.
void SongListSelection::selectRow(int target)
{
    const QModelIndex index = filter->index(target, std::max(table->currentIndex().column(), 0));
    const int left = table->horizontalScrollBar()->value();
    table->selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect
                                                        | QItemSelectionModel::Rows);
    show(target);
    table->horizontalScrollBar()->setValue(left);
}

void SongListSelection::show(int target)
{
    const int left = table->horizontalScrollBar()->value();
    table->scrollTo(filter->index(target, 0));
    table->horizontalScrollBar()->setValue(left);
}

void SongListSelection::scrollUp(int n)
{
    const int from = row() < 0 ? filter->rowCount() : row();
    if (from <= 1)
        return;
    selectRow(n < from ? from - n : 1);
    if (n >= from)
        table->scrollToTop();
}

void SongListSelection::scrollDown(int n)
{
    const QList<int> selected = rows();
    if (selected.isEmpty())
        return;
    if (selected.size() == 1 && n <= lastRow() - selected.constFirst())
        return selectRow(selected.constFirst() + n);
    if (n == 1)
        return;
    selectRow(lastRow());
    table->scrollToBottom();
}

void SongListSelection::add(int target)
{
    table->selectionModel()->select(filter->index(target, 0),
                                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
}

void SongListSelection::extendUp()
{
    const QList<int> selected = rows();
    if (!canSelectSeveral() || selected.isEmpty() || selected.constFirst() < 2)
        return;
    const int target = selected.constFirst() - 1;
    add(target);
    // Where the next ones come from has to be seen as well.
    show(std::max(target - 2, 1));
    show(target);
}

void SongListSelection::extendDown()
{
    const QList<int> selected = rows();
    if (!canSelectSeveral() || !table->isEnabled() || selected.isEmpty()
        || selected.constLast() >= lastRow())
        return;
    add(selected.constLast() + 1);
    show(selected.constLast() + 1);
}

int SongListSelection::visibleRows() const
{
    const int first = table->rowHeight(1);
    const int height = first > 0 ? first : table->verticalHeader()->defaultSectionSize();
    return std::max(1, table->viewport()->height() / height);
}

int SongListSelection::pageStep() const
{
    return std::max(1, visibleRows() - 1);
}

SongPtr SongListSelection::goTo(int target)
{
    if (lastRow() < 1)
        return {};
    selectRow(std::clamp(target, 1, lastRow()));
    return song();
}

SongPtr SongListSelection::goToFirst()
{
    return goTo(1);
}

SongPtr SongListSelection::goToLast()
{
    return goTo(lastRow());
}

SongPtr SongListSelection::goToPrevious()
{
    return goTo(row() > 1 ? row() - 1 : lastRow());
}

SongPtr SongListSelection::goToNext()
{
    return goTo(row() >= 1 && row() < lastRow() ? row() + 1 : 1);
}

SongPtr SongListSelection::goPageUp()
{
    return goTo((row() < 0 ? filter->rowCount() : row()) - visibleRows());
}

SongPtr SongListSelection::goPageDown()
{
    return goTo(std::max(row(), 0) + visibleRows());
}

SongPtr SongListSelection::goToNeighbour(int step)
{
    const int before = row();
    if (before < 0)
        return {};
    clear();
    const int target = before + step;
    return target >= 1 && target <= lastRow() ? goTo(target) : SongPtr();
}

SongPtr SongListSelection::previousEntry()
{
    return goToNeighbour(-1);
}

SongPtr SongListSelection::nextEntry()
{
    return goToNeighbour(1);
}
