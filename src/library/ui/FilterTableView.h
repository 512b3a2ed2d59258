#pragma once

#include <QTableView>

// The frozen first row of a song table, laid over it by its FrozenTableView, which it follows in
// all its columns. Widgets are put into its cells with setIndexWidget(), once: its model's row
// stays whatever happens to the songs.
class FilterTableView : public QTableView
{
    Q_OBJECT

public:
    using QTableView::QTableView;

    // Nothing is thrown away.
    void reset() override { }

protected:
    // Keys that no filter takes go on to whoever is beyond both tables.
    void keyPressEvent(QKeyEvent *event) override;
};
