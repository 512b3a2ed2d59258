#include "FilterRowModel.h"

FilterRowModel::FilterRowModel(QAbstractItemModel *whole, QObject *parent)
    : QAbstractTableModel(parent)
    , source(whole)
    , columns(whole->columnCount())
{
    connect(source, &QAbstractItemModel::modelReset, this, &FilterRowModel::tellAll);
    connect(source, &QAbstractItemModel::dataChanged, this, [this](const QModelIndex &first) {
        if (first.row() == 0)
            tellAll();
    });
}

int FilterRowModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

int FilterRowModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant FilterRowModel::data(const QModelIndex &index, int role) const
{
    return index.isValid() ? source->index(0, index.column()).data(role) : QVariant();
}

void FilterRowModel::tellAll()
{
    Q_EMIT dataChanged(index(0, 0), index(0, columns - 1));
}
