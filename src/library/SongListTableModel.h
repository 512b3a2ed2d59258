#pragma once

#include "Playlist.h"
#include "SongColumns.h"

#include <QAbstractTableModel>
#include <QDir>
#include <QList>
#include <QStringList>

#include <array>
#include <functional>

class SongManager;

// One list of songs as a table of 33 columns (SongColumns), whatever list it is. Row 0 is no song
// but the filter row: its cells hold the filter texts of the columns. Song rows are dragged out of
// it and dropped into it. Who changes the list itself calls refresh(); what SongManager tells of
// is followed.
class SongListTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    // The manager outlives the model. There is no list, and so no row, until one is set.
    explicit SongListTableModel(SongManager *songManager, QObject *parent = nullptr);

    void setPlaylist(const PlaylistPtr &list);
    const PlaylistPtr &getPlaylist() const { return playlist; }
    // The list is the library; false without a list.
    bool isMaster() const { return playlist && playlist->isMaster(); }
    // The song of a row, an empty pointer for the filter row and outside the table.
    const SongPtr &song(int row) const;
    // What the cells of a row show beside what its song holds.
    SongPlace place(int row) const;
    // Fetches the songs of the list anew.
    void refresh();
    // The same, where somebody else has changed the list.
    void followList();
    // The headings in the language of now.
    void retranslate();

    QString filterText(int column) const;
    void setFilterText(const QString &text, int column);
    void clearFilterTexts();

    // Columns outside the table: unknown type, false.
    static int columnType(int column);
    static bool isComboColumn(int column);
    static bool isSearchable(int column);
    // Whether a song can have an entry there or none, and a filter can ask for that.
    static bool hasChoiceEntries(int column);

    // The text shown for the level "Intermediate-Advanced", in every list from now on.
    static void setHighIntermediateName(const QString &text);
    static const QString &getHighIntermediateName();
    // The library's directories relative to the music directory, each once, sorted; as of the last
    // rebuildDirList().
    static const QStringList &getDirList();
    void rebuildDirList();

    // A block of count rows from row on changes places with the row before it or behind it. Blocks
    // that can't move stay, and the library has no order to change.
    void moveRowsUp(int row, int count);
    void moveRowsDown(int row, int count);
    void addSongs(const QList<SongPtr> &list);

    // Operations on the files of songs, as SongManager has them, with the playlists brought up to
    // date; the rows are told once, at the end.
    bool copySong(const QString &destination, const SongPtr &song);
    SongPtr copySongs(const QString &directory, const QList<SongPtr> &list,
                      const std::function<void()> &step);
    bool moveSong(const QString &destination, const SongPtr &song);
    SongPtr moveSongs(const QString &directory, const QList<SongPtr> &list,
                      const std::function<void()> &step);
    SongPtr removeSongs(const QList<SongPtr> &list);
    int importSongs(const QStringList &files);
    // Tells that these songs show something else now.
    void tellSongsChanged(const QList<SongPtr> &list);

    // Removes exactly one row, whatever count says. Of the library this removes the song's file,
    // and its entries in all playlists. False for the filter row.
    bool removeRows(int row, int count, const QModelIndex &parent = {}) override;

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    // Of a song row Qt::UserRole gives the SongPtr, of the filter row -1.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    Qt::DropActions supportedDropActions() const override { return Qt::CopyAction; }
    Qt::DropActions supportedDragActions() const override { return Qt::CopyAction; }
    QStringList mimeTypes() const override;
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    // Into a playlist: before the song of parent, at the end without one. Of a song list that is
    // dragged within itself only the first row moves. The library takes no songs from lists, but
    // files from outside: they are imported.
    bool dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int column,
                      const QModelIndex &parent) override;

Q_SIGNALS:
    // Behind every change of the rows.
    void notifyModelChanged();

private:
    struct DraggedItem
    {
        QString path;
        int index; // of the song in its list
    };
    struct Drag
    {
        qint32 modelId = 0;
        QList<DraggedItem> items;
    };
    class Change;

    void fetchSongs();
    QVariant filterRowData(int column, int role) const;
    QVariant songData(int row, int column, int role) const;
    static Drag readDrag(const QMimeData &data);
    bool importDropped(const QMimeData &data);
    static QStringList pathsOf(const QList<DraggedItem> &items);
    void append(const QList<DraggedItem> &items, bool sameModel);
    void insert(const QList<DraggedItem> &items, int parentRow, bool sameModel);

    SongManager *manager;
    std::array<QString, SongColumnCount> filterTexts;
    PlaylistPtr playlist;
    // What the rows show: the list's songs as they were when the rows were last told.
    QList<SongPtr> songs;
    QDir musicDir;
    qint32 modelId;
    int changing = 0;
};
