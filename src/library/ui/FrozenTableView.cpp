#include "FrozenTableView.h"

#include "FilterRowModel.h"
#include "FilterTableView.h"
#include "ThemeContext.h"

#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QPixmap>
#include <QScrollBar>

namespace {

constexpr int heightWithoutRow = 20;
constexpr int pictureHeight = 50;

} // namespace

FrozenTableView::FrozenTableView(QWidget *parent)
    : QTableView(parent)
    , frozenView(new FilterTableView(this))
{
    frozenView->hide();
}

// Of ten thousand rows a second view of the same model would have to hide all but one, after each
// reset.
void FrozenTableView::init()
{
    frozenView->setModel(new FilterRowModel(model(), frozenView));
    setUpFrozenView();
    viewport()->stackUnder(frozenView);
    refreshFrozenColumns();
    refreshFrozenRow();
    connectHeader();
}

void FrozenTableView::setUpFrozenView()
{
    frozenView->setFocusPolicy(Qt::NoFocus);
    frozenView->setSelectionMode(NoSelection);
    frozenView->setEditTriggers(NoEditTriggers);
    // The tab key leads from filter to filter.
    frozenView->setTabKeyNavigation(false);
    setTabKeyNavigation(false);
    frozenView->setShowGrid(showGrid());
    frozenView->verticalHeader()->hide();
    frozenView->verticalHeader()->setMinimumSectionSize(0);
    // A border would be one more than the rows below it have.
    frozenView->setStyleSheet(styleSheet()
                              + QStringLiteral("QTableView { border: none; border-radius: 0px; }"));
    frozenView->setHorizontalScrollMode(horizontalScrollMode());
    frozenView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozenView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    frozenView->horizontalHeader()->hide();
}

void FrozenTableView::connectHeader()
{
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            &FrozenTableView::updateSectionWidth);
    connect(horizontalHeader(), &QHeaderView::sectionMoved, this,
            &FrozenTableView::visualSectionMoved);
    connect(verticalHeader(), &QHeaderView::sectionResized, this,
            &FrozenTableView::updateSectionHeight);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, frozenView->horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(model(), &QAbstractItemModel::modelReset, this, &FrozenTableView::refreshFrozenRow);
    connect(model(), &QAbstractItemModel::layoutChanged, this, &FrozenTableView::refreshFrozenRow);
}

void FrozenTableView::refreshFrozenColumns()
{
    QHeaderView *header = frozenView->horizontalHeader();
    header->restoreState(horizontalHeader()->saveState());
    header->hide();
    // As wide as here, by updateSectionWidth() alone.
    header->setStretchLastSection(false);
    header->setSectionResizeMode(QHeaderView::Fixed);
    for (int column = 0; column < model()->columnCount(); ++column)
        updateSectionWidth(column, 0, columnWidth(column));
    frozenView->horizontalScrollBar()->setValue(horizontalScrollBar()->value());
}

void FrozenTableView::refreshFrozenRow()
{
    const bool hasRow = model()->rowCount() > 0;
    if (hasRow)
        setRowHeight(0, frozenView->rowHeight(0));
    updateFrozenTableGeometry();
    frozenView->setVisible(hasRow);
}

void FrozenTableView::updateFrozenTableGeometry()
{
    const int height = model() && model()->rowCount() > 0 ? rowHeight(0) : 0;
    const QPoint corner = viewport()->geometry().topLeft();
    frozenView->setGeometry(corner.x(), corner.y(), viewport()->width(),
                            height == 0 ? heightWithoutRow : height);
}

void FrozenTableView::updateSectionWidth(int logicalIndex, int, int newSize)
{
    // A column that is being hidden tells its width before it is.
    const bool hidden = newSize == 0 || isColumnHidden(logicalIndex);
    if (!hidden)
        frozenView->setColumnWidth(logicalIndex, newSize);
    frozenView->setColumnHidden(logicalIndex, hidden);
}

void FrozenTableView::updateSectionHeight(int logicalIndex, int, int newSize)
{
    if (logicalIndex != 0)
        return;
    frozenView->setRowHeight(0, newSize);
    updateFrozenTableGeometry();
}

void FrozenTableView::visualSectionMoved(int, int oldVisualIndex, int newVisualIndex)
{
    frozenView->horizontalHeader()->moveSection(oldVisualIndex, newVisualIndex);
}

void FrozenTableView::resizeEvent(QResizeEvent *event)
{
    QTableView::resizeEvent(event);
    updateFrozenTableGeometry();
}

void FrozenTableView::scrollTo(const QModelIndex &index, ScrollHint hint)
{
    if (index.row() == 0)
        return;
    QTableView::scrollTo(index, hint);
    uncover(index);
}

void FrozenTableView::uncover(const QModelIndex &index)
{
    QScrollBar *bar = verticalScrollBar();
    while (index.isValid() && bar->value() > bar->minimum()
           && visualRect(index).top() < rowHeight(0))
        bar->setValue(bar->value() - bar->singleStep());
}

QModelIndex FrozenTableView::moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers)
{
    const QModelIndex target = QTableView::moveCursor(cursorAction, modifiers);
    const int left = visualRect(target).left();
    const int first = frozenView->columnWidth(0);
    // A cell must not vanish under the first column.
    if (cursorAction == MoveLeft && target.column() > 0 && left < first)
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + left - first);
    return target;
}

void FrozenTableView::startDrag(Qt::DropActions supportedActions)
{
    const QModelIndexList indexes = selectedIndexes();
    if (indexes.size() == 1) {
        QTableView::startDrag(supportedActions);
        return;
    }
    QMimeData *songs = indexes.isEmpty() ? nullptr : model()->mimeData(indexes);
    if (!songs)
        return;
    auto *drag = new QDrag(this);
    const QPixmap picture = themePicture(QStringLiteral("Music_File"));
    if (indexes.constFirst().column() != 0 && !picture.isNull())
        drag->setPixmap(picture.scaledToHeight(pictureHeight, Qt::SmoothTransformation));
    drag->setMimeData(songs);
    drag->exec(supportedActions, Qt::MoveAction);
}
