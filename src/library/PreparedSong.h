#pragma once

#include "DanceEvent.h"
#include "SearchText.h"
#include "SongColumns.h"
#include "SongFilterRules.h"
#include "SongPositions.h"

#include <QDateTime>
#include <QList>

#include <array>

class Song;

// What searching and filtering need of one song, worked out once. It keeps the song's fields as
// they were then (shared with the song while nobody changes them), so that a song which has
// changed can be told by a glance.
class PreparedSong
{
public:
    PreparedSong(const Song &song, const SongPlace &place);

    // False when the song has changed since. A glance: a dance event in which something was changed
    // is noticed once the song is saved.
    bool fits(const Song &song) const;
    // The same with a look at each dance event.
    bool fitsWholly(const Song &song) const;
    const SearchTexts &searchTexts() const { return texts; }
    // Whether the song, which fits, passes the filter.
    bool passes(const ColumnFilter &filter, const FilterTerms &terms, const Song &song,
                const SongPlace &place) const;

private:
    static constexpr int fieldCount = 16;
    struct Numbers
    {
        int playLength;
        int rating;
        int choreographyVersion;
        int positionsVersion;
        int events;
        int countDowns;
        bool selected;
        bool missing;
        bool readOnly;
        bool choreography;

        explicit Numbers(const Song &song);
        friend bool operator==(const Numbers &, const Numbers &) = default;
    };

    bool hasField(std::size_t field, const QString &text) const;

    // Where the texts lie that the fields hold: one that nobody has changed lies there still.
    std::array<const QChar *, fieldCount> places{};
    Numbers numbers;
    QDateTime modified;
    SongPositions positions;

    std::array<QString, fieldCount> fields;
    QList<DanceEvent> events;
    SearchTexts texts;
    QString directory; // case folded
    QList<QDate> fileDates;
    QList<QDate> eventDates;
};
