// The current song and its playing: what the window does with the player.

#include "Actions.h"
#include "BottomFrame.h"
#include "ChoreographyPage.h"
#include "DialogRunner.h"
#include "EventEditor.h"
#include "EventRules.h"
#include "FileTools.h"
#include "FrozenTableView.h"
#include "LibraryPage.h"
#include "MainWindow.h"
#include "MessageBoxes.h"
#include "Player.h"
#include "PositionSlider.h"
#include "PositionsPage.h"
#include "SongFileActions.h"
#include "SongFileExport.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "Tarvelo.h"
#include "TempoTexts.h"
#include "TimeTexts.h"
#include "TopFrame.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QScopedValueRollback>
#include <QtDebug>

#include <cmath>

namespace {

constexpr int largestTempo = 50; // percent, up and down

// What a foreign file holds may be no number, or none that is a tempo.
int tempoOf(const Song &song)
{
    const double percent = song.getTempo();
    const double most = largestTempo;
    return std::isfinite(percent) ? static_cast<int>(qBound(-most, percent, most)) : 0;
}

} // namespace

void MainWindow::seek(int ms)
{
    if (!player->isPlaying())
        return;
    const int now = player->getPlaytime();
    const bool possible = ms < 0 ? now >= -ms : now + ms < player->getPlaytimeTotal();
    if (possible)
        seekTo(now + ms);
}

void MainWindow::seekTo(int ms)
{
    if (!currentSong)
        return;
    const QScopedValueRollback<bool> own(ignoreStop, true);
    player->startFromPlaytime(ms);
}

void MainWindow::startFromPart(int row)
{
    if (!currentSong)
        return;
    const QScopedValueRollback<bool> own(ignoreStop, true);
    player->startFromPart(row);
    adaptPlayActions(true);
    takeFocusBack();
}

void MainWindow::startLoop(int row)
{
    if (row < 0)
        return;
    const QScopedValueRollback<bool> own(ignoreStop, true);
    player->startLoop(row, row);
}

void MainWindow::onButtonPlay_clicked()
{
    paused = false;
    if (songToPlay() != currentSong)
        loadCurrentSong();
    if (currentSong) {
        warnOfCountDownWithoutBpm();
        // A start begins with a stop, and one without an output ends with it.
        const QScopedValueRollback<bool> own(ignoreStop, true);
        player->start();
        adaptPlayActions(true);
    }
    takeFocusBack();
}

void MainWindow::warnOfCountDownWithoutBpm()
{
    // A file without beats comes with the text "0".
    if (currentSong->getCountDowns().count() == 0 || currentSong->getBpm().toDouble() != 0.0)
        return;
    showInfo(tr("Dieser Song enthält einen Countdown, aber keine BPM Angabe, daher wird der "
                "Countdown nicht angezeigt.<br>Wenn der Countdown angezeigt werden soll, ist eine "
                "korrekte BPM Angabe notwendig."));
}

void MainWindow::onButtonPause_clicked()
{
    paused = player->isPlaying();
    if (paused) {
        player->pause();
    } else {
        const QScopedValueRollback<bool> own(ignoreStop, true);
        player->resume();
    }
    takeFocusBack();
}

void MainWindow::onButtonPlayPause_clicked()
{
    if (paused || player->isPlaying())
        onButtonPause_clicked();
    else
        onButtonPlay_clicked();
}

void MainWindow::onButtonStop_clicked()
{
    paused = false;
    {
        const QScopedValueRollback<bool> own(ignoreStop, true);
        player->stop();
    }
    adaptPlayActions(false);
    takeFocusBack();
}

void MainWindow::stepTempo(int percent)
{
    if (percent > 0 ? tempo < largestTempo : tempo > -largestTempo)
        setTempo(tempo + percent);
}

void MainWindow::setTempo(int percent)
{
    player->setTempo(percent);
    tempo = percent;
    if (currentSong)
        buttonFrame->setTempo(tempoText(percent),
                              tempoBpmText(percent, currentSong->getBpm().toInt()));
    else
        buttonFrame->setTempo({}, {});
    adaptTempoPresetChecks();
}

void MainWindow::adaptTempoPresetChecks()
{
    for (int number = 1; number <= BottomFrame::presetCount; ++number)
        buttonFrame->setPresetChecked(number, currentSong && tempoPreset(number) == tempo);
}

void MainWindow::loadCurrentSong()
{
    const SongPtr selected = activeSelection().song();
    if (selected && selected != currentSong)
        setCurrentSong(selected);
    else if (!selected && !currentSong)
        selectNoneInLibrary();
}

SongListPanel *MainWindow::activePanel() const
{
    SongListPanel *right = libraryPage->songList();
    return right->model()->isMaster() ? right : framePlaylist;
}

SongListSelection &MainWindow::activeSelection() const
{
    return activePanel()->selection();
}

// The song that is chosen; none when that can't be told.
SongPtr MainWindow::songToPlay() const
{
    if (const SongPtr chosen = activeSelection().song())
        return chosen;
    const SongPtr left = framePlaylist->selection().song();
    const bool noneOnTheRight = libraryPage->songList()->selection().rows().isEmpty();
    return noneOnTheRight && left == currentSong ? left : SongPtr();
}

void MainWindow::scrollPlaylist(int rows)
{
    SongListSelection &list = framePlaylist->selection();
    loadPlaylistSong(rows < 0 ? list.goToPrevious() : list.goToNext());
}

void MainWindow::pagePlaylist(int pages)
{
    SongListSelection &list = framePlaylist->selection();
    loadPlaylistSong(pages < 0 ? list.goPageUp() : list.goPageDown());
}

void MainWindow::showPlaylistEnd(int end)
{
    SongListSelection &list = framePlaylist->selection();
    loadPlaylistSong(end < 0 ? list.goToFirst() : list.goToLast());
}

void MainWindow::loadPlaylistSong(const SongPtr &song)
{
    if (song && song != currentSong)
        setCurrentSong(song);
}

// At the end of the list nothing plays and nothing is selected any more.
void MainWindow::playPlaylistEntry(int step)
{
    SongListSelection &list = framePlaylist->selection();
    if (list.rows().size() != 1)
        return;
    const SongPtr song = step < 0 ? list.previousEntry() : list.nextEntry();
    if (!song)
        return;
    {
        const QScopedValueRollback<bool> own(ignoreStop, true);
        setCurrentSong(song);
    }
    refreshFilterStats();
    onButtonPlay_clicked();
}

// The player runs the event loop while it decodes: by the time it returns another song may have
// been chosen, and then this one's part is over.
void MainWindow::setCurrentSong(SongPtr song)
{
    if (positionEditorOpen)
        return;
    if (song != currentSong)
        paused = false;
    currentSong = song;
    tempo = song ? tempoOf(*song) : 0;
    {
        const QScopedValueRollback<bool> own(ignoreStop, true);
        player->setSong(song);
    }
    if (currentSong != song)
        return;
    // Somebody may have stepped it meanwhile.
    setTempo(tempo);
    positionsPage->setSong(song);
    choreographyPage->setSongPresent(!song.isNull());
    selectInOtherTable(song);
    adaptPositionsHeader();
    if (currentScreen() == PositionsScreen)
        positionsPage->refreshPositionsWindow();
    adaptActionsToSong();
    undoBuffer = {song ? song->getPositions() : SongPositions()};
    undoIndex = 0;
    adaptPlayActions(player->isPlaying());
    takeFocusBack();
}

// Both lists show the song that is chosen in one of them.
void MainWindow::selectInOtherTable(const SongPtr &song)
{
    for (SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        if (song && panel->selection().song() != song)
            panel->selection().select(song);
}

void MainWindow::adaptActionsToSong()
{
    adaptActions();
    adaptCountDownButtons();
    if (!currentSong)
        return;
    actions->adaptToSong({.hasPositions = currentSong->getPositions().count() > 0,
                          .hasChoreography = currentSong->getCuesheet().isPresent(),
                          .clipboardEmpty = clipboardEmpty});
}

void MainWindow::selectNoneInLibrary()
{
    libraryPage->clearSelection();
    framePlaylist->selection().clear();
    setCurrentSong({});
    adaptActions();
    refreshFilterStats();
}

void MainWindow::resetMusicListFilters()
{
    frameTop->clearFilter();
    selectNoneInLibrary();
    for (SongListPanel *panel : {framePlaylist, libraryPage->songList()})
        panel->resetFilters();
}

// What is written is the player's song: the selected one has to be that.
void MainWindow::exportSongFile()
{
    loadCurrentSong();
    const QString file = currentSong ? currentSong->getFilename() : QString();
    const QString target = SongFileExport::chooseTarget(this, file, buttonFrame->tempoText());
    if (!target.isEmpty())
        writeExport(target);
    takeFocusBack();
}

void MainWindow::moveSongFile()
{
    if (player->isPlaying())
        return;
    songFiles->moveSongFile(*activePanel(), currentSong);
    // A song that waits in its middle goes on from there: it stays the current one.
    if (!paused && !player->isPlaying() && Song::present(currentSong) != currentSong)
        setCurrentSong(Song::present(currentSong));
}

void MainWindow::copyFileToBuffer()
{
    loadCurrentSong();
    songFiles->copyFileToBuffer(currentSong);
}

void MainWindow::writeExport(const QString &target)
{
    // An older export stays as it is as long as there is nothing to write.
    if (QFile(target).open(QIODevice::Append))
        player->convert(target, tempo);
    else
        showError(tr("Die Datei<br>%1<br>kann nicht geschrieben werden. Der Song ist unverändert. "
                     "Bitte wähle ein anderes Verzeichnis.")
                      .arg(fileNameAsHtml(target)));
}

void MainWindow::onButtonSetEvent_clicked()
{
    std::shared_ptr<DanceEvent> event = getCurrentDanceEvent();
    if (!event)
        event = DanceEvent::createDefault();
    EventEditor editor(this, event, false, eventCategories(app->getSongManager()->getSongs()),
                       false, 0);
    if (runDialog(editor) == QDialog::Accepted)
        setCurrentDanceEvent(event);
    takeFocusBack();
}

void MainWindow::on_newTimeStamp(int ms)
{
    buttonFrame->setRunTime(runTimeText(ms));
    if (ms >= 0)
        frameSlider->setPosition(ms);
}

void MainWindow::on_playStatusChanged(bool playing)
{
    qDebug().noquote() << (playing ? "Playing" : "Not playing")
                       << (currentSong ? currentSong->getFilename() : QString());
    // A part or a time can be played out of a pause as well.
    if (playing)
        paused = false;
    if (playing && currentSong) {
        frameSlider->setLength(currentSong->getPlayLength() * 1000);
        adaptPlayActions(true);
        return;
    }
    if (!paused) {
        frameSlider->setPosition(0);
        adaptPlayActions(false);
    }
    // Each jump of a loop is a stop and a start.
    const bool ended = !ignoreStop && !paused && !frameSlider->isHeld() && !isPartLooping();
    if (ended && framePlaylist->isNonStop())
        playPlaylistEntry(1);
}

bool MainWindow::isPartLooping() const
{
    return player->getLoopEnd() > 0;
}

void MainWindow::noteClipboard()
{
    clipboardEmpty = QGuiApplication::clipboard()->text().isEmpty();
}

void MainWindow::on_partChanged(int part)
{
    qDebug() << "Active part:" << part << "at" << player->getPlaytime() << "ms";
    positionsPage->on_partChanged(part);
}

void MainWindow::adaptPlayActions(bool playing)
{
    ActionState state = actionState();
    state.playing = playing;
    for (const ActionId id : {ActionId::RemoveSongFiles, ActionId::MoveSongFiles})
        actions->action(id)->setEnabled(*isActionEnabled(id, state));
}

ActionState MainWindow::actionState() const
{
    const QList<SongPtr> selected = activeSelection().songs();
    ActionState state;
    state.songsSelected = static_cast<int>(selected.size());
    state.rows = positionsPage->rowCount();
    state.hasMarkedRow = positionsPage->hasMarkedRow();
    state.clipboardEmpty = clipboardEmpty;
    state.playing = player->isPlaying();
    state.locked = positionEditorOpen;
    state.hasSong = !currentSong.isNull();
    for (const SongPtr &song : selected) {
        state.withChoreography += song->getCuesheet().isPresent() ? 1 : 0;
        state.withPositions += song->getPositions().count() > 0 ? 1 : 0;
    }
    return state;
}

void MainWindow::adaptActions()
{
    adaptActionStates();
    takeFocusBack();
}

void MainWindow::adaptActionStates()
{
    const ActionState state = actionState();
    actions->adapt(state);
    frameTop->setLocked(state.locked);
    buttonFrame->setScreenEnabled(SettingsScreen, !state.locked);
    framePlaylist->setDisabled(state.locked);
    libraryPage->songList()->table()->setDisabled(state.locked);
    if (!currentSong)
        buttonFrame->setTempo({}, {});
    adaptTempoPresetChecks();
}

void MainWindow::adaptCountDownButtons()
{
    const bool hasCountDowns = currentSong && currentSong->getCountDowns().count() > 0;
    frameTop->setCountDownButtons(!currentSong.isNull(), hasCountDowns);
    QAction *action = actions->action(ActionId::EditCountDown);
    actions->setPicture(ActionId::EditCountDown, hasCountDowns ? "Stopwatch" : "Emptywatch");
    action->setEnabled(!currentSong.isNull() && !positionEditorOpen);
}
