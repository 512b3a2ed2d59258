#include "SongListFilter.h"

#include "Clock.h"
#include "FilterSource.h"
#include "SongListTableModel.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

constexpr int idleWork = 3; // milliseconds a turn of the event loop

} // namespace

SongListFilter::SongListFilter(SongListTableModel *songModel, bool globalSearch, QObject *parent)
    : QSortFilterProxyModel(parent)
    , model(songModel)
    , globalSearchEnabled(globalSearch)
    , prepared(*songModel)
{
    idle.setSingleShot(true);
    connect(&idle, &QTimer::timeout, this, &SongListFilter::prepareInIdleTime);
    // Before the proxy follows a change of the model itself, what was known before is gone.
    followChanges();
    setSourceModel(songModel);
    idle.start();
}

void SongListFilter::followChanges()
{
    connect(model, &SongListTableModel::modelReset, this, &SongListFilter::noteRowsChanged);
    connect(model, &SongListTableModel::rowsRemoved, this, &SongListFilter::noteRowsChanged);
    connect(model, &SongListTableModel::rowsMoved, this, &SongListFilter::noteRowsChanged);
    connect(model, &SongListTableModel::dataChanged, this, &SongListFilter::noteSongsChanged);
    // At the beginning of every sort, and of an invalidate() by who has changed a song.
    connect(this, &QAbstractItemModel::layoutAboutToBeChanged, this, &SongListFilter::noteNewOrder);
}

void SongListFilter::noteChange()
{
    asked = false;
    settled = false;
}

void SongListFilter::noteRowsChanged()
{
    noteChange();
    keys.clear();
    prepared.rowsChanged();
    idle.start();
}

void SongListFilter::noteSongsChanged(const QModelIndex &first, const QModelIndex &last)
{
    noteChange();
    // The filter row has no place in the order.
    if (last.row() == 0)
        return;
    keys.clear();
    prepared.songsChanged(first.row(), last.row());
}

void SongListFilter::noteNewOrder()
{
    if (applying)
        return;
    noteChange();
    keys.clear();
    prepared.songsChanged();
}

// The first key in the search field then has as little to do as any other.
void SongListFilter::prepareInIdleTime()
{
    if (!prepared.prepareSome(idleWork))
        return idle.start();
    if (sortColumn() >= 0 && prepared.count() != preparedForKeys)
        prepareKeys(sortColumn());
}

void SongListFilter::prepareKeys(int column) const
{
    keys.prepare(*model, column);
    preparedForKeys = prepared.count();
}

void SongListFilter::setSource(const FilterSource *source)
{
    filterSource = source;
    noteChange();
}

void SongListFilter::setGlobalSearchEnabled(bool enabled)
{
    if (globalSearchEnabled == enabled)
        return;
    globalSearchEnabled = enabled;
    applyFilters();
}

void SongListFilter::setDateRange(int column, QDate from, QDate to)
{
    if (column == FileDateColumn)
        fileDates = {from, to};
    else if (column == EventDateColumn)
        eventDates = {from, to};
}

// A new layout: to tell the view of thousands of rows that come or go takes three times as long.
void SongListFilter::applyFilters()
{
    const std::vector<char> before = answers;
    takeQuestion();
    forgetOldKeys();
    const bool sameOrder = sortColumn() < 0 || keys.arePrepared();
    if (!settled || !sameOrder || answers != before) {
        const QScopedValueRollback<bool> own(applying, true);
        invalidate();
    }
    settled = true;
    Q_EMIT filtersApplied();
}

// The order of before still holds if no song has changed since.
void SongListFilter::forgetOldKeys()
{
    if (!keys.arePrepared())
        return;
    if (question.everything && prepared.isWhole())
        prepared.renew();
    if (!prepared.isWhole() || prepared.count() != preparedForKeys)
        keys.clear();
}

void SongListFilter::takeQuestion() const
{
    const Question before = std::exchange(question, ask());
    asked = true;
    if (question.everything)
        return answers.clear();
    const quint64 preparedBefore = prepared.count();
    prepared.renew();
    const bool canNarrow = settled && prepared.count() == preparedBefore;
    if (!canNarrow || !question.narrows(before))
        answers.assign(static_cast<std::size_t>(model->rowCount()), true);
    answer();
}

// Each letter more leaves fewer songs to look at.
void SongListFilter::answer() const
{
    for (std::size_t row = 1; row < answers.size(); ++row)
        if (answers[row])
            answers[row] = passes(static_cast<int>(row));
}

// What is typed behind a text makes its last word or phrase longer, or begins another one.
bool SongListFilter::Question::narrows(const Question &other) const
{
    return !other.everything && text.startsWith(other.text) && filterTexts == other.filterTexts
           && terms == other.terms;
}

SongListFilter::Question SongListFilter::ask() const
{
    Question asking;
    if (filterSource && filterSource->isStartingUp())
        return asking;
    if (filterSource && globalSearchEnabled)
        asking.text = filterSource->searchText();
    asking.search = SearchQuery(asking.text);
    for (const SongColumnRow &row : songColumns()) {
        asking.filterTexts.append(model->filterText(row.column));
        if (!asking.filterTexts.constLast().isEmpty())
            asking.filters.emplace_back(row.column, asking.filterTexts.constLast());
    }
    asking.everything = asking.search.isEmpty() && asking.filters.empty();
    asking.terms.today = Clock::today();
    asking.terms.fileDates = fileDates;
    asking.terms.eventDates = eventDates;
    if (filterSource)
        asking.terms.tempoBorders = filterSource->tempoBorders();
    return asking;
}

bool SongListFilter::filterAcceptsRow(int sourceRow, const QModelIndex &) const
{
    if (sourceRow == 0)
        return true;
    // Once for all rows: who changes what is asked, or a song, tells so.
    if (!asked)
        takeQuestion();
    return question.everything || answers[static_cast<std::size_t>(sourceRow)];
}

bool SongListFilter::passes(int sourceRow) const
{
    const PreparedSong &song = prepared.at(sourceRow);
    return question.search.matches(song.searchTexts())
           && std::all_of(question.filters.cbegin(), question.filters.cend(),
                          [&](const ColumnFilter &filter) {
                              return song.passes(filter, question.terms, *model->song(sourceRow),
                                                 model->place(sourceRow));
                          });
}

int SongListFilter::totalPlaylength() const
{
    int seconds = 0;
    for (int row = 1; row < rowCount(); ++row)
        seconds += song(row)->getPlayLength();
    return seconds;
}

const SongPtr &SongListFilter::song(int row) const
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
    if (!keys.arePreparedFor(left.column()))
        prepareKeys(left.column());
    return keys.isLess(left.row(), right.row());
}
