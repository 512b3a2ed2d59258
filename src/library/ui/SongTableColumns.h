#pragma once

#include "SongColumns.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPoint>

class FrozenTableView;
class QAction;
class QMenu;

// The columns of a song table: which are shown, how broad, in which order, and the menu of a
// heading by which the user changes that.
class SongTableColumns : public QObject
{
    Q_OBJECT

public:
    enum class Beside { Left, Right };

    // The view outlives it and has its model. Columns with this mark are hidden at first.
    SongTableColumns(FrozenTableView *table, HiddenAtFirst hiddenMark, QObject *parent);

    void hideAtFirst();
    // Widths for a table that nobody has set up yet; nothing happens to any other one.
    void spreadAtFirst();
    // To what they show; hidden columns have the width when they are shown again.
    void fit(const QList<int> &columns);
    // Those that are shown, from left to right.
    QList<int> shown() const;

    // Column order, widths and sorting, as the header keeps them. Empty while nobody has seen them.
    QByteArray config() const;
    // False, with nothing changed, for what is no state of a header.
    bool restore(const QByteArray &config);

    // The menu over the heading of a column.
    void popupMenu(QPoint global, int column);
    // Where a hidden column goes to stand beside another one; visual indexes.
    static int placeBeside(int hidden, int other, Beside side);

private:
    QMenu *submenu(QMenu *menu, const QString &title, int column, Beside side);
    void hideColumn(int column);
    // By an action's data: "<column> <its visual index> <the new one>".
    void showColumn(const QAction *action);

    FrozenTableView *view;
    const HiddenAtFirst hiddenBit;
    bool placed = false; // restored, fitted, or spread at first sight
};
