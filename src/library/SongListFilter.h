#pragma once

#include "Song.h"
#include "SongSortKeys.h"

#include <QSortFilterProxyModel>

class SongListTableModel;

// What a view shows of a song table: the filter row first, below it the library's songs sorted by
// a column, or a playlist's in the order of its file.
class SongListFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    // The model outlives the proxy.
    explicit SongListFilter(SongListTableModel *songModel, bool globalSearch,
                            QObject *parent = nullptr);

    // Whether the search over all columns goes for this list.
    bool isGlobalSearchEnabled() const { return globalSearchEnabled; }
    void setGlobalSearchEnabled(bool enabled);
    // Of all songs shown, in seconds.
    int totalPlaylength() const;
    // Empty for the filter row and outside the table.
    SongPtr song(int row) const;
    // The first row that shows the song, -1 for none.
    int rowOf(const SongPtr &song) const;

    // A playlist keeps the order of its file; column -1 gives any list its own order back.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    void followChanges();

    SongListTableModel *model;
    bool globalSearchEnabled;
    mutable SongSortKeys keys;
};
