#pragma once

#include <QList>
#include <QTableView>
#include <QUrl>

class FilterTableView;

// A table whose first row, the filter row, stays in view while the others scroll below it: a second
// table that holds this row alone lies over it and follows each change of the columns.
class FrozenTableView : public QTableView
{
    Q_OBJECT

public:
    explicit FrozenTableView(QWidget *parent = nullptr);

    // The table over the first row; a child of this one.
    FilterTableView *getFrozenView() const { return frozenView; }

    // Once, when the model is set: shows the frozen row.
    void init();
    // Gives the first row the height of the frozen one; needed when the model was reset.
    void refreshFrozenRow();
    // Lays the frozen row over the first one.
    void updateFrozenTableGeometry();
    // Columns, widths and order of the frozen row as here; needed when the header was restored.
    void refreshFrozenColumns();

    // Never scrolls for the first row; to others so far that the frozen row doesn't hide them.
    void scrollTo(const QModelIndex &index, ScrollHint hint = EnsureVisible) override;

public Q_SLOTS:
    void visualSectionMoved(int logicalIndex, int oldVisualIndex, int newVisualIndex);
    void updateSectionWidth(int logicalIndex, int oldSize, int newSize);
    void updateSectionHeight(int logicalIndex, int oldSize, int newSize);

Q_SIGNALS:
    // For who drops on the lists or drags from them by other means than the model.
    void notifyResetSongSelection();
    void dropMusicListEntry(QList<QUrl> urlList, QPoint pos);
    void setTableWidgetPlDragStartPos(QPoint pos);

protected:
    void resizeEvent(QResizeEvent *event) override;
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    // Drags the selected songs, with a picture of a music file.
    void startDrag(Qt::DropActions supportedActions) override;

private:
    void setUpFrozenView();
    void connectHeader();
    void uncover(const QModelIndex &index);

    FilterTableView *frozenView;
};
