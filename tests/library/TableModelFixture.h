#pragma once

#include "SongListTableModel.h"
#include "SongManager.h"

#include <QMimeData>
#include <QTemporaryDir>

#include <memory>

// A table model over a manager of its own. Its songs are files that nobody could play; the records
// are set by the test.
class TableModelFixture
{
protected:
    void prepareModel();
    void dropModel();

    SongPtr song(const QString &name);
    // The model shows a playlist of these songs, one a letter.
    void show(const QString &letters);
    QString letters(const PlaylistPtr &list) const;
    QString letters() const { return letters(model->getPlaylist()); }
    QModelIndex cell(int row, int column = 0) const { return model->index(row, column); }
    // The rows' whole width, as a table's selection has them.
    std::unique_ptr<QMimeData> drag(const SongListTableModel &from, const QList<int> &rows) const;

    std::unique_ptr<QTemporaryDir> music;
    std::unique_ptr<SongManager> manager;
    std::unique_ptr<SongListTableModel> model;
};
