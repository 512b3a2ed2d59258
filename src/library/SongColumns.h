#pragma once

#include <QMetaType>
#include <QVariant>
#include <Qt>

#include <span>

class QDir;
class Song;

// The columns of a song table in their logical order; the numbers stand in saved headers.
enum SongColumn {
    TitleColumn,
    SelectedColumn,
    ArtistColumn,
    LevelColumn,
    BpmColumn,
    IndexColumn,
    CommentColumn,
    GenreColumn,
    YearColumn,
    LengthColumn,
    HasPositionsColumn,
    HasChoreographyColumn,
    ChoreographerColumn,
    FileDateColumn,
    DirectoryColumn,
    LastTempoColumn,
    RatingColumn,
    OwnerColumn,
    AdaptedByColumn,
    EventCountColumn,
    EventDateColumn,
    EventCategoryColumn,
    EventNameColumn,
    AlbumColumn,
    TrackNumberColumn,
    PositionTextsColumn,
    PathColumn,
    CloudIdColumn,
    ChoreographyVersionColumn,
    PositionsVersionColumn,
    WritableColumn,
    HasCountDownsColumn,
    IswcColumn,
    SongColumnCount
};

// What a cell shows beside what the song itself holds.
struct SongPlace
{
    int row;                         // 1 for the first song
    const QDir &musicDir;            // the directories are told relative to it
    const QString &highIntermediate; // shown for the level "Intermediate-Advanced"
};

// In which of the two lists a column is hidden at the first start.
enum HiddenAtFirst : unsigned { Shown = 0, HiddenRight = 1, HiddenLeft = 2, HiddenBoth = 3 };

struct SongColumnRow
{
    SongColumn column;
    const char *heading; // to be translated in the context "SongListTableModel"
    QMetaType::Type type;
    bool combo; // filtered by a combo box
    Qt::SortOrder initialOrder;
    bool searchable; // by the search over all columns
    HiddenAtFirst hidden;
    int letters; // width at the first start, in letters of average width
    QVariant (*value)(const Song &song, const SongPlace &place);
};

// One row a column, in the order of SongColumn.
std::span<const SongColumnRow> songColumns();
// Null for a number outside the table.
const SongColumnRow *songColumn(int column);
