// What the window does with its two song lists: their changes, the search over them, the panel of
// the left one.

#include "MainWindow.h"

#include "Actions.h"
#include "LibraryPage.h"
#include "PositionsPage.h"
#include "Settings.h"
#include "SongListFilter.h"
#include "SongListFilterHandler.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "Tarvelo.h"
#include "TarveloSplashScreen.h"
#include "TopFrame.h"

#include <QApplication>
#include <QLineEdit>
#include <QScopedValueRollback>

void MainWindow::connectSongList(SongListPanel *panel)
{
    connect(panel, &SongListPanel::selectionChanged, this, &MainWindow::followSelection);
    connect(panel, &SongListPanel::listChanged, this, &MainWindow::followSelection);
    connect(panel, &SongListPanel::entryRemoved, this,
            [this, panel] { followRemoval(panel->selection().song()); });
    connect(panel, &SongListPanel::contextMenuRequested, this, [this, panel](QPoint global) {
        // The actions are those of the active list, which need not be this one.
        selectInOtherTable(panel->selection().song());
        actions->menu(MenuId::LibraryContext)->popup(global);
    });
    const SongListFilterHandler *filters = panel->filterRow();
    // A selected song that a filter hides is no longer selected, without a word from the table.
    connect(filters, &SongListFilterHandler::adaptFilterStats, this, &MainWindow::followSelection);
    connect(filters, &SongListFilterHandler::musicListScrolled, this, &MainWindow::scrollLibrary);
    connect(filters, &SongListFilterHandler::focusReturned, this, &MainWindow::takeFocusBack);
    for (QLineEdit *field : filters->lineEdits())
        field->installEventFilter(this);
}

void MainWindow::connectSearch()
{
    for (const SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        panel->filter()->setSource(this);
    connect(frameTop->filterField(), &QLineEdit::textChanged, this, &MainWindow::applySearch);
}

// The focus stays in the field.
void MainWindow::applySearch()
{
    for (const SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        if (panel->filter()->isGlobalSearchEnabled())
            panel->filter()->applyFilters();
    adaptActionStates();
    refreshFilterStats();
}

QString MainWindow::searchText() const
{
    return frameTop->filterField()->text();
}

TempoBorders MainWindow::tempoBorders() const
{
    using Settings::Key;
    return {settings.number(Key::Tempo12), settings.number(Key::Tempo23),
            settings.number(Key::Tempo34), settings.number(Key::Tempo45)};
}

void MainWindow::refreshMusicList()
{
    const QScopedValueRollback<bool> busy(scanning, true);
    auto *splash = new TarveloSplashScreen(this);
    splash->show();
    const SongManager *songs = app->getSongManager();
    connect(songs, &SongManager::notifySongCount, splash, &TarveloSplashScreen::setRange);
    connect(songs, &SongManager::notifySongScanned, splash,
            &TarveloSplashScreen::setSplashProgress);
    {
        // The song that plays is let go of: that is no end of it.
        const QScopedValueRollback<bool> own(ignoreStop, true);
        app->rescan();
    }
    splash->finish();
    splash->deleteLater();
}

// The splash screen runs the event loop: what comes in meanwhile must not scan again.
void MainWindow::refreshAllLists()
{
    if (!scanning && promptSaves())
        readAllLists();
}

void MainWindow::readAllLists()
{
    libraryPage->songList()->ensureList(app->getSongManager()->getPlaylist(0));
    showPlaylist(false);
    refreshMusicList();
    selectNoneInLibrary();
    framePlaylist->ensureList(app->getSongManager()->getPlaylist(1));
    libraryPage->songList()->ensureList(app->getSongManager()->getPlaylist(0));
    refreshFilterStats();
}

// Two panels may show one list.
bool MainWindow::promptSaves()
{
    SongListPanel *right = libraryPage->songList();
    const PlaylistPtr leftList = framePlaylist->list();
    return framePlaylist->promptSave() && (right->list() == leftList || right->promptSave());
}

void MainWindow::scrollLibrary(int rows)
{
    if (positionEditorOpen)
        return;
    if (rows < 0)
        libraryPage->scrollUpMusicList(-rows);
    else
        libraryPage->scrollDownMusicList(rows);
    refreshFilterStats();
}

void MainWindow::refreshFilterStats()
{
    const SongListPanel *right = libraryPage->songList();
    frameTop->setFilterStats(tr("Zeige %1/%2\nAusgewählt: %3")
                                 .arg(right->filter()->rowCount() - 1)
                                 .arg(right->model()->rowCount() - 1)
                                 .arg(right->selection().rows().size()));
}

// A filter that hides the selected song must not end the typing.
void MainWindow::followSelection()
{
    adaptActionStates();
    refreshFilterStats();
}

// The entry that has moved up to its place.
void MainWindow::followRemoval(const SongPtr &song)
{
    if (song)
        loadPlaylistSong(song);
    else
        selectNoneInLibrary();
}

// The panel's own list stays as it was; the library comes back on the right.
void MainWindow::showPlaylist(bool shown)
{
    playlistShown = shown;
    frameTop->setPlaylistShown(shown);
    framePlaylist->setVisible(shown && currentScreen() <= ChoreographyScreen);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    SongListPanel *right = libraryPage->songList();
    if (currentScreen() == LibraryScreen)
        right->switchList(app->getSongManager()->getPlaylist(0));
    else if (currentScreen() == PositionsScreen)
        positionsPage->refreshPositionsWindow();
    if (!shown)
        showPlaylistManager(false);
}

void MainWindow::togglePlaylistManager()
{
    showPlaylistManager(!libraryPage->songList()->arePlaylistWidgetsVisible());
}

void MainWindow::showPlaylistManager(bool shown)
{
    libraryPage->songList()->setPlaylistWidgetsVisible(shown);
    frameTop->setPlaylistManagerShown(shown);
}
