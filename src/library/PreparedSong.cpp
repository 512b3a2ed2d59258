#include "PreparedSong.h"

#include "Song.h"

#include <algorithm>

namespace {

using TextField = const QString &(Song::*)() const;

constexpr std::array textFields{
    TextField(&Song::getFilename),  TextField(&Song::getTitle),
    TextField(&Song::getArtist),    TextField(&Song::getLevel),
    TextField(&Song::getBpm),       TextField(&Song::getComment),
    TextField(&Song::getGenre),     TextField(&Song::getYear),
    TextField(&Song::getLastTempo), TextField(&Song::getChoreographer),
    TextField(&Song::getCueOwner),  TextField(&Song::getAdaptedBy),
    TextField(&Song::getAlbum),     TextField(&Song::getTrackNum),
    TextField(&Song::getSongId),    TextField(&Song::getIswcId),
};

// Which of the prepared texts is the column's, -1 for one that isn't searched.
constexpr int notSearched = -1;

std::array<int, SongColumnCount> findTextNumbers()
{
    std::array<int, SongColumnCount> numbers{};
    int next = 0;
    for (const SongColumnRow &row : songColumns())
        numbers[row.column] = row.searchable ? next++ : notSearched;
    return numbers;
}

int textNumber(SongColumn column)
{
    static const auto numbers = findTextNumbers();
    return numbers[column];
}

QString shownText(SongColumn column, const Song &song, const SongPlace &place)
{
    return songColumn(column)->value(song, place).toString();
}

QDate localDate(const QDateTime &time)
{
    return time.toLocalTime().date();
}

} // namespace

PreparedSong::Numbers::Numbers(const Song &song)
    : playLength(song.getPlayLength())
    , rating(song.getRating())
    , choreographyVersion(song.getVersionChoreo())
    , positionsVersion(song.getVersionPos())
    , events(song.getDanceEvents().count())
    , countDowns(song.getCountDowns().count())
    , selected(song.isSelected())
    , missing(song.isMissingFile())
    , readOnly(song.isReadonly())
    , choreography(song.hasChoreography())
{ }

PreparedSong::PreparedSong(const Song &song, const SongPlace &place)
    : numbers(song)
    , modified(song.getModified())
    , positions(song.getPositions())
    , directory(caseFolded(shownText(DirectoryColumn, song, place)))
{
    static_assert(textFields.size() == fieldCount);
    for (std::size_t field = 0; field < fieldCount; ++field) {
        fields[field] = (song.*textFields[field])();
        places[field] = fields[field].constData();
    }
    for (const SongColumnRow &row : songColumns())
        if (row.searchable)
            texts.add(shownText(row.column, song, place));
    if (modified.isValid())
        fileDates.append(localDate(modified));
    // In the way of the column: without a latest date there is none.
    const bool dated = song.getDanceEvents().lastDate().isValid();
    for (const auto &event : song.getDanceEvents()) {
        events.append(*event);
        if (dated)
            eventDates.append(localDate(event->getDate()));
    }
}

bool PreparedSong::hasField(std::size_t field, const QString &text) const
{
    return places[field] == text.constData() || fields[field] == text;
}

bool PreparedSong::fits(const Song &song) const
{
    for (std::size_t field = 0; field < fieldCount; ++field)
        if (!hasField(field, (song.*textFields[field])()))
            return false;
    return numbers == Numbers(song) && modified == song.getModified()
           && positions == song.getPositions();
}

bool PreparedSong::fitsWholly(const Song &song) const
{
    const auto isThat = [](const DanceEvent &known, const std::shared_ptr<DanceEvent> &event) {
        return known == *event;
    };
    return fits(song)
           && std::equal(events.cbegin(), events.cend(), song.getDanceEvents().begin(), isThat);
}

bool PreparedSong::passes(const ColumnFilter &filter, const FilterTerms &terms, const Song &song,
                          const SongPlace &place) const
{
    if (filter.column() == FileDateColumn)
        return filter.passes({texts.folded(textNumber(FileDateColumn)), fileDates}, terms);
    if (filter.column() == EventDateColumn)
        return filter.passes({texts.folded(textNumber(EventDateColumn)), eventDates}, terms);
    if (filter.column() == DirectoryColumn)
        return filter.passes({directory, {}}, terms);
    const int number = textNumber(filter.column());
    if (number != notSearched)
        return filter.passes({texts.folded(number), {}}, terms);
    return filter.passes({caseFolded(shownText(filter.column(), song, place)), {}}, terms);
}
