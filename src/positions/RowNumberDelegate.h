#pragma once

#include <QStyledItemDelegate>

// Paints the number of a row as the button that it is: pressing it plays the row.
class RowNumberDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
