#pragma once

#include <QStyledItemDelegate>

// Draws the cells of a song table: numbers without thousands separators, as a year has none, and
// rows of missing files readable on their red ground.
class SongDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // In the program's language, whatever the widget's.
    QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
