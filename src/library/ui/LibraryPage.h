#pragma once

#include "Song.h"

#include <QWidget>

class SongListPanel;
class SongManager;

// The screen on which a song is chosen: the song list of the right side, by default the library,
// worked by keys that the window passes on.
class LibraryPage : public QWidget
{
    Q_OBJECT

public:
    // The manager outlives the page.
    explicit LibraryPage(SongManager *songManager, QWidget *parent = nullptr);

    // All that the list itself can.
    SongListPanel *songList() const { return panel; }

    // The song of the one selected row; empty when none or several are selected.
    SongPtr selectedSong() const;
    QList<SongPtr> selectedSongs() const;
    void clearSelection();
    // See SongListSelection.
    void scrollUpMusicList(int n);
    void scrollDownMusicList(int n);
    int pageStep() const;

    // See SongListPanel.
    QByteArray columnConfig() const;
    bool restoreColumnConfig(const QByteArray &config);

Q_SIGNALS:
    // The user double-clicked a song.
    void songActivated();

private:
    SongListPanel *panel;
};
