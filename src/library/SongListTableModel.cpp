#include "SongListTableModel.h"

#include "Settings.h"
#include "SongManager.h"

#include <QColor>
#include <QDataStream>
#include <QFont>
#include <QHash>
#include <QMimeData>
#include <QSet>
#include <QUrl>
#include <QtDebug>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

namespace {

const QString songsFormat = u"application/tarvelo.plitem"_s;
const QString urlsFormat = u"text/uri-list"_s;

qint32 lastModelId = 0;
QStringList dirList;
QString highIntermediateName;

Qt::Alignment alignment(const SongColumnRow &column)
{
    if (column.column == YearColumn || column.type == QMetaType::Bool)
        return Qt::AlignCenter;
    return Qt::AlignVCenter | (column.type == QMetaType::QString ? Qt::AlignLeft : Qt::AlignRight);
}

Qt::Alignment headingAlignment(const SongColumnRow &column)
{
    if (column.type == QMetaType::QDateTime)
        return Qt::AlignCenter;
    if (column.type == QMetaType::Bool)
        return Qt::AlignLeft | Qt::AlignVCenter;
    return alignment(column);
}

QFont headingFont()
{
    QFont font;
    font.setWeight(QFont::Bold);
    return font;
}

} // namespace

// A change of all rows: announced at its beginning, the songs fetched and told at its end. What the
// library tells meanwhile, as a consequence, is part of it.
class SongListTableModel::Change
{
    Q_DISABLE_COPY_MOVE(Change)

public:
    explicit Change(SongListTableModel *model)
        : changed(model)
    {
        if (changed->changing++ == 0)
            changed->beginResetModel();
    }
    ~Change()
    {
        if (--changed->changing > 0)
            return;
        changed->fetchSongs();
        changed->endResetModel();
        Q_EMIT changed->notifyModelChanged();
    }

private:
    SongListTableModel *changed;
};

SongListTableModel::SongListTableModel(SongManager *songManager, QObject *parent)
    : QAbstractTableModel(parent)
    , manager(songManager)
    , modelId(++lastModelId)
{
    connect(songManager, &SongManager::notifyListsChanged, this, &SongListTableModel::refresh);
}

void SongListTableModel::setPlaylist(const PlaylistPtr &list)
{
    const Change change(this);
    playlist = list;
}

void SongListTableModel::refresh()
{
    const Change change(this);
}

void SongListTableModel::followList()
{
    if (playlist && changing == 0 && songs != playlist->songs())
        refresh();
}

void SongListTableModel::fetchSongs()
{
    songs = playlist ? playlist->songs() : QList<SongPtr>();
    musicDir.setPath(Settings::musicDir());
}

void SongListTableModel::retranslate()
{
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, SongColumnCount - 1);
}

const SongPtr &SongListTableModel::song(int row) const
{
    static const SongPtr none;
    return row >= 1 && row <= songs.size() ? songs.at(row - 1) : none;
}

SongPlace SongListTableModel::place(int row) const
{
    return {row, musicDir, highIntermediateName};
}

QString SongListTableModel::filterText(int column) const
{
    return songColumn(column) ? filterTexts[static_cast<std::size_t>(column)] : QString();
}

void SongListTableModel::setFilterText(const QString &text, int column)
{
    if (!songColumn(column))
        return;
    filterTexts[static_cast<std::size_t>(column)] = text;
    if (playlist)
        Q_EMIT dataChanged(index(0, column), index(0, column), {Qt::DisplayRole, Qt::EditRole});
}

void SongListTableModel::clearFilterTexts()
{
    filterTexts.fill(QString());
    if (playlist)
        Q_EMIT dataChanged(index(0, 0), index(0, SongColumnCount - 1),
                           {Qt::DisplayRole, Qt::EditRole});
}

int SongListTableModel::columnType(int column)
{
    const SongColumnRow *found = songColumn(column);
    return found ? found->type : QMetaType::UnknownType;
}

bool SongListTableModel::isComboColumn(int column)
{
    const SongColumnRow *found = songColumn(column);
    return found && found->combo;
}

bool SongListTableModel::isSearchable(int column)
{
    const SongColumnRow *found = songColumn(column);
    return found && found->searchable;
}

bool SongListTableModel::hasChoiceEntries(int column)
{
    return isComboColumn(column) && column != FileDateColumn && column != DirectoryColumn;
}

void SongListTableModel::setHighIntermediateName(const QString &text)
{
    highIntermediateName = text;
}

const QString &SongListTableModel::getHighIntermediateName()
{
    return highIntermediateName;
}

const QStringList &SongListTableModel::getDirList()
{
    return dirList;
}

void SongListTableModel::rebuildDirList()
{
    musicDir.setPath(Settings::musicDir());
    dirList.clear();
    if (!playlist)
        return;
    // One song of each: how a directory lies to another takes long to find out.
    QHash<QString, SongPtr> songOf;
    for (const SongPtr &song : playlist->songManager()->getSongs()) {
        const QString &path = song->getFilename();
        songOf.insert(path.left(path.lastIndexOf(u'/')), song);
    }
    std::set<QString> directories;
    for (const SongPtr &song : std::as_const(songOf))
        directories.insert(songColumn(DirectoryColumn)
                               ->value(*song, {0, musicDir, highIntermediateName})
                               .toString());
    dirList = QStringList(directories.begin(), directories.end());
}

void SongListTableModel::moveRowsUp(int row, int count)
{
    if (!playlist || isMaster() || row < 2 || row - 1 + count > songs.size())
        return;
    const bool moves = count > 0 && beginMoveRows({}, row, row + count - 1, {}, row - 1);
    playlist->moveUp(row - 1, count);
    fetchSongs();
    if (moves)
        endMoveRows();
    Q_EMIT notifyModelChanged();
}

void SongListTableModel::moveRowsDown(int row, int count)
{
    if (!playlist || isMaster() || row < 1 || row + std::max(count, 1) > songs.size())
        return;
    const bool moves = count > 0 && beginMoveRows({}, row, row + count - 1, {}, row + count + 1);
    playlist->moveDown(row - 1, count);
    fetchSongs();
    if (moves)
        endMoveRows();
    Q_EMIT notifyModelChanged();
}

void SongListTableModel::addSongs(const QList<SongPtr> &list)
{
    if (!playlist)
        return;
    const Change change(this);
    QStringList paths;
    for (const SongPtr &song : list)
        paths.append(song->getFilename());
    playlist->addAll(paths);
}

bool SongListTableModel::copySong(const QString &destination, const SongPtr &song)
{
    const Change change(this);
    return manager->copySong(destination, song, true);
}

SongPtr SongListTableModel::copySongs(const QString &directory, const QList<SongPtr> &list,
                                      const std::function<void()> &step)
{
    const Change change(this);
    return manager->copySongs(directory, list, step);
}

bool SongListTableModel::moveSong(const QString &destination, const SongPtr &song)
{
    const Change change(this);
    return manager->moveSong(destination, song, true, true);
}

SongPtr SongListTableModel::moveSongs(const QString &directory, const QList<SongPtr> &list,
                                      const std::function<void()> &step)
{
    const Change change(this);
    return manager->moveSongs(directory, list, true, step);
}

SongPtr SongListTableModel::removeSongs(const QList<SongPtr> &list)
{
    const Change change(this);
    return manager->removeSongs(list, true);
}

int SongListTableModel::importSongs(const QStringList &files)
{
    const Change change(this);
    return manager->importSongs(files);
}

void SongListTableModel::tellSongsChanged(const QList<SongPtr> &list)
{
    const QSet<SongPtr> changed(list.begin(), list.end());
    int first = 0;
    int last = 0;
    for (int row = 1; row <= songs.size(); ++row) {
        if (!changed.contains(songs.at(row - 1)))
            continue;
        first = first == 0 ? row : first;
        last = row;
    }
    if (last > 0)
        Q_EMIT dataChanged(index(first, 0), index(last, SongColumnCount - 1));
}

bool SongListTableModel::removeRows(int row, int, const QModelIndex &parent)
{
    if (parent.isValid() || !song(row))
        return false;
    if (isMaster()) {
        // The file may stay, and the library has no order that would outlast a removal.
        const Change change(this);
        return playlist->removeEntryAt(row - 1, true);
    }
    beginRemoveRows({}, row, row);
    const bool removed = playlist->removeEntryAt(row - 1, true);
    fetchSongs();
    endRemoveRows();
    Q_EMIT notifyModelChanged();
    return removed;
}

int SongListTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || !playlist ? 0 : static_cast<int>(songs.size()) + 1;
}

int SongListTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : SongColumnCount;
}

QVariant SongListTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() > songs.size())
        return {};
    if (role == Qt::TextAlignmentRole)
        return QVariant::fromValue(alignment(*songColumn(index.column())));
    return index.row() == 0 ? filterRowData(index.column(), role)
                            : songData(index.row(), index.column(), role);
}

QVariant SongListTableModel::filterRowData(int column, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return columnType(column) == QMetaType::Bool ? QVariant() : filterText(column);
    case Qt::EditRole:
        return filterText(column);
    case Qt::UserRole:
        return -1;
    default:
        return {};
    }
}

QVariant SongListTableModel::songData(int row, int column, int role) const
{
    const SongPtr &song = songs.at(row - 1);
    switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return songColumn(column)->value(*song, place(row));
    case Qt::UserRole:
        return QVariant::fromValue(song);
    case Qt::BackgroundRole:
        return song->isMissingFile() ? QVariant(QColor(Qt::red)) : QVariant();
    default:
        return {};
    }
}

QVariant SongListTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal)
        return {};
    const SongColumnRow *column = songColumn(section);
    switch (role) {
    case Qt::DisplayRole:
        return column ? tr(column->heading) : tr("Unbekannt");
    case Qt::TextAlignmentRole:
        return column ? QVariant::fromValue(headingAlignment(*column)) : QVariant();
    case Qt::FontRole:
        return headingFont();
    case Qt::InitialSortOrderRole:
        return column ? QVariant(column->initialOrder) : QVariant();
    default:
        return {};
    }
}

Qt::ItemFlags SongListTableModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index) | Qt::ItemIsDropEnabled;
    if (index.isValid())
        flags |= Qt::ItemIsDragEnabled;
    if (index.column() == SelectedColumn)
        flags |= Qt::ItemIsEditable | Qt::ItemIsUserCheckable;
    return flags;
}

QStringList SongListTableModel::mimeTypes() const
{
    return isMaster() ? QStringList{songsFormat, urlsFormat} : QStringList{songsFormat};
}

QMimeData *SongListTableModel::mimeData(const QModelIndexList &indexes) const
{
    if (indexes.isEmpty())
        return nullptr;
    qDebug() << "mimeData index=" << indexes.constFirst().row()
             << " num indexes=" << indexes.size();
    QList<QUrl> urls;
    QList<DraggedItem> items;
    int rowBefore = 0; // the filter row is no song
    for (const QModelIndex &index : indexes) {
        const SongPtr song = index.row() == rowBefore ? SongPtr() : this->song(index.row());
        rowBefore = index.row();
        if (!song)
            continue;
        urls.append(QUrl::fromLocalFile(song->getFilename()));
        items.append({song->getFilename(), index.row() - 1});
    }
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << modelId << static_cast<qint64>(items.size());
    for (const DraggedItem &item : std::as_const(items))
        stream << item.path << static_cast<qint32>(item.index);
    auto *data = new QMimeData;
    data->setData(songsFormat, bytes);
    data->setUrls(urls);
    return data;
}

// Who else offers this format may write anything: what can't be read ends the list.
SongListTableModel::Drag SongListTableModel::readDrag(const QMimeData &data)
{
    QDataStream stream(data.data(songsFormat));
    Drag drag;
    qint64 count = 0;
    stream >> drag.modelId >> count;
    for (qint64 number = 0; number < count; ++number) {
        DraggedItem item{};
        qint32 index = 0;
        stream >> item.path >> index;
        if (stream.status() != QDataStream::Ok)
            break;
        item.index = index;
        drag.items.append(item);
    }
    return drag;
}

bool SongListTableModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int, int,
                                      const QModelIndex &parent)
{
    if (action == Qt::IgnoreAction)
        return true;
    if (!data || !playlist)
        return false;
    if (isMaster())
        return importDropped(*data);
    if (!data->hasFormat(songsFormat))
        return false;
    const Drag drag = readDrag(*data);
    const Change change(this);
    if (parent.isValid())
        insert(drag.items, parent.row(), drag.modelId == modelId);
    else
        append(drag.items, drag.modelId == modelId);
    return true;
}

// A list's songs come with URLs too: they are in the library already.
bool SongListTableModel::importDropped(const QMimeData &data)
{
    if (data.hasFormat(songsFormat))
        return false;
    QStringList files;
    for (const QUrl &url : data.urls()) {
        if (url.isLocalFile())
            files.append(url.toLocalFile());
    }
    return !files.isEmpty() && importSongs(files) > 0;
}

QStringList SongListTableModel::pathsOf(const QList<DraggedItem> &items)
{
    QStringList paths;
    for (const DraggedItem &item : items)
        paths.append(item.path);
    return paths;
}

void SongListTableModel::append(const QList<DraggedItem> &items, bool sameModel)
{
    playlist->addAll(pathsOf(items));
    if (sameModel && !items.isEmpty())
        playlist->removeEntryAt(items.constFirst().index, false);
}

void SongListTableModel::insert(const QList<DraggedItem> &items, int parentRow, bool sameModel)
{
    const int target = parentRow - 1;
    if (!sameModel) {
        playlist->insertAll(pathsOf(items), target);
    } else if (!items.isEmpty()) {
        const int from = items.constFirst().index;
        playlist->moveTo(from, (from < target ? target : parentRow) - 1);
    }
}
