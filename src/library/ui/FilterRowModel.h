#pragma once

#include <QAbstractTableModel>

// The first row of another model as a table of its own. Its one row and its columns never go, so
// that what a view holds in their cells outlives every reset of the other model.
class FilterRowModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // The model outlives this one; it keeps the number of its columns.
    explicit FilterRowModel(QAbstractItemModel *whole, QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    // Nothing while the other model has no row.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    void tellAll();

    QAbstractItemModel *source;
    int columns;
};
