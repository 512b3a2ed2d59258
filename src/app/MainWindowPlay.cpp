// The window's keys and what they do to the player and the current song.

#include "BottomFrame.h"
#include "ChoreographyPage.h"
#include "LibraryPage.h"
#include "MainWindow.h"
#include "Player.h"
#include "PositionsPage.h"
#include "TempoTexts.h"
#include "TimeTexts.h"

#include <QAction>
#include <QtDebug>

void MainWindow::carryOut(const KeyCommand &key)
{
    switch (key.command) {
    case Command::ShowScreen:
        return showScreen(key.argument);
    case Command::LoadAndShowPositions:
        loadCurrentSong();
        return showScreen(PositionsScreen);
    case Command::ShowLibrary:
        return showScreen(LibraryScreen);
    case Command::LibraryUp:
        return libraryPage->scrollUpMusicList(key.argument);
    case Command::LibraryDown:
        return libraryPage->scrollDownMusicList(key.argument);
    case Command::LibraryPageUp:
        return libraryPage->scrollUpMusicList(libraryPage->pageStep());
    case Command::LibraryPageDown:
        return libraryPage->scrollDownMusicList(libraryPage->pageStep());
    case Command::PositionsUp:
        return positionsPage->scrollUpPositions(key.argument);
    case Command::PositionsDown:
        return positionsPage->scrollDownPositions(key.argument);
    case Command::SeekBack:
        return seek(-key.argument);
    case Command::SeekAhead:
        return seek(key.argument);
    case Command::TempoUp:
        return onButtonTempoPlus_clicked();
    case Command::TempoDown:
        return onButtonTempoMinus_clicked();
    case Command::StartPart:
        // A number beyond the last part means no part: the song starts at its beginning.
        return startFromPart(key.argument < positionsPage->rowCount() ? key.argument : -1);
    case Command::Play:
        return onButtonPlay_clicked();
    case Command::Pause:
        return onButtonPause_clicked();
    case Command::PlayPause:
        return onButtonPlayPause_clicked();
    case Command::Stop:
        return onButtonStop_clicked();
    case Command::TogglePartColumn:
        return columnActions.constFirst()->trigger();
    case Command::Rescan:
        return refreshAllLists();
    case Command::Quit:
        byeBye();
    }
}

void MainWindow::seek(int ms)
{
    if (!player->isPlaying())
        return;
    const int now = player->getPlaytime();
    const bool possible = ms < 0 ? now >= -ms : now + ms < player->getPlaytimeTotal();
    if (!possible)
        return;
    player->startFromPlaytime(now + ms);
}

void MainWindow::startFromPart(int row)
{
    if (!currentSong)
        return;
    player->startFromPart(row);
    takeFocusBack();
}

void MainWindow::onButtonPlay_clicked()
{
    paused = false;
    const SongPtr selected = libraryPage->selectedSong();
    if (selected && selected != currentSong)
        loadCurrentSong();
    if (currentSong)
        player->start();
    takeFocusBack();
}

void MainWindow::onButtonPause_clicked()
{
    paused = player->isPlaying();
    if (paused)
        player->pause();
    else
        player->resume();
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
    player->stop();
    takeFocusBack();
}

void MainWindow::onButtonTempoPlus_clicked()
{
    if (tempo < 50)
        setTempo(tempo + 1);
    takeFocusBack();
}

void MainWindow::onButtonTempoMinus_clicked()
{
    if (tempo > -50)
        setTempo(tempo - 1);
    takeFocusBack();
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
}

void MainWindow::loadCurrentSong()
{
    const SongPtr selected = libraryPage->selectedSong();
    if (selected && selected != currentSong)
        setCurrentSong(selected);
    else if (!selected && !currentSong)
        selectNoneInLibrary();
}

// The player runs the event loop while it decodes: by the time it returns another song may have
// been chosen, and then this one's part is over.
void MainWindow::setCurrentSong(SongPtr song)
{
    currentSong = song;
    player->setSong(song);
    if (currentSong != song)
        return;
    setTempo(song ? static_cast<int>(song->getTempo()) : 0);
    positionsPage->setSong(song);
    choreographyPage->setSongPresent(!song.isNull());
    adaptPositionsHeader();
    if (currentScreen() == PositionsScreen)
        positionsPage->refreshPositionsWindow();
    takeFocusBack();
}

void MainWindow::selectNoneInLibrary()
{
    libraryPage->clearSelection();
    setCurrentSong({});
}

void MainWindow::on_newTimeStamp(int ms)
{
    buttonFrame->setRunTime(runTimeText(ms));
}

void MainWindow::on_playStatusChanged(bool playing)
{
    // A part or a time can be played out of a pause as well.
    if (playing)
        paused = false;
    qDebug().noquote() << (playing ? "Playing" : "Not playing")
                       << (currentSong ? currentSong->getFilename() : QString());
}

void MainWindow::on_partChanged(int part)
{
    qDebug() << "Active part:" << part << "at" << player->getPlaytime() << "ms";
    positionsPage->on_partChanged(part);
}
