#pragma once

#include "Playlist.h"
#include "PlaylistOperations.h"
#include "PlaylistTasks.h"
#include "SongListSelection.h"

#include <QFrame>
#include <QList>

class FrozenTableView;
class PlaylistBar;
class SongListFilter;
class SongListFilterHandler;
class SongListTableModel;
class SongManager;
class SongTableColumns;

// One list of songs with its frame: the table, the box that chooses the list, the buttons that work
// on it and a line about its length. The window shows two of them: the library (or a playlist) on
// the right, a playlist (or the library) on the left. No widget of it but the fields of the filter
// row takes the focus: it is worked by keys that the window passes on.
class SongListPanel : public QFrame
{
    Q_OBJECT

public:
    enum class Side { Left, Right };

    // The manager outlives the panel. The right side begins with the library, the left one with the
    // working list.
    SongListPanel(Side which, SongManager *songManager, QWidget *parent = nullptr);
    ~SongListPanel() override;

    SongListTableModel *model() const { return songModel; }
    SongListFilter *filter() const { return songFilter; }
    FrozenTableView *table() const { return view; }
    SongListFilterHandler *filterRow() const { return filters; }
    SongListSelection &selection() { return selected; }
    const SongListSelection &selection() const { return selected; }

    const PlaylistPtr &list() const;
    // Shows a list of the manager's; an empty pointer changes nothing.
    void setList(const PlaylistPtr &list);
    // The same, but a list that is on show already stays with its order and its selection.
    void ensureList(const PlaylistPtr &wanted);
    // No filter at all in the filter row.
    void resetFilters();
    // The same as ensureList() after the question whether changes of the list on show are to be
    // saved; those that the user declines are dropped. False when the list on show stays.
    bool switchList(const PlaylistPtr &wanted);
    // Asks whether changes of the list on show are to be saved. False when the user wants to stay
    // with it, or when they could not be saved.
    bool promptSave();
    // The panel of the other side, whose songs can be added here. It follows what is done to a list
    // that both show, if this one is told there as well.
    void setOther(SongListPanel *panel);
    // Does what a button asks for, also where the button can't be pressed just now; nothing in a
    // panel that is disabled. What can't be done is left alone.
    void carryOut(PlaylistTask task);
    // Copies the table as text to the clipboard: these columns, of the selected songs, or of all
    // where none is selected.
    void exportColumns(const QList<int> &columns);
    void exportShownColumns();
    // Gives these columns the width of what they show, or those that are worth it.
    void fitColumns(const QList<int> &columns);
    void fitAllColumns();
    // Opens the box of the lists, while it is visible.
    void openListBox();
    // The box, the buttons and the line about the length; the table stays.
    void setPlaylistWidgetsVisible(bool visible);
    bool arePlaylistWidgetsVisible() const;
    // Really to be seen, with the screen and the panel that it is in.
    bool isListBoxVisible() const;
    // Play goes on with the next song by itself; of the left side.
    bool isNonStop() const;
    void setNonStop(bool nonStop);

    // Row and header height follow the font size in points.
    void setFontSize(int points);
    void setButtonSize(const QSize &size);
    // Pixels between the buttons.
    void setButtonSpacing(int pixels);
    // Fetches the pictures of the buttons anew from the theme on show.
    void refreshPictures();

    // Column order, widths and sorting, as the table's header keeps them.
    QByteArray columnConfig() const;
    // False, with nothing changed, for what is no state of a header.
    bool restoreColumnConfig(const QByteArray &config);

Q_SIGNALS:
    // The user double-clicked a song.
    void songActivated();
    void selectionChanged();
    // Another list is shown, or the same one with other songs.
    void listChanged();
    // The user took an entry out of the list.
    void entryRemoved();
    // The right mouse button over the songs.
    void contextMenuRequested(QPoint global);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct TaskRoute;
    static const TaskRoute taskRoutes[];

    void createTable();
    void createHeader();
    void layOut();
    void connectSignals();
    void connectTable();
    void connectList();
    void setUpTable();
    void showListAt(int index);
    // Of the manager's lists; -1 for none of them.
    int indexOf(const PlaylistPtr &wanted) const;
    bool isKnown(const PlaylistPtr &wanted) const;
    void fillListBox();
    void followLists();
    void followChange();
    void keepSelection();
    void adaptToKind();
    void adaptPlaylistInfo();
    void adaptPlaylistInfoSoon();
    void adaptPlaylistButtons();
    void refreshPlaylistCombos();
    void retranslate();

    void openList();
    void saveList(bool askName);
    void removeList();
    void copyText();
    void copyFiles();
    void addSongsOfOther();
    void removeEntry();
    void moveEntry(int step);
    // The list's own number of the one selected row, from 1; 0 for none.
    int selectedEntry() const;
    QList<int> songRows() const;

    const Side side;
    SongManager *manager;
    PlaylistOperations operations;
    SongListTableModel *songModel;
    SongListFilter *songFilter;
    FrozenTableView *view;
    SongListFilterHandler *filters = nullptr;
    SongListSelection selected;
    PlaylistBar *playlistWidgets;
    SongTableColumns *columns = nullptr;
    SongListPanel *other = nullptr;
    bool infoPending = false;
};
