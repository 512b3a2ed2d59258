#include "SongDelegate.h"

QString SongDelegate::displayText(const QVariant &value, const QLocale &) const
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return QStyledItemDelegate::displayText(value, locale);
}

void SongDelegate::initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->backgroundBrush.style() != Qt::NoBrush)
        option->palette.setColor(QPalette::Text, Qt::black);
}
