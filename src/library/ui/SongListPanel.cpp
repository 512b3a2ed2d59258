#include "SongListPanel.h"

#include "ElidingComboBox.h"
#include "FlowLayout.h"
#include "FrozenTableView.h"
#include "FrozenTableViewStyle.h"
#include "SongDelegate.h"
#include "SongListFilter.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "ThemeContext.h"
#include "TimeTexts.h"
#include "Tips.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

namespace {

enum ButtonKind { Later, Toggle };

struct ButtonRow
{
    const char *name; // of the object, before the letter of the side
    const char *text; // tool tip and accessible name
    const char *key;  // that does the same for the left list; null for none
    const char *picture;
    ButtonKind kind;
};

constexpr ButtonRow buttonRows[] = {
    {"buttonPlaylistOpen", QT_TRANSLATE_NOOP("SongListPanel", "Playlist öffnen"), nullptr, "Open",
     Later},
    {"buttonPlaylistSave", QT_TRANSLATE_NOOP("SongListPanel", "Playlist speichern"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+S"), "Save", Later},
    {"buttonPlaylistSaveAs", QT_TRANSLATE_NOOP("SongListPanel", "Playlist speichern unter"),
     nullptr, "Save_As", Later},
    {"buttonPlaylistRemove", QT_TRANSLATE_NOOP("SongListPanel", "Playlist löschen"), nullptr,
     "Remove", Later},
    {"buttonPlaylistCopyBuffer",
     QT_TRANSLATE_NOOP("SongListPanel", "Liste in die Zwischenablage kopieren"), nullptr, "Copy",
     Later},
    {"buttonPlaylistExportAllFiles",
     QT_TRANSLATE_NOOP("SongListPanel", "Alle Dateien der Liste in einen Ordner kopieren"), nullptr,
     "Copy_Files", Later},
    {"buttonPlaylistAddEntry",
     QT_TRANSLATE_NOOP("SongListPanel", "Ausgewählte Songs der anderen Liste hinzufügen"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+Einfg"), "Entry_Add", Later},
    {"buttonPlaylistEntryRemove",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag aus der Liste entfernen"),
     QT_TRANSLATE_NOOP("SongListPanel", "AltGr+Entf"), "Entry_Remove", Later},
    {"buttonPlaylistEntryMoveUp",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag nach oben verschieben"), nullptr, "Up", Later},
    {"buttonPlaylistEntryMoveDown",
     QT_TRANSLATE_NOOP("SongListPanel", "Eintrag nach unten verschieben"), nullptr, "Down", Later},
    {"buttonPlaylistNonStop",
     QT_TRANSLATE_NOOP("SongListPanel", "Nach jedem Song den nächsten abspielen"), nullptr,
     "Non_Stop", Toggle},
};

constexpr int mostLists = 20;
constexpr int libraryList = 0;
constexpr int workingList = 1;

HiddenAtFirst hiddenBit(SongListPanel::Side side)
{
    return side == SongListPanel::Side::Right ? HiddenRight : HiddenLeft;
}

QString withKey(const QString &text, const QString &key)
{
    return key.isEmpty() ? text : text + QStringLiteral("       ") + key;
}

} // namespace

SongListPanel::SongListPanel(Side which, SongManager *songManager, QWidget *parent)
    : QFrame(parent)
    , side(which)
    , manager(songManager)
    , songModel(new SongListTableModel(songManager, this))
    , songFilter(new SongListFilter(songModel, which == Side::Right, this))
    , view(new FrozenTableView(this))
    , selected(view, songFilter)
    , playlistWidgets(new QWidget(this))
    , listBox(new ElidingComboBox(playlistWidgets))
    , buttonLayout(new FlowLayout)
    , info(new QLabel(playlistWidgets))
{
    setObjectName(side == Side::Left ? QStringLiteral("framePlaylist")
                                     : QStringLiteral("frameMusicList"));
    createTable();
    createHeader();
    createListBox();
    createButtons();
    layOut();
    retranslate();
    setList(manager->getPlaylist(side == Side::Left ? workingList : libraryList));
    connectSignals();
    setPlaylistWidgetsVisible(side == Side::Left);
}

SongListPanel::~SongListPanel() = default;

QString SongListPanel::suffixed(const char *name) const
{
    return QLatin1String(name) + (side == Side::Left ? u'L' : u'R');
}

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
    hideColumns();
}

void SongListPanel::hideColumns()
{
    for (const SongColumnRow &column : songColumns())
        view->setColumnHidden(column.column, (column.hidden & hiddenBit(side)) != 0);
}

void SongListPanel::createListBox()
{
    listBox->setObjectName(suffixed("comboBoxPlaylistSelection"));
    listBox->setMaxVisibleItems(mostLists);
    listBox->setFocusPolicy(Qt::NoFocus);
    // The frame may be narrower than the longest name.
    listBox->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    listBox->setMinimumContentsLength(6);
    info->setObjectName(suffixed("labelPlaylistInfo"));
    info->setWordWrap(true);
}

void SongListPanel::createButtons()
{
    for (const ButtonRow &row : buttonRows) {
        if (row.kind == Toggle && side == Side::Right) {
            buttons.append(nullptr);
            continue;
        }
        auto *button = new QPushButton(playlistWidgets);
        button->setObjectName(row.kind == Toggle ? QLatin1String(row.name) : suffixed(row.name));
        button->setFocusPolicy(Qt::NoFocus);
        button->setCheckable(row.kind == Toggle);
        button->setEnabled(row.kind == Toggle);
        if (row.kind == Toggle)
            nonStop = button;
        buttonLayout->addWidget(button);
        buttons.append(button);
    }
}

void SongListPanel::layOut()
{
    auto *above = new QVBoxLayout(playlistWidgets);
    above->setContentsMargins(0, 0, 0, 0);
    above->addWidget(listBox);
    above->addLayout(buttonLayout);
    above->addWidget(info);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(playlistWidgets);
    layout->addWidget(view, 1);
}

void SongListPanel::connectSignals()
{
    connect(listBox, &QComboBox::currentIndexChanged, this, &SongListPanel::showListAt);
    connect(manager, &SongManager::notifyListsChanged, this, &SongListPanel::followLists);
    connect(songModel, &SongListTableModel::notifyModelChanged, this, [this] {
        adaptPlaylistInfo();
        Q_EMIT listChanged();
    });
    connect(songFilter, &SongListFilter::filtersApplied, this, [this] {
        if (arePlaylistWidgetsVisible())
            adaptPlaylistInfo();
    });
    connect(view, &QTableView::doubleClicked, this, &SongListPanel::songActivated);
    connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &SongListPanel::selectionChanged);
    connect(view, &QWidget::customContextMenuRequested, this, [this](const QPoint &place) {
        Q_EMIT contextMenuRequested(view->viewport()->mapToGlobal(place));
    });
    QHeaderView *header = view->horizontalHeader();
    connect(
        header, &QWidget::customContextMenuRequested, this, [this, header](const QPoint &place) {
            Q_EMIT headerMenuRequested(header->mapToGlobal(place), header->logicalIndexAt(place));
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
    songModel->clearFilterTexts();
    adaptToKind();
    fillListBox();
    adaptPlaylistInfo();
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
    view->setSelectionMode(isLibrary ? QAbstractItemView::ExtendedSelection
                                     : QAbstractItemView::SingleSelection);
}

void SongListPanel::showListAt(int index)
{
    setList(manager->getPlaylist(index));
}

// The names, with that of the list on show, which the manager may have let go of.
void SongListPanel::fillListBox()
{
    const QSignalBlocker silent(listBox);
    const QStringList names = manager->getPlaylistNames();
    listBox->clear();
    listBox->addItems(names);
    int current = -1;
    for (int index = 0; index < names.size(); ++index) {
        if (manager->getPlaylist(index) == list())
            current = index;
    }
    listBox->setCurrentIndex(current);
}

// A list that was read anew is another one of the same name.
void SongListPanel::followLists()
{
    const qsizetype count = manager->getPlaylistNames().size();
    for (int index = 0; index < count; ++index) {
        if (manager->getPlaylist(index) == list())
            return fillListBox();
    }
    const auto index = manager->getPlaylistNames().indexOf(list()->name());
    const int otherwise = side == Side::Left ? workingList : libraryList;
    showListAt(index < 0 ? otherwise : static_cast<int>(index));
}

void SongListPanel::adaptPlaylistInfo()
{
    const int shown = std::max(songFilter->rowCount() - 1, 0);
    const int total = list()->count();
    const QString length = durationText(songFilter->totalPlaylength());
    info->setText(shown == total
                      ? tr("%1 Songs  %2 Spielzeit").arg(QString::number(shown), length)
                      : tr("%1/%2 Songs  %3 Spielzeit")
                            .arg(QString::number(shown), QString::number(total), length));
}

void SongListPanel::openListBox()
{
    if (listBox->isVisible())
        listBox->showPopup();
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
    return nonStop && nonStop->isChecked();
}

void SongListPanel::setNonStop(bool wanted)
{
    if (nonStop)
        nonStop->setChecked(wanted);
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
    for (QPushButton *button : std::as_const(buttons)) {
        if (!button)
            continue;
        button->setFixedSize(size);
        button->setIconSize(size * 3 / 5);
    }
}

void SongListPanel::setButtonSpacing(int pixels)
{
    buttonLayout->setSpacing(pixels);
    QLayout *layout = playlistWidgets->layout();
    layout->setSpacing(pixels);
    layout->setContentsMargins(pixels / 2, pixels / 2, pixels / 2, pixels / 2);
}

void SongListPanel::refreshPictures()
{
    for (qsizetype index = 0; index < buttons.size(); ++index)
        if (buttons.at(index))
            buttons.at(index)->setIcon(themeIcon(QLatin1String(buttonRows[index].picture)));
}

void SongListPanel::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    if (!columnsPlaced)
        spreadColumns();
    columnsPlaced = true;
}

void SongListPanel::spreadColumns()
{
    const int letter = view->fontMetrics().averageCharWidth();
    for (const SongColumnRow &column : songColumns()) {
        if (!view->isColumnHidden(column.column))
            view->setColumnWidth(column.column, column.letters * letter);
    }
}

QByteArray SongListPanel::columnConfig() const
{
    // Widths that nobody has seen yet are none to be kept.
    return columnsPlaced ? view->horizontalHeader()->saveState() : QByteArray();
}

bool SongListPanel::restoreColumnConfig(const QByteArray &config)
{
    QHeaderView *header = view->horizontalHeader();
    const QByteArray before = header->saveState();
    const bool restored = header->restoreState(config);
    if (!restored)
        header->restoreState(before);
    columnsPlaced = columnsPlaced || restored;
    view->refreshFrozenColumns();
    return restored;
}

void SongListPanel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QFrame::changeEvent(event);
}

void SongListPanel::retranslate()
{
    describe(listBox, withKey(tr("Schnellzugriff auf die letzten 20 Listen"),
                              side == Side::Left ? QStringLiteral("O") : QString()));
    for (qsizetype index = 0; index < buttons.size(); ++index) {
        const ButtonRow &row = buttonRows[index];
        const bool hasKey = row.key && side == Side::Left;
        if (buttons.at(index))
            describe(buttons.at(index), withKey(tr(row.text), hasKey ? tr(row.key) : QString()));
    }
    view->setAccessibleName(side == Side::Left ? tr("Playlist") : tr("Musikliste"));
    songModel->retranslate();
    if (list()) {
        fillListBox();
        adaptPlaylistInfo();
    }
}
