#include "LibraryPage.h"

#include "SongListTableModel.h"

#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

LibraryPage::LibraryPage(SongListTableModel *songModel, QWidget *parent)
    : QWidget(parent)
    , model(songModel)
    , proxy(new QSortFilterProxyModel(this))
    , tableViewMusicList(new QTableView(this))
{
    setObjectName(QStringLiteral("page1_MusicList"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tableViewMusicList);
    proxy->setSourceModel(songModel);
    proxy->setSortRole(SongListTableModel::SortRole);
    proxy->setSortLocaleAware(true);
    proxy->setSortCaseSensitivity(Qt::CaseInsensitive);
    setUpTable();
}

void LibraryPage::setUpTable()
{
    QTableView *table = tableViewMusicList;
    table->setObjectName(QStringLiteral("tableViewMusicList"));
    table->setModel(proxy);
    table->setFocusPolicy(Qt::NoFocus);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    table->verticalHeader()->hide();
    QHeaderView *header = table->horizontalHeader();
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setStretchLastSection(true);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->setSortingEnabled(true);
    table->sortByColumn(SongListTableModel::TitleColumn, Qt::AscendingOrder);
    connect(table, &QTableView::doubleClicked, this, &LibraryPage::songActivated);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &LibraryPage::selectionChanged);
}

void LibraryPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!columnsPlaced)
        spreadColumns();
    columnsPlaced = true;
}

void LibraryPage::spreadColumns()
{
    constexpr int percent[SongListTableModel::ColumnCount] = {25, 18, 14, 7, 9, 16, 11};
    const int width = tableViewMusicList->viewport()->width();
    for (int column = 0; column < SongListTableModel::ColumnCount; ++column)
        tableViewMusicList->setColumnWidth(column, width * percent[column] / 100);
}

SongPtr LibraryPage::selectedSong() const
{
    const int row = selectedRow();
    return row < 0 ? SongPtr() : model->song(proxy->mapToSource(proxy->index(row, 0)).row());
}

int LibraryPage::selectedRow() const
{
    const QModelIndexList rows = tableViewMusicList->selectionModel()->selectedRows();
    return rows.size() == 1 ? rows.constFirst().row() : -1;
}

void LibraryPage::clearSelection()
{
    tableViewMusicList->clearSelection();
}

void LibraryPage::selectRow(int row)
{
    tableViewMusicList->selectRow(row);
    tableViewMusicList->scrollTo(proxy->index(row, 0));
}

void LibraryPage::scrollUpMusicList(int n)
{
    const int row = selectedRow() < 0 ? proxy->rowCount() : selectedRow();
    if (row > 0)
        selectRow(std::max(row - n, 0));
}

void LibraryPage::scrollDownMusicList(int n)
{
    const int row = selectedRow();
    if (row >= 0)
        selectRow(n < proxy->rowCount() - row ? row + n : proxy->rowCount() - 1);
}

int LibraryPage::pageStep() const
{
    const int rowHeight = tableViewMusicList->verticalHeader()->defaultSectionSize();
    return std::max(1, tableViewMusicList->viewport()->height() / rowHeight - 1);
}

void LibraryPage::setFontSize(int points)
{
    QFont font = tableViewMusicList->font();
    font.setPointSize(points);
    // On a screen of many dots an inch the letters need more than 1.7 pixels a point.
    const int rowHeight = std::max(static_cast<int>(points * 1.7), QFontMetrics(font).height() + 2);
    tableViewMusicList->verticalHeader()->setMinimumSectionSize(rowHeight);
    tableViewMusicList->verticalHeader()->setDefaultSectionSize(rowHeight);
    tableViewMusicList->horizontalHeader()->setFixedHeight(rowHeight);
}

QByteArray LibraryPage::columnConfig() const
{
    return tableViewMusicList->horizontalHeader()->saveState();
}

bool LibraryPage::restoreColumnConfig(const QByteArray &config)
{
    columnsPlaced = tableViewMusicList->horizontalHeader()->restoreState(config);
    return columnsPlaced;
}
