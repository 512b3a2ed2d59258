#include "SongColumns.h"

#include "Level.h"
#include "Song.h"
#include "TimeTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

QVariant mark(bool set)
{
    return set ? u"✓"_s : u"-"_s;
}

// Of a file that isn't there nobody can tell.
QVariant fileMark(const Song &song, bool set)
{
    return song.isMissingFile() ? QVariant() : mark(set);
}

QVariant numberOrNothing(int number)
{
    return number == 0 ? QVariant() : QVariant(number);
}

QVariant dateOrNothing(const QDateTime &date)
{
    return date.isValid() ? QVariant(date.toLocalTime()) : QVariant();
}

// A song without a title still has to be told from the others.
QVariant title(const Song &song)
{
    return song.getTitle().isEmpty() ? QFileInfo(song.getFilename()).fileName() : song.getTitle();
}

QVariant directory(const Song &song, const QDir &musicDir)
{
    const QString relative = musicDir.relativeFilePath(QFileInfo(song.getFilename()).path());
    return relative == u"."_s ? u"/"_s : u'/' + relative;
}

QVariant lastTempo(const Song &song)
{
    if (song.isMissingFile())
        return {};
    const QString text = QLocale().toString(song.getTempo(), 'f', 1);
    return song.getTempo() > 0 ? u'+' + text : text;
}

constexpr auto Bool = QMetaType::Bool;
constexpr auto Int = QMetaType::Int;
constexpr auto Double = QMetaType::Double;
constexpr auto Text = QMetaType::QString;
constexpr auto Time = QMetaType::QTime;
constexpr auto Date = QMetaType::QDateTime;
constexpr auto Up = Qt::AscendingOrder;
constexpr auto Down = Qt::DescendingOrder;

#define VALUE(expression)                                                                          \
    [](const Song &song, const SongPlace &place) -> QVariant {                                     \
        Q_UNUSED(song)                                                                             \
        Q_UNUSED(place)                                                                            \
        return expression;                                                                         \
    }
const SongColumnRow rows[] = {
    {TitleColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Titel"), Text, false, Up, true, Shown,
     24, VALUE(title(song))},
    {SelectedColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Auswahl"), Bool, false, Down, false,
     HiddenBoth, 9, VALUE(mark(song.isSelected()))},
    {ArtistColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Künstler"), Text, false, Up, true,
     Shown, 19, VALUE(song.getArtist())},
    {LevelColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Level"), Text, true, Up, true, Shown, 17,
     VALUE(displayedLevel(song.getLevel(), place.highIntermediate))},
    {BpmColumn, QT_TRANSLATE_NOOP("SongListTableModel", "BPM"), Int, true, Up, false, Shown, 7,
     VALUE(numberOrNothing(song.getBpm().toInt()))},
    {IndexColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Index"), Int, false, Up, false,
     HiddenBoth, 7, VALUE(place.row)},
    {CommentColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Kommentar"), Text, false, Up, true,
     HiddenLeft, 20, VALUE(song.getComment())},
    {GenreColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Genre"), Text, true, Up, true,
     HiddenLeft, 14, VALUE(song.getGenre())},
    {YearColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Jahr"), Int, true, Down, true, HiddenLeft,
     7, VALUE(numberOrNothing(song.getYear().toInt()))},
    {LengthColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Länge"), Time, false, Up, false,
     HiddenLeft, 8, VALUE(durationText(song.getPlayLength()))},
    {HasPositionsColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Positionen J/N"), Bool, false,
     Down, false, HiddenLeft, 15, VALUE(fileMark(song, song.hasPositions()))},
    {HasChoreographyColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Choreografie J/N"), Bool,
     false, Down, false, HiddenLeft, 17, VALUE(fileMark(song, song.hasChoreography()))},
    {ChoreographerColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Choreograf"), Text, true, Up,
     true, Shown, 16, VALUE(song.getChoreographer())},
    {FileDateColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Dateidatum"), Date, true, Down, true,
     HiddenLeft, 17, VALUE(dateOrNothing(song.getModified()))},
    {DirectoryColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Verzeichnis"), Text, true, Up, false,
     HiddenLeft, 16, VALUE(directory(song, place.musicDir))},
    {LastTempoColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Letztes Tempo"), Double, false, Up,
     false, Shown, 14, VALUE(lastTempo(song))},
    {RatingColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Bewertung"), Text, true, Down, false,
     HiddenLeft, 12, VALUE(QString(song.getRatingStars(), u'★'))},
    {OwnerColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Besitzer"), Text, false, Up, true,
     HiddenBoth, 16, VALUE(song.getCueOwner())},
    {AdaptedByColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Angepasst von"), Text, false, Up,
     true, HiddenBoth, 16, VALUE(song.getAdaptedBy())},
    {EventCountColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Event Anzahl"), Int, false, Down,
     false, HiddenLeft, 13, VALUE(numberOrNothing(song.getDanceEvents().countRounded()))},
    {EventDateColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Event Datum"), Date, true, Down,
     true, HiddenLeft, 17, VALUE(dateOrNothing(song.getDanceEvents().lastDate()))},
    {EventCategoryColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Event Kategorie"), Text, true,
     Up, true, HiddenLeft, 18, VALUE(song.getDanceEvents().allCategories())},
    {EventNameColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Event"), Text, false, Up, true,
     HiddenLeft, 20, VALUE(song.getDanceEvents().allNames())},
    {AlbumColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Album"), Text, false, Up, true,
     HiddenBoth, 20, VALUE(song.getAlbum())},
    {TrackNumberColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Track-Nr."), Int, false, Up, false,
     HiddenBoth, 10, VALUE(song.getTrackNum())},
    {PositionTextsColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Positionen"), Text, false, Up,
     true, HiddenBoth, 40, VALUE(positionsAsText(song.getPositions()))},
    {PathColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Pfad"), Text, false, Up, true,
     HiddenRight, 40, VALUE(song.getFilename())},
    {CloudIdColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Cloud ID"), Text, false, Up, false,
     HiddenBoth, 12, VALUE(song.getSongId())},
    {ChoreographyVersionColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Version Choreografie"),
     Int, false, Down, false, HiddenBoth, 20, VALUE(song.getVersionChoreo())},
    {PositionsVersionColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Version Positionen"), Int,
     false, Down, false, HiddenBoth, 18, VALUE(song.getVersionPos())},
    {WritableColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Datei beschreibbar"), Bool, false,
     Down, false, HiddenBoth, 18, VALUE(fileMark(song, !song.isReadonly()))},
    {HasCountDownsColumn, QT_TRANSLATE_NOOP("SongListTableModel", "Countdown J/N"), Bool, false,
     Down, false, HiddenBoth, 15, VALUE(fileMark(song, song.getCountDowns().count() > 0))},
    {IswcColumn, QT_TRANSLATE_NOOP("SongListTableModel", "ISWC Nummer"), Text, false, Up, true,
     HiddenBoth, 16, VALUE(song.getIswcId())},
};
#undef VALUE

static_assert(std::size(rows) == SongColumnCount);

} // namespace

std::span<const SongColumnRow> songColumns()
{
    return rows;
}

const SongColumnRow *songColumn(int column)
{
    return column >= 0 && column < SongColumnCount ? &rows[column] : nullptr;
}
