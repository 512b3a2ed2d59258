#pragma once

#include "PreparedSongs.h"
#include "SearchText.h"
#include "Song.h"
#include "SongFilterRules.h"
#include "SongSortKeys.h"

#include <QSortFilterProxyModel>
#include <QTimer>

#include <vector>

class FilterSource;
class SongListTableModel;

// What a view shows of a song table: the filter row first, below it those of the library's songs
// that the search and the filters of all columns let through, sorted by a column, or a playlist's
// in the order of its file.
class SongListFilter : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    // The model outlives the proxy.
    explicit SongListFilter(SongListTableModel *songModel, bool globalSearch,
                            QObject *parent = nullptr);

    // Null, as at first, for no search. It comes into force with the next applyFilters().
    void setSource(const FilterSource *source);
    // Whether the search over all columns goes for this list.
    bool isGlobalSearchEnabled() const { return globalSearchEnabled; }
    void setGlobalSearchEnabled(bool enabled);
    // The span that the first date preset of FileDateColumn or EventDateColumn asks for; other
    // columns are ignored. It comes into force with the next applyFilters().
    void setDateRange(int column, QDate from, QDate to);
    // To be called when the search text, filter texts or tempo bands have changed: cheaper than
    // invalidate(), which is for songs that have changed.
    void applyFilters();

    // Of all songs shown, in seconds.
    int totalPlaylength() const;
    // Empty for the filter row and outside the table.
    const SongPtr &song(int row) const;
    // The first row that shows the song, -1 for none.
    int rowOf(const SongPtr &song) const;

    // A playlist keeps the order of its file; column -1 gives any list its own order back.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

Q_SIGNALS:
    // Behind applyFilters(), when other songs may be shown.
    void filtersApplied();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    // What is asked of each song, taken apart once for all rows.
    struct Question
    {
        bool everything = true;
        QString text;
        QStringList filterTexts;
        SearchQuery search;
        std::vector<ColumnFilter> filters;
        FilterTerms terms;

        // True when it can be answered by yes only where the other one was.
        bool narrows(const Question &other) const;
    };

    void followChanges();
    void noteRowsChanged();
    void noteSongsChanged(const QModelIndex &first, const QModelIndex &last);
    void noteNewOrder();
    void prepareInIdleTime();
    void prepareKeys(int column) const;
    void noteChange();
    void forgetOldKeys();
    Question ask() const;
    void takeQuestion() const;
    void answer() const;
    bool passes(int sourceRow) const;

    SongListTableModel *model;
    const FilterSource *filterSource = nullptr;
    bool globalSearchEnabled;
    DateSpan fileDates;
    DateSpan eventDates;
    bool applying = false;
    QTimer idle;
    mutable PreparedSongs prepared;
    mutable bool asked = false;
    mutable Question question;
    mutable std::vector<char> answers; // a yes or no for each row; nothing for a yes to everything
    // The proxy shows just what was answered, and nothing has changed since.
    bool settled = false;
    mutable SongSortKeys keys;
    // How many songs had been prepared when the keys were made.
    mutable quint64 preparedForKeys = 0;
};
