#pragma once

#include "PositionsTexts.h"
#include "Song.h"

#include <QWidget>

class Player;
class QTableWidget;
struct FittedFont;

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

    // Largest font in points.
    void setMaxFontSize(int points) { maxFontSize = points; }
    // True: the text fills the width. False: all rows have to be seen at once.
    void setFullWidth(bool full) { fullWidth = full; }
    // Shows or hides an optional column; the beats stay hidden for a song without a bpm.
    void setColumnShown(PositionsColumn column, bool shown);
    // A vertical alignment flag of Qt for the cells.
    void setVerticalAlignment(Qt::Alignment alignment) { verticalAlignment = alignment; }

    int rowCount() const;
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
    // Marks the part that plays; -1 marks none.
    void on_partChanged(int currentPart);

Q_SIGNALS:
    // The user wants the song to play from this row on.
    void startRequested(int row);
    // The user has pressed a cell: the keys belong to the window again.
    void pressed();

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void setUpTable();
    void writeHeaderTexts();
    void followSectionSizes();
    ShownColumns shownColumns() const;
    FittedFont chooseFont(const PositionsExtent &extent, const ShownColumns &shown) const;
    void fillTable(const ShownColumns &shown, const QFont &font, int rowHeight);
    void fillRow(int row, const PositionsRow &texts, const ShownColumns &shown, const QFont &font);
    void setColumnWidths(const PositionsExtent &extent, const QFont &font);
    int fitHeading(int column, int columnWidth);
    void goToRow(int row);
    void onTableWidgetPositions_pressed(const QModelIndex &index);
    void onTableWidgetPositions_doubleClicked(const QModelIndex &index);

    Player *player;
    SongPtr song;
    QTableWidget *tableWidgetPositions;
    ShownColumns wanted{true, true, false, true, true};
    int maxFontSize = 70;
    bool fullWidth = false;
    QMetaObject::Connection sectionConnection;
    Qt::Alignment verticalAlignment = Qt::AlignVCenter;
};
