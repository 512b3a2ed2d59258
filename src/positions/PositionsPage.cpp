#include "PositionsPage.h"

#include "Player.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QMenu>
#include <QVBoxLayout>

#include <algorithm>

PositionsPage::PositionsPage(Player *songPlayer, QWidget *parent)
    : QWidget(parent)
    , player(songPlayer)
    , tableWidgetPositions(new PositionsTable(this))
{
    setObjectName(QStringLiteral("page2_Lyrics"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(tableWidgetPositions);
    for (const PositionsColumn column : {PartColumn, TimeColumn, BeatsColumn})
        tableWidgetPositions->setColumnHidden(column, !look.shown[column]);
    connectTable();
    followSectionSizes();
}

PositionsPage::~PositionsPage()
{
    // Hiding the table at its end resizes its sections; there is nothing to rebuild then.
    disconnect(sectionConnection);
}

void PositionsPage::connectTable()
{
    connect(tableWidgetPositions, &QTableWidget::pressed, this,
            &PositionsPage::onTableWidgetPositions_pressed);
    connect(tableWidgetPositions, &QTableWidget::doubleClicked, this,
            &PositionsPage::onTableWidgetPositions_doubleClicked);
    connect(tableWidgetPositions, &QWidget::customContextMenuRequested, this,
            &PositionsPage::onTableWidgetPositions_customContextMenuRequested);
}

void PositionsPage::followSectionSizes()
{
    sectionConnection
        = connect(tableWidgetPositions->horizontalHeader(), &QHeaderView::sectionResized, this,
                  &PositionsPage::refreshPositionsWindow);
}

void PositionsPage::setSong(const SongPtr &newSong)
{
    song = newSong;
    tableWidgetPositions->clearSelection();
    tableWidgetPositions->setRowCount(song ? song->getPositions().count() : 0);
    Q_EMIT markedRowChanged();
}

void PositionsPage::setContextMenuActions(const QList<QAction *> &play,
                                          const QList<QAction *> &other)
{
    playActions = play;
    otherActions = other;
}

int PositionsPage::rowCount() const
{
    return tableWidgetPositions->rowCount();
}

bool PositionsPage::hasMarkedRow() const
{
    return tableWidgetPositions->selectionModel()->hasSelection();
}

bool PositionsPage::beatsAreKnown() const
{
    return !song || song->getBpm().toInt() != 0;
}

// The header is in the middle of its own change then: the rebuild comes when its last section
// has taken up the change.
void PositionsPage::setColumnShown(PositionsColumn column, bool shown)
{
    disconnect(sectionConnection);
    look.shown[column] = shown;
    tableWidgetPositions->setColumnHidden(column,
                                          !shown || (column == BeatsColumn && !beatsAreKnown()));
    followSectionSizes();
}

void PositionsPage::toggleColumn(PositionsColumn column)
{
    setColumnShown(column, !look.shown[column]);
}

void PositionsPage::refreshPositionsWindow()
{
    if (!song || startingUp) {
        tableWidgetPositions->setRowCount(0);
        Q_EMIT emptied();
        return;
    }
    // The widths set below must not start another rebuild.
    disconnect(sectionConnection);
    PositionsTable::Look now = look;
    now.shown[BeatsColumn] = look.shown[BeatsColumn] && beatsAreKnown();
    tableWidgetPositions->fill(*song, now);
    rebuiltSize = tableWidgetPositions->size();
    if (player->isPlaying())
        player->refreshActivePart();
    scrollToCurrentPosition();
    Q_EMIT rebuilt();
    Q_EMIT markedRowChanged();
    followSectionSizes();
}

void PositionsPage::enter()
{
    refreshPositionsWindow();
    QCoreApplication::processEvents();
    scrollToCurrentPosition();
    contextMenuOpen = false;
    Q_EMIT pressed();
}

int PositionsPage::selectedPositionsRow() const
{
    for (const QTableWidgetItem *item : tableWidgetPositions->selectedItems()) {
        if (item->column() == StepsColumn)
            return item->row();
    }
    return -1;
}

void PositionsPage::selectPositionsRow(int rowNum, bool scrollToCenter)
{
    tableWidgetPositions->clearSelection();
    bool first = true;
    // The row number is never marked, so that it keeps looking like a button.
    for (int column = PartColumn; column < PositionsColumnCount; ++column) {
        QTableWidgetItem *item = tableWidgetPositions->item(rowNum, column);
        if (!item)
            continue;
        item->setSelected(true);
        if (first && scrollToCenter)
            tableWidgetPositions->scrollToItem(item, QAbstractItemView::PositionAtCenter);
        first = false;
    }
    closeContextMenu();
}

// Whatever brings the menu's state to its end may have changed the marked row too.
void PositionsPage::closeContextMenu()
{
    contextMenuOpen = false;
    Q_EMIT markedRowChanged();
}

void PositionsPage::goToRow(int row)
{
    selectPositionsRow(row, true);
    if (QTableWidgetItem *number = tableWidgetPositions->item(row, NumberColumn))
        tableWidgetPositions->scrollToItem(number, QAbstractItemView::PositionAtCenter);
}

void PositionsPage::on_partChanged(int currentPart)
{
    if (currentPart > -1)
        return goToRow(currentPart);
    tableWidgetPositions->clearSelection();
    Q_EMIT markedRowChanged();
}

void PositionsPage::scrollDownPositions(int n)
{
    const int last = rowCount() - 1;
    const int current = selectedPositionsRow();
    if (current == -1)
        goToRow(n >= 10 ? last : 0);
    else
        goToRow(current >= rowCount() - n ? last : current + n);
}

void PositionsPage::scrollUpPositions(int n)
{
    const int current = selectedPositionsRow();
    if (current == -1)
        goToRow(n >= 10 ? 0 : rowCount() - 1);
    else
        goToRow(std::max(current - n, 0));
}

void PositionsPage::scrollToCurrentPosition()
{
    const int row = selectedPositionsRow();
    const QList<QTableWidgetItem *> marked = tableWidgetPositions->selectedItems();
    if (row >= 0)
        tableWidgetPositions->scrollToItem(tableWidgetPositions->item(row, NumberColumn),
                                           QAbstractItemView::PositionAtCenter);
    else if (marked.size() == 1)
        tableWidgetPositions->scrollToItem(marked.constFirst(), QAbstractItemView::EnsureVisible);
    else
        tableWidgetPositions->scrollToTop();
}

void PositionsPage::playLoop()
{
    const int row = selectedPositionsRow();
    if (row >= 0)
        Q_EMIT loopRequested(row);
}

void PositionsPage::popupMenuPlay()
{
    contextMenuOpen = false;
    onTableWidgetPositions_doubleClicked(contextMenuIndex);
}

void PositionsPage::popupMenuPlayLoop()
{
    contextMenuOpen = false;
    Q_EMIT loopRequested(contextMenuIndex.row());
}

void PositionsPage::onTableWidgetPositions_pressed(const QModelIndex &index)
{
    selectPositionsRow(index.row(), false);
    // Who asks for the menu wants no music.
    const bool wantsMenu = QGuiApplication::mouseButtons().testFlag(Qt::RightButton);
    if (index.column() == NumberColumn && !wantsMenu)
        onTableWidgetPositions_doubleClicked(index);
    else
        Q_EMIT pressed();
}

void PositionsPage::onTableWidgetPositions_doubleClicked(const QModelIndex &index)
{
    if (!song)
        return;
    Q_EMIT startRequested(index.row());
    Q_EMIT pressed();
}

void PositionsPage::onTableWidgetPositions_customContextMenuRequested(const QPoint &pos)
{
    if (contextMenuOpen || !song) {
        contextMenuOpen = false;
        Q_EMIT pressed();
        return;
    }
    contextMenuIndex = tableWidgetPositions->indexAt(pos);
    popUpMenu(pos);
    contextMenuOpen = true;
    Q_EMIT markedRowChanged();
    Q_EMIT pressed();
}

void PositionsPage::popUpMenu(const QPoint &pos)
{
    QWidget *origin = menuOrigin ? menuOrigin.data() : tableWidgetPositions->viewport();
    auto *menu = new QMenu(origin);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu](const QList<QAction *> &actions) {
        for (QAction *action : actions) {
            if (action)
                menu->addAction(action);
            else
                menu->addSeparator();
        }
    };
    if (song->getPositions().count() > 0) {
        add(playActions);
        menu->addSeparator();
    }
    add(otherActions);
    menu->popup(origin->mapToGlobal(pos));
}

void PositionsPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        tableWidgetPositions->writeHeaderTexts();
    QWidget::changeEvent(event);
}

// A change of the width reaches the last section first, and the page is rebuilt by then.
void PositionsPage::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (isVisible() && rebuiltSize != tableWidgetPositions->size())
        refreshPositionsWindow();
}
