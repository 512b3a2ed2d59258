#pragma once

#include "Playlist.h"
#include "SongListSelection.h"

#include <QFrame>
#include <QList>

class FlowLayout;
class FrozenTableView;
class QComboBox;
class QLabel;
class QPushButton;
class SongListFilter;
class SongListTableModel;
class SongManager;

// One list of songs with its frame: the table, the box that chooses the list, the buttons that work
// on it and a line about its length. The window shows two of them: the library (or a playlist) on
// the right, a playlist (or the library) on the left. No widget of it takes the focus: it is worked
// by keys that the window passes on.
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
    SongListSelection &selection() { return selected; }
    const SongListSelection &selection() const { return selected; }

    const PlaylistPtr &list() const;
    // Shows a list of the manager's; an empty pointer changes nothing.
    void setList(const PlaylistPtr &list);
    // The same, but a list that is on show already stays with its order and its selection.
    void ensureList(const PlaylistPtr &wanted);
    // Opens the box of the lists, while it is visible.
    void openListBox();
    // The box, the buttons and the line about the length; the table stays.
    void setPlaylistWidgetsVisible(bool visible);
    bool arePlaylistWidgetsVisible() const;
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
    // The right mouse button: over the songs, and over the heading of a column.
    void contextMenuRequested(QPoint global);
    void headerMenuRequested(QPoint global, int column);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QString suffixed(const char *name) const;
    void createTable();
    void createHeader();
    void createListBox();
    void createButtons();
    void layOut();
    void connectSignals();
    void setUpTable();
    void hideColumns();
    void spreadColumns();
    void showListAt(int index);
    void fillListBox();
    void followLists();
    void adaptToKind();
    void adaptPlaylistInfo();
    void retranslate();

    const Side side;
    SongManager *manager;
    SongListTableModel *songModel;
    SongListFilter *songFilter;
    FrozenTableView *view;
    SongListSelection selected;
    QWidget *playlistWidgets;
    QComboBox *listBox;
    FlowLayout *buttonLayout;
    QList<QPushButton *> buttons; // one for each row of the table of buttons, null where not here
    QPushButton *nonStop = nullptr;
    QLabel *info;
    bool columnsPlaced = false; // restored, or spread at first sight
};
