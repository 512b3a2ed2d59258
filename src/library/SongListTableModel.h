#pragma once

#include "Song.h"

#include <QAbstractTableModel>
#include <QList>

class SongManager;

// The library's songs as a table, one song a row, in no order of its own.
class SongListTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column {
        TitleColumn,
        ArtistColumn,
        LevelColumn,
        BpmColumn,
        LengthColumn,
        ChoreographerColumn,
        TempoColumn,
        ColumnCount
    };
    // The value by which a column is sorted: a number for numbers, else the text shown.
    static constexpr int SortRole = Qt::UserRole;

    // The manager outlives the model; every change of its songs is followed.
    explicit SongListTableModel(const SongManager *songManager, QObject *parent = nullptr);

    // The song of a row, an empty pointer outside the table.
    SongPtr song(int row) const;
    // The text shown for the level "Intermediate-Advanced".
    void setHighIntermediateName(const QString &name);
    // Fetches the songs anew.
    void refresh();

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

private:
    QVariant display(const Song &song, int column) const;

    const SongManager *manager;
    QList<SongPtr> songs;
    QString highIntermediateName;
};
