// What each command does: the one table between keys, buttons and menus and those who act.

#include "BottomFrame.h"
#include "ChoreographyPage.h"
#include "HelpPage.h"
#include "LibraryPage.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionsPage.h"
#include "SettingsPage.h"
#include "SongColumns.h"
#include "SongFileActions.h"
#include "SongListPanel.h"
#include "TopFrame.h"

#include <algorithm>
#include <iterator>

namespace {

// The work of these comes later.
constexpr auto notYet = [](MainWindow &, int) { showNotImplemented(); };
constexpr auto notYetOfSong = [](MainWindow &window, int) {
    if (window.getCurrentSong())
        showNotImplemented();
};

} // namespace

struct MainWindow::Route
{
    Command command;
    void (*carryOut)(MainWindow &window, int argument);
};

const MainWindow::Route MainWindow::routes[] = {
    {Command::ShowScreen, [](MainWindow &w, int screen) { w.showScreen(screen); }},
    {Command::ShowNextScreen, [](MainWindow &w, int step) { w.stepScreen(step); }},
    {Command::LoadAndShowPositions,
     [](MainWindow &w, int) {
         w.loadCurrentSong();
         // Somebody may have gone elsewhere while the song was decoded.
         if (w.currentScreen() == LibraryScreen)
             w.showScreen(PositionsScreen);
     }},
    {Command::ToggleMaximised,
     [](MainWindow &w, int) { w.isMaximized() ? w.showNormal() : w.showMaximized(); }},
    {Command::StepFontSize,
     [](MainWindow &w, int points) {
         w.settingsPage->setFontSize(w.settingsPage->fontSize() + points);
     }},
    {Command::StepFrameHeight, [](MainWindow &w, int pixels) { w.stepFrameHeight(pixels); }},
    {Command::LeaveFilter,
     [](MainWindow &w, int) {
         if (w.frameTop->isFilterFocused())
             w.takeFocusBack();
         else if (w.currentScreen() == LibraryScreen)
             w.resetMusicListFilters();
     }},
    {Command::OpenMenu, [](MainWindow &w, int) { w.frameTop->openMenu(); }},
    {Command::FocusFilter, [](MainWindow &w, int) { w.frameTop->focusFilter(); }},

    {Command::ScrollLibrary, [](MainWindow &w, int rows) { w.scrollLibrary(rows); }},
    {Command::PageLibrary,
     [](MainWindow &w, int pages) { w.scrollLibrary(pages * w.libraryPage->pageStep()); }},
    {Command::ExtendSelection,
     [](MainWindow &w, int step) {
         SongListSelection &songs = w.libraryPage->songList()->selection();
         step < 0 ? songs.extendUp() : songs.extendDown();
     }},
    {Command::SelectAllSongs,
     [](MainWindow &w, int) {
         w.libraryPage->songList()->selection().selectAll();
         w.followSelection();
     }},
    {Command::SelectNoSong, [](MainWindow &w, int) { w.selectNoneInLibrary(); }},
    {Command::ResetFilters, [](MainWindow &w, int) { w.resetMusicListFilters(); }},
    {Command::Rescan, [](MainWindow &w, int) { w.refreshAllLists(); }},
    {Command::FitColumns, [](MainWindow &w, int) { w.libraryPage->songList()->fitAllColumns(); }},

    {Command::TogglePlaylistPanel, [](MainWindow &w, int) { w.showPlaylist(!w.playlistShown); }},
    {Command::TogglePlaylistManager, [](MainWindow &w, int) { w.togglePlaylistManager(); }},
    {Command::OpenPlaylistSelection, [](MainWindow &w, int) { w.framePlaylist->openListBox(); }},
    {Command::AddToPlaylist,
     [](MainWindow &w, int) { w.framePlaylist->carryOut(PlaylistTask::AddSongs); }},
    {Command::RemoveFromPlaylist,
     [](MainWindow &w, int) {
         if (w.framePlaylist->isListBoxVisible())
             w.framePlaylist->carryOut(PlaylistTask::RemoveEntry);
     }},
    {Command::SavePlaylist,
     [](MainWindow &w, int) { w.framePlaylist->carryOut(PlaylistTask::Save); }},
    {Command::ScrollPlaylist, [](MainWindow &w, int rows) { w.scrollPlaylist(rows); }},
    {Command::PagePlaylist, [](MainWindow &w, int pages) { w.pagePlaylist(pages); }},
    {Command::ShowPlaylistEnd, [](MainWindow &w, int end) { w.showPlaylistEnd(end); }},
    {Command::PlayPlaylistEntry, [](MainWindow &w, int step) { w.playPlaylistEntry(step); }},

    {Command::ScrollPositions,
     [](MainWindow &w, int rows) {
         if (rows < 0)
             w.positionsPage->scrollUpPositions(-rows);
         else
             w.positionsPage->scrollDownPositions(rows);
     }},
    {Command::TogglePositionsDisplay,
     [](MainWindow &w, int) {
         w.positionsPage->setFullWidth(w.frameTop->isFullWidth());
         w.positionsPage->refreshPositionsWindow();
     }},
    {Command::MarkedPartLoop, [](MainWindow &w, int) { w.positionsPage->playLoop(); }},
    {Command::PlayContextRow, [](MainWindow &w, int) { w.positionsPage->popupMenuPlay(); }},
    {Command::LoopContextRow, [](MainWindow &w, int) { w.positionsPage->popupMenuPlayLoop(); }},
    {Command::ToggleColumn, [](MainWindow &w, int column) { w.toggleColumn(column); }},
    {Command::ScrollHelp, [](MainWindow &w, int lines) { w.helpPage->scrollBy(lines); }},
    {Command::ScrollChoreography,
     [](MainWindow &w, int pixels) { w.choreographyPage->scroll(pixels); }},
    {Command::PageChoreography,
     [](MainWindow &w, int pages) { w.choreographyPage->scrollPages(pages); }},

    {Command::Play, [](MainWindow &w, int) { w.onButtonPlay_clicked(); }},
    {Command::Pause, [](MainWindow &w, int) { w.onButtonPause_clicked(); }},
    {Command::PlayPause, [](MainWindow &w, int) { w.onButtonPlayPause_clicked(); }},
    {Command::Stop, [](MainWindow &w, int) { w.onButtonStop_clicked(); }},
    // A number beyond the last part means no part: the song starts at its beginning.
    {Command::StartPart,
     [](MainWindow &w, int row) { w.startFromPart(row < w.positionsPage->rowCount() ? row : -1); }},
    {Command::Seek, [](MainWindow &w, int ms) { w.seek(ms); }},
    {Command::StepTempo, [](MainWindow &w, int percent) { w.stepTempo(percent); }},
    {Command::SetTempoPreset, [](MainWindow &w, int number) { w.setTempo(w.tempoPreset(number)); }},
    {Command::StepBpmDisplay, [](MainWindow &w, int) { w.stepBpmDisplay(); }},
    {Command::StepTimeDisplay, [](MainWindow &w, int) { w.stepTimeDisplay(); }},
    {Command::ToggleSlider, [](MainWindow &w, int) { w.toggleSlider(); }},

    {Command::EditTags, notYet},
    {Command::EditPositions, notYetOfSong},
    {Command::EditCountDown, notYet},
    {Command::Replace, notYetOfSong},
    {Command::ShiftTimes, notYetOfSong},
    {Command::FormatPositions, notYet},
    {Command::CopyPosition, notYet},
    {Command::PastePosition, notYet},
    {Command::CopyAllPositions, notYet},
    {Command::ExportPositions, notYet},
    {Command::ImportPositions, notYet},
    {Command::CompareSongPositions, notYet},
    {Command::ShowEventList, notYet},
    {Command::ExportChoreography, notYet},
    {Command::ImportChoreography, notYet},
    {Command::RemoveChoreography, notYet},
    {Command::CopyChoreography, notYet},
    {Command::ExportMetadata, notYet},
    {Command::ImportMetadata, notYet},
    {Command::ExportShortList,
     [](MainWindow &w, int) {
         w.libraryPage->songList()->exportColumns(
             {TitleColumn, ArtistColumn, AlbumColumn, IswcColumn});
     }},
    {Command::ExportLongList,
     [](MainWindow &w, int) { w.libraryPage->songList()->exportShownColumns(); }},
    {Command::CopyFile, [](MainWindow &w, int) { w.copyFileToBuffer(); }},
    {Command::CopySongFiles,
     [](MainWindow &w, int) { w.songFiles->copySongFile(*w.activePanel(), w.currentSong); }},
    {Command::MoveSongFiles, [](MainWindow &w, int) { w.moveSongFile(); }},
    {Command::ConvertFile, [](MainWindow &w, int) { w.exportSongFile(); }},
    {Command::ImportSongFiles, [](MainWindow &w, int) { w.songFiles->importSongFiles(); }},
    {Command::RemoveSongFiles,
     [](MainWindow &w, int) {
         if (!w.player->isPlaying())
             w.songFiles->removeSongFiles(*w.activePanel());
     }},
    {Command::SetWriteProtection,
     [](MainWindow &w, int) { w.songFiles->setWriteProtection(*w.activePanel()); }},
    {Command::RemoveWriteProtection,
     [](MainWindow &w, int) { w.songFiles->removeWriteProtection(*w.activePanel()); }},
    {Command::RemoveFileCache,
     [](MainWindow &w, int) { w.songFiles->removeFileCache(*w.activePanel()); }},
    // There is no cloud yet.
    {Command::ExportToCloud, notYet},
    {Command::ImportFromCloud, notYet},

    {Command::CreatePortableApp, notYet},
    {Command::FactoryReset, [](MainWindow &w, int) { w.factoryReset(); }},
    {Command::FactoryResetWindows, [](MainWindow &w, int) { w.factoryResetWinPos(); }},
    {Command::Quit, [](MainWindow &w, int) { w.byeBye(); }},
};

// The focus goes back to the window, whatever was asked for, but for the search field's.
void MainWindow::carryOut(const CommandCall &call)
{
    const auto *route = std::find_if(std::begin(routes), std::end(routes),
                                     [&](const Route &r) { return r.command == call.command; });
    if (route == std::end(routes)) {
        qCritical("No route for a command");
        return;
    }
    route->carryOut(*this, call.argument);
    if (call.command != Command::FocusFilter)
        takeFocusBack();
}
