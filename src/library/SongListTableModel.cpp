#include "SongListTableModel.h"

#include "Level.h"
#include "SongManager.h"
#include "TimeTexts.h"

#include <QFileInfo>
#include <QLocale>

namespace {

constexpr const char *headings[SongListTableModel::ColumnCount] = {
    QT_TRANSLATE_NOOP("SongListTableModel", "Titel"),
    QT_TRANSLATE_NOOP("SongListTableModel", "Künstler"),
    QT_TRANSLATE_NOOP("SongListTableModel", "Level"),
    QT_TRANSLATE_NOOP("SongListTableModel", "BPM"),
    QT_TRANSLATE_NOOP("SongListTableModel", "Länge"),
    QT_TRANSLATE_NOOP("SongListTableModel", "Choreograf"),
    QT_TRANSLATE_NOOP("SongListTableModel", "Letztes Tempo"),
};

bool isNumber(int column)
{
    return column == SongListTableModel::BpmColumn || column == SongListTableModel::LengthColumn
           || column == SongListTableModel::TempoColumn;
}

QVariant alignment(int column)
{
    return QVariant::fromValue(Qt::AlignVCenter
                               | (isNumber(column) ? Qt::AlignRight : Qt::AlignLeft));
}

QVariant number(const Song &song, int column)
{
    switch (column) {
    case SongListTableModel::BpmColumn:
        return song.getBpm().toInt();
    case SongListTableModel::LengthColumn:
        return song.getPlayLength();
    default:
        return song.getTempo();
    }
}

// A song without a title still has to be told from the others.
QString titleText(const Song &song)
{
    return song.getTitle().isEmpty() ? QFileInfo(song.getFilename()).fileName() : song.getTitle();
}

QString bpmText(const Song &song)
{
    const int bpm = song.getBpm().toInt();
    return bpm == 0 ? QString() : QString::number(bpm);
}

QString tempoText(const Song &song)
{
    if (song.isMissingFile())
        return {};
    const QString text = QLocale().toString(song.getTempo(), 'f', 1);
    return song.getTempo() > 0 ? QLatin1Char('+') + text : text;
}

} // namespace

SongListTableModel::SongListTableModel(const SongManager *songManager, QObject *parent)
    : QAbstractTableModel(parent)
    , manager(songManager)
{
    connect(songManager, &SongManager::notifyListsChanged, this, &SongListTableModel::refresh);
}

SongPtr SongListTableModel::song(int row) const
{
    return row >= 0 && row < songs.size() ? songs.at(row) : SongPtr();
}

void SongListTableModel::setHighIntermediateName(const QString &name)
{
    highIntermediateName = name;
    refresh();
}

void SongListTableModel::refresh()
{
    beginResetModel();
    songs = manager->getMasterList()->songs();
    endResetModel();
}

int SongListTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(songs.size());
}

int SongListTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant SongListTableModel::display(const Song &song, int column) const
{
    switch (column) {
    case TitleColumn:
        return titleText(song);
    case ArtistColumn:
        return song.getArtist();
    case LevelColumn:
        return displayedLevel(song.getLevel(), highIntermediateName);
    case BpmColumn:
        return bpmText(song);
    case LengthColumn:
        return durationText(song.getPlayLength());
    case ChoreographerColumn:
        return song.getChoreographer();
    case TempoColumn:
        return tempoText(song);
    default:
        return {};
    }
}

QVariant SongListTableModel::data(const QModelIndex &index, int role) const
{
    const SongPtr song = index.isValid() ? this->song(index.row()) : SongPtr();
    if (!song)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return display(*song, index.column());
    case SortRole:
        return isNumber(index.column()) ? number(*song, index.column())
                                        : display(*song, index.column());
    case Qt::TextAlignmentRole:
        return alignment(index.column());
    default:
        return {};
    }
}

QVariant SongListTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    const bool heading = orientation == Qt::Horizontal && section >= 0 && section < ColumnCount;
    if (heading && role == Qt::DisplayRole)
        return tr(headings[section]);
    if (heading && role == Qt::TextAlignmentRole)
        return alignment(section);
    return QAbstractTableModel::headerData(section, orientation, role);
}
