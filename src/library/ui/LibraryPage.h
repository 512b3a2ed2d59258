#pragma once

#include "Song.h"

#include <QWidget>

class QSortFilterProxyModel;
class QTableView;
class SongListTableModel;

// The screen on which a song is chosen: the library as a sorted table, worked by keys that the
// window passes on. The table itself keeps no focus.
class LibraryPage : public QWidget
{
    Q_OBJECT

public:
    // The model outlives the page.
    explicit LibraryPage(SongListTableModel *songModel, QWidget *parent = nullptr);

    // The song of the one selected row; empty when none or several are selected.
    SongPtr selectedSong() const;
    void clearSelection();

    // Selects the row n rows away from the selected one, the first or last at most. Without a
    // selection, up goes from the end of the list, and down does nothing.
    void scrollUpMusicList(int n);
    void scrollDownMusicList(int n);
    // Rows that fit on the screen less one, for moving by pages.
    int pageStep() const;

    // Row height and header height follow the font size in points.
    void setFontSize(int points);

    // Column order, widths and sorting, as the table's header keeps them.
    QByteArray columnConfig() const;
    bool restoreColumnConfig(const QByteArray &config);

Q_SIGNALS:
    // The user double-clicked a song.
    void songActivated();
    void selectionChanged();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void setUpTable();
    void spreadColumns();
    void selectRow(int row);
    int selectedRow() const;

    SongListTableModel *model;
    QSortFilterProxyModel *proxy;
    QTableView *tableViewMusicList;
    bool columnsPlaced = false; // restored, or spread over the page's first width
};
