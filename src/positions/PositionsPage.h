#pragma once

#include "PositionsTable.h"
#include "Song.h"

#include <QModelIndex>
#include <QPointer>
#include <QWidget>

class Player;
class QAction;

// The screen that is read across the room while a song plays: its positions as large as they fit,
// the row that plays marked and in the middle. Rows are marked by the program alone; the number
// of a row starts the song there.
class PositionsPage : public QWidget
{
    Q_OBJECT

public:
    // The player outlives the page.
    explicit PositionsPage(Player *songPlayer, QWidget *parent = nullptr);
    ~PositionsPage() override;

    // The song on show; an empty pointer empties the page. Rows are filled by the next rebuild.
    void setSong(const SongPtr &song);
    // While the window comes up, a rebuild only empties the page.
    void setStartingUp(bool starting) { startingUp = starting; }

    // Largest font in points.
    void setMaxFontSize(int points) { look.maxFontSize = points; }
    // True: the text fills the width. False: all rows have to be seen at once.
    void setFullWidth(bool full) { look.fullWidth = full; }
    // Shows or hides an optional column; the beats stay hidden for a song without a bpm.
    void setColumnShown(PositionsColumn column, bool shown);
    bool isColumnShown(PositionsColumn column) const { return look.shown[column]; }
    // A vertical alignment flag of Qt for the cells.
    void setVerticalAlignment(Qt::Alignment alignment) { look.verticalAlignment = alignment; }

    // What the context menu offers, a null pointer for a separator: the play actions only with
    // positions to play, and a separator behind them. The actions outlive the page.
    void setContextMenuActions(const QList<QAction *> &play, const QList<QAction *> &other);
    // The widget from whose corner the menu's place counts; without one, that of the table.
    void setContextMenuOrigin(QWidget *origin) { menuOrigin = origin; }
    // From a menu's opening until a row is marked or pressed, a menu's action has played, or the
    // next menu was asked for, which then stays away.
    bool isContextMenuOpen() const { return contextMenuOpen; }
    // The row under the last right click, -1 for none.
    int contextMenuRow() const { return contextMenuIndex.row(); }

    int rowCount() const;
    // Whether anything is marked.
    bool hasMarkedRow() const;
    // The marked row, -1 if there is none.
    int selectedPositionsRow() const;
    void selectPositionsRow(int rowNum, bool scrollToCenter);
    // Marks the row n rows away, the first or last at most. Without a marked row, up begins at the
    // last one and down at the first; n of 10 and more goes to the first, and to the last.
    void scrollUpPositions(int n);
    void scrollDownPositions(int n);
    void scrollToCurrentPosition();

public Q_SLOTS:
    // Rebuilds the page: measures, chooses the font, fills the table.
    void refreshPositionsWindow();
    // When the screen has been switched to this page: rebuilds it and shows the marked row. Runs
    // the event loop once.
    void enter();
    // Marks the part that plays; -1 marks none.
    void on_partChanged(int currentPart);

    // Show the column where it was hidden, and hide it where it was shown.
    void toggleColumn(PositionsColumn column);
    void togglePartCol() { toggleColumn(PartColumn); }
    void toggleBeatCol() { toggleColumn(BeatsColumn); }
    void toggleTimeCol() { toggleColumn(TimeColumn); }

    // Asks for the marked row to be played over and over; nothing without one.
    void playLoop();
    // Ask for the row under the last right click to be played, or to be played over and over.
    void popupMenuPlay();
    void popupMenuPlayLoop();

Q_SIGNALS:
    // The user wants the song to play from this row on; -1 from its beginning.
    void startRequested(int row);
    // The user wants this row to be played over and over.
    void loopRequested(int row);
    // The user has pressed into the table: the keys belong to the window again.
    void pressed();
    // Another row may be marked, or none, or another number of rows be there: what the window's
    // actions can do may have changed.
    void markedRowChanged();
    // The page has been rebuilt: an editor that is open marks its row again.
    void rebuilt();
    // The page has been emptied: what is shown about its song elsewhere goes too.
    void emptied();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void connectTable();
    void followSectionSizes();
    bool beatsAreKnown() const;
    void goToRow(int row);
    void popUpMenu(const QPoint &pos);
    void closeContextMenu();
    void onTableWidgetPositions_pressed(const QModelIndex &index);
    void onTableWidgetPositions_doubleClicked(const QModelIndex &index);
    void onTableWidgetPositions_customContextMenuRequested(const QPoint &pos);

    Player *player;
    SongPtr song;
    PositionsTable *tableWidgetPositions;
    PositionsTable::Look look; // its columns: those wanted, whatever the song
    bool startingUp = false;
    QSize rebuiltSize; // of the table, at the last rebuild
    QMetaObject::Connection sectionConnection;

    QList<QAction *> playActions;
    QList<QAction *> otherActions;
    QPointer<QWidget> menuOrigin;
    QModelIndex contextMenuIndex;
    bool contextMenuOpen = false;
};
