#pragma once

#include "SongColumns.h"

#include <QList>
#include <QObject>

#include <array>

class FilterComboBox;
class FrozenTableView;
class QKeyEvent;
class QLineEdit;
class QPushButton;
class SongListFilter;
class SongListTableModel;

// The filter row of one song list: a widget over each column's cell of the first row, by which the
// songs on show are chosen. Boxes offer what there is in the list, buttons step from all songs to
// those with something and to those without, fields are typed into. What is chosen stands in the
// model's filter texts. The widgets belong to the table.
class SongListFilterHandler : public QObject
{
    Q_OBJECT

public:
    // popupExtra: pixels that an open box is wider than its longest entry. The table, which shows
    // the filter already, outlives the handler, and so do both models.
    SongListFilterHandler(SongListTableModel *songModel, SongListFilter *songFilter, int popupExtra,
                          FrozenTableView *table, QObject *parent = nullptr);

    // Null where a column has another widget.
    FilterComboBox *comboBox(int column) const;
    QLineEdit *lineEdit(int column) const;
    QPushButton *button(int column) const;
    // The fields that are typed into.
    QList<QLineEdit *> lineEdits() const;

    // All texts in the language of now; what was chosen stays chosen.
    void retranslate();
    // The colours of empty boxes and the pictures of the theme on show.
    void adaptToTheme();

public Q_SLOTS:
    // Fills all boxes anew. A filter for something that the list no longer holds is dropped.
    void handleModelChanged();
    // No filter at all.
    void resetFilters();

Q_SIGNALS:
    // Other songs may be on show.
    void adaptFilterStats();
    // The keyboard is the window's again.
    void focusReturned();
    // A key in a field moves through the music list: so many rows down, or up below 0.
    void musicListScrolled(int rows);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Of one column; all but one are null.
    struct Widgets
    {
        FilterComboBox *combo = nullptr;
        QLineEdit *edit = nullptr;
        QPushButton *button = nullptr;
    };

    Widgets &widgets(int column) { return cells[static_cast<std::size_t>(column)]; }
    void createComboBox(int column);
    void createLineEdit(int column);
    void createButton(int column);
    void place(int column, QWidget *widget);
    void comboBoxChanged(int column);
    void lineEditChanged(int column, const QString &filterText);
    void buttonClicked(int column);
    void askForDates(int column);
    void refillComboBoxes();
    QStringList chosenTexts() const;
    void setButtonText(const QString &text, int column);
    void setFilterText(const QString &text, int column);
    void applyFilter(bool setFocus);
    void describeWidgets();
    void colourEmptyBoxes();
    bool takeKey(const QKeyEvent &event);
    void reveal(const QObject *edit);

    SongListTableModel *model;
    SongListFilter *filter;
    FrozenTableView *view;
    int extraWidth;
    std::array<Widgets, SongColumnCount> cells{};
    // While several widgets change, the songs are chosen once, at the end.
    bool collecting = false;
};
