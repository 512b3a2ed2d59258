#include "SongListPanel.h"

#include "ColumnWidths.h"
#include "FrozenTableView.h"
#include "FrozenTableViewStyle.h"
#include "PlaylistBar.h"
#include "SongDelegate.h"
#include "SongListFilter.h"
#include "SongListFilterHandler.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "SongTableColumns.h"
#include "TimeTexts.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int filterPopupExtra = 20; // pixels: what a scroll bar takes
constexpr int libraryList = 0;
constexpr int workingList = 1;

HiddenAtFirst hiddenBit(SongListPanel::Side side)
{
    return side == SongListPanel::Side::Right ? HiddenRight : HiddenLeft;
}

PlaylistBar::Side barSide(SongListPanel::Side side)
{
    return side == SongListPanel::Side::Right ? PlaylistBar::Side::Right : PlaylistBar::Side::Left;
}

} // namespace

SongListPanel::SongListPanel(Side which, SongManager *songManager, QWidget *parent)
    : QFrame(parent)
    , side(which)
    , manager(songManager)
    , operations(songManager, this)
    , songModel(new SongListTableModel(songManager, this))
    , songFilter(new SongListFilter(songModel, which == Side::Right, this))
    , view(new FrozenTableView(this))
    , selected(view, songFilter)
    , playlistWidgets(new PlaylistBar(barSide(which), this))
{
    setObjectName(side == Side::Left ? QStringLiteral("framePlaylist")
                                     : QStringLiteral("frameMusicList"));
    createTable();
    createHeader();
    layOut();
    retranslate();
    setList(manager->getPlaylist(side == Side::Left ? workingList : libraryList));
    connectSignals();
    setPlaylistWidgetsVisible(side == Side::Left);
}

SongListPanel::~SongListPanel() = default;

void SongListPanel::createTable()
{
    view->setObjectName(side == Side::Left ? QStringLiteral("tableWidgetMlPlaylist")
                                           : QStringLiteral("tableViewMusicList"));
    setUpTable();
    view->setItemDelegate(new SongDelegate(view));
    auto *style = new FrozenTableViewStyle(QApplication::style());
    style->setParent(view);
    view->setStyle(style);
    view->setModel(songFilter);
    view->init();
    filters = new SongListFilterHandler(songModel, songFilter, filterPopupExtra, view, this);
}

void SongListPanel::setUpTable()
{
    view->setFocusPolicy(Qt::NoFocus);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->setDragDropMode(QAbstractItemView::DragDrop);
    view->setDefaultDropAction(Qt::CopyAction);
    view->setDropIndicatorShown(true);
    view->setAlternatingRowColors(true);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    view->setWordWrap(false);
    view->setShowGrid(false);
    view->verticalHeader()->hide();
}

void SongListPanel::createHeader()
{
    QHeaderView *header = view->horizontalHeader();
    header->setMinimumSectionSize(10);
    header->setStretchLastSection(true);
    header->setSectionsMovable(true);
    header->setHighlightSections(false);
    header->setContextMenuPolicy(Qt::CustomContextMenu);
    header->setFocusPolicy(Qt::NoFocus);
    header->setSortIndicator(TitleColumn, Qt::AscendingOrder);
    columns = new SongTableColumns(view, hiddenBit(side), this);
    columns->hideAtFirst();
}

void SongListPanel::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(playlistWidgets);
    layout->addWidget(view, 1);
}

void SongListPanel::connectSignals()
{
    connect(playlistWidgets, &PlaylistBar::listChosen, this, &SongListPanel::showListAt);
    connect(playlistWidgets, &PlaylistBar::requested, this, &SongListPanel::carryOut);
    connect(manager, &SongManager::notifyListsChanged, this, &SongListPanel::followLists);
    connectList();
    connectTable();
}

void SongListPanel::connectList()
{
    connect(songModel, &SongListTableModel::notifyModelChanged, this, &SongListPanel::followChange);
    connect(songModel, &QAbstractItemModel::modelAboutToBeReset, this,
            &SongListPanel::keepSelection);
    connect(songFilter, &SongListFilter::filtersApplied, this, [this] {
        adaptPlaylistInfoSoon();
        // A selected song may be out of sight now, and so no longer selected.
        adaptPlaylistButtons();
        if (other)
            other->adaptPlaylistButtons();
    });
}

void SongListPanel::connectTable()
{
    connect(view, &QTableView::doubleClicked, this, &SongListPanel::songActivated);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SongListPanel::selectionChanged);
    connect(this, &SongListPanel::selectionChanged, this, &SongListPanel::adaptPlaylistButtons);
    connect(view, &QWidget::customContextMenuRequested, this, [this](const QPoint &place) {
        Q_EMIT contextMenuRequested(view->viewport()->mapToGlobal(place));
    });
    QHeaderView *header = view->horizontalHeader();
    connect(header, &QWidget::customContextMenuRequested, this,
            [this, header](const QPoint &place) {
                columns->popupMenu(header->mapToGlobal(place), header->logicalIndexAt(place));
            });
}

const PlaylistPtr &SongListPanel::list() const
{
    return songModel->getPlaylist();
}

void SongListPanel::setList(const PlaylistPtr &list)
{
    if (!list)
        return;
    view->setSortingEnabled(false);
    if (!list->isMaster())
        songFilter->sort(-1, Qt::AscendingOrder);
    songModel->setPlaylist(list);
    adaptToKind();
    resetFilters();
    fillListBox();
    adaptPlaylistInfo();
}

void SongListPanel::resetFilters()
{
    songModel->clearFilterTexts();
    filters->resetFilters();
}

void SongListPanel::ensureList(const PlaylistPtr &wanted)
{
    if (wanted != list())
        setList(wanted);
}

void SongListPanel::adaptToKind()
{
    const bool isLibrary = songModel->isMaster();
    songFilter->setGlobalSearchEnabled(isLibrary);
    view->setSortingEnabled(isLibrary);
    view->horizontalHeader()->setSectionsClickable(isLibrary);
    view->setSelectionMode(isLibrary ? QAbstractItemView::ExtendedSelection
                                     : QAbstractItemView::SingleSelection);
}

bool SongListPanel::switchList(const PlaylistPtr &wanted)
{
    const PlaylistPtr before = list();
    if (!wanted || wanted == before)
        return wanted == before;
    const bool isFree = promptSave() && isKnown(wanted);
    // What the user has declined is gone, in the other panel too.
    if (isFree && before->isModified()) {
        before->revert();
        songModel->followList();
    }
    if (isFree)
        setList(wanted);
    else
        fillListBox();
    return isFree;
}

bool SongListPanel::promptSave()
{
    const bool isFree = operations.promptSave(list());
    refreshPlaylistCombos();
    return isFree;
}

void SongListPanel::showListAt(int index)
{
    switchList(manager->getPlaylist(index));
}

bool SongListPanel::isKnown(const PlaylistPtr &wanted) const
{
    return indexOf(wanted) >= 0;
}

int SongListPanel::indexOf(const PlaylistPtr &wanted) const
{
    const auto count = static_cast<int>(manager->getPlaylistNames().size());
    for (int index = 0; index < count; ++index) {
        if (manager->getPlaylist(index) == wanted)
            return index;
    }
    return -1;
}

// The manager may have let go of the list on show.
void SongListPanel::fillListBox()
{
    playlistWidgets->setLists(manager->getPlaylistNames(), indexOf(list()));
    adaptPlaylistButtons();
}

// A list that was read anew is another one of the same name.
void SongListPanel::followLists()
{
    if (isKnown(list()))
        return fillListBox();
    const auto index = manager->getPlaylistNames().indexOf(list()->name());
    const int otherwise = side == Side::Left ? workingList : libraryList;
    setList(manager->getPlaylist(index < 0 ? otherwise : static_cast<int>(index)));
}

void SongListPanel::followChange()
{
    adaptPlaylistInfo();
    adaptPlaylistButtons();
    if (other && other->list() == list())
        other->model()->followList();
    Q_EMIT listChanged();
}

void SongListPanel::adaptPlaylistInfo()
{
    const int shown = std::max(songFilter->rowCount() - 1, 0);
    infoPending = false;
    const int total = list()->count();
    const QString length = durationText(songFilter->totalPlaylength());
    playlistWidgets->setInfo(
        shown == total ? tr("%1 Songs  %2 Spielzeit").arg(QString::number(shown), length)
                       : tr("%1/%2 Songs  %3 Spielzeit")
                             .arg(QString::number(shown), QString::number(total), length));
}

// Adding up the lengths can wait for the key that comes next.
void SongListPanel::adaptPlaylistInfoSoon()
{
    if (playlistWidgets->isHidden())
        return;
    if (!infoPending)
        QTimer::singleShot(0, this, &SongListPanel::adaptPlaylistInfo);
    infoPending = true;
}

void SongListPanel::adaptPlaylistButtons()
{
    PlaylistState state;
    state.isLibrary = songModel->isMaster();
    state.isNew = list()->isNew();
    state.isModified = list()->isModified();
    state.entries = list()->count();
    state.selectedEntry = selectedEntry();
    state.isOtherSelected = other && !other->selection().rows().isEmpty();
    playlistWidgets->adapt(state);
}

// On both sides: they may show the same list.
void SongListPanel::refreshPlaylistCombos()
{
    fillListBox();
    if (other)
        other->fillListBox();
}

void SongListPanel::openListBox()
{
    playlistWidgets->openListBox();
}

bool SongListPanel::isListBoxVisible() const
{
    return playlistWidgets->isListBoxVisible();
}

void SongListPanel::setPlaylistWidgetsVisible(bool visible)
{
    playlistWidgets->setVisible(visible);
    if (visible)
        adaptPlaylistInfo();
}

bool SongListPanel::arePlaylistWidgetsVisible() const
{
    return !playlistWidgets->isHidden();
}

bool SongListPanel::isNonStop() const
{
    return playlistWidgets->isNonStop();
}

void SongListPanel::setNonStop(bool wanted)
{
    playlistWidgets->setNonStop(wanted);
}

void SongListPanel::setFontSize(int points)
{
    // A view with a style of its own doesn't take its font from the style sheet.
    QFont font = view->font();
    font.setPointSize(points);
    view->setFont(font);
    // On a screen of many dots an inch the letters need more than 1.7 pixels a point.
    const int rowHeight = std::max(static_cast<int>(points * 1.7), QFontMetrics(font).height() + 2);
    view->verticalHeader()->setMinimumSectionSize(rowHeight);
    view->verticalHeader()->setDefaultSectionSize(rowHeight);
    view->horizontalHeader()->setFixedHeight(rowHeight);
    view->updateSectionHeight(0, 0, rowHeight);
    view->refreshFrozenRow();
}

void SongListPanel::setButtonSize(const QSize &size)
{
    playlistWidgets->setButtonSize(size);
}

void SongListPanel::setButtonSpacing(int pixels)
{
    playlistWidgets->setButtonSpacing(pixels);
}

void SongListPanel::refreshPictures()
{
    playlistWidgets->refreshPictures();
    filters->adaptToTheme();
}

void SongListPanel::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    columns->spreadAtFirst();
}

void SongListPanel::fitColumns(const QList<int> &wanted)
{
    columns->fit(wanted);
}

void SongListPanel::fitAllColumns()
{
    columns->fit(ColumnWidths::allInOrder());
}

QByteArray SongListPanel::columnConfig() const
{
    return columns->config();
}

bool SongListPanel::restoreColumnConfig(const QByteArray &config)
{
    return columns->restore(config);
}

void SongListPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void SongListPanel::retranslate()
{
    playlistWidgets->retranslate();
    view->setAccessibleName(side == Side::Left ? tr("Playlist") : tr("Musikliste"));
    songModel->retranslate();
    filters->retranslate();
    if (list()) {
        fillListBox();
        adaptPlaylistInfo();
    }
}
