#include "SongListFilter.h"

#include "SongListTableModel.h"

SongListFilter::SongListFilter(SongListTableModel *songModel, bool globalSearch, QObject *parent)
    : QSortFilterProxyModel(parent)
    , model(songModel)
    , globalSearchEnabled(globalSearch)
{
    // Before the proxy follows a change of the model itself, the keys of before are gone.
    followChanges();
    setSourceModel(songModel);
}

void SongListFilter::followChanges()
{
    const auto forget = [this] { keys.clear(); };
    connect(model, &SongListTableModel::modelReset, this, forget);
    connect(model, &SongListTableModel::dataChanged, this, forget);
    connect(model, &SongListTableModel::rowsRemoved, this, forget);
    connect(model, &SongListTableModel::rowsMoved, this, forget);
    // At the beginning of every sort, and of an invalidate() by who has changed a song.
    connect(this, &QAbstractItemModel::layoutAboutToBeChanged, this, forget);
}

void SongListFilter::setGlobalSearchEnabled(bool enabled)
{
    if (globalSearchEnabled == enabled)
        return;
    globalSearchEnabled = enabled;
    invalidateFilter();
}

int SongListFilter::totalPlaylength() const
{
    int seconds = 0;
    for (int row = 1; row < rowCount(); ++row)
        seconds += song(row)->getPlayLength();
    return seconds;
}

SongPtr SongListFilter::song(int row) const
{
    return model->song(mapToSource(index(row, 0)).row());
}

int SongListFilter::rowOf(const SongPtr &wanted) const
{
    for (int row = 1; wanted && row < rowCount(); ++row) {
        if (song(row) == wanted)
            return row;
    }
    return -1;
}

void SongListFilter::sort(int column, Qt::SortOrder order)
{
    if (column < 0 || model->isMaster())
        QSortFilterProxyModel::sort(column, order);
}

// The filter row stays on top in both orders: against it, who is less depends on the order.
bool SongListFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    if (left.row() == 0 || right.row() == 0)
        return left.row() != right.row()
               && (left.row() == 0) == (sortOrder() == Qt::AscendingOrder);
    keys.prepare(*model, left.column());
    return keys.isLess(left.row(), right.row());
}
