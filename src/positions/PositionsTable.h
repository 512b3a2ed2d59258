#pragma once

#include "PositionsTexts.h"

#include <QTableWidget>

class Song;
struct FittedFont;

// The table of the positions page: a row a position, as large as it fits. It keeps no focus and
// lets the user change nothing; rows are marked by the program alone.
class PositionsTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit PositionsTable(QWidget *parent = nullptr);

    // How a song's positions are to be shown.
    struct Look
    {
        ShownColumns shown{true, true, false, true, true};
        int maxFontSize = 70;   // points
        bool fullWidth = false; // the text fills the width; else all rows are seen at once
        Qt::Alignment verticalAlignment = Qt::AlignVCenter;
    };
    // Fills the table anew: measures, chooses the font, sets cells, widths and heights. Columns
    // that aren't shown have no cells.
    void fill(const Song &song, const Look &look);

    void writeHeaderTexts();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void setUp();
    FittedFont chooseFont(const PositionsExtent &extent, const Look &look) const;
    void fillRow(int row, const PositionsRow &texts, const Look &look, const QFont &font,
                 const QColor &numberGround);
    void setCell(int row, int column, const QString &text, const QFont &font,
                 Qt::Alignment alignment);
    void setColumnWidths(const PositionsExtent &extent, const ShownColumns &shown,
                         const QFont &font);
    int fitHeading(int column, int columnWidth);
};
