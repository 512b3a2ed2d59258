#pragma once

#include "Position.h"

#include <QList>

class QJsonObject;
namespace TagLib::ID3v2 {
class SynchronizedLyricsFrame;
}

// The timed choreography of a song: its positions in the order in which they were read or put
// in. A value: copies share the list until one of them is changed.
class SongPositions
{
public:
    virtual ~SongPositions() = default;
    SongPositions() = default;
    SongPositions(const SongPositions &) = default;
    SongPositions &operator=(const SongPositions &) = default;

    int count() const { return static_cast<int>(positions.size()); }
    // No bounds check: index is 0 to count() - 1.
    Position &at(int index) { return positions[index]; }
    const Position &at(int index) const { return positions.at(index); }
    // Inserts a copy before index; count() appends.
    void insert(int index, const Position &position);
    void removeAt(int index);
    void clear();
    void sort();
    // Adds ms (milliseconds, either sign) to the time of every entry.
    void shift(int ms);

    // The SYLT frame: one entry a position, "part<tab>steps". Reading keeps the frame's order and
    // takes any description; writing replaces the frame's whole content. Does not sort.
    void fromFrame(const TagLib::ID3v2::SynchronizedLyricsFrame *frame);
    void toFrame(TagLib::ID3v2::SynchronizedLyricsFrame *frame) const;

    // The exchange form: key "positions" with an array of {timestamp, part, text}.
    // fromJson leaves an empty list when the key is missing or holds no array.
    static bool hasPositions(const QJsonObject &object);
    void fromJson(const QJsonObject &object);
    void toJson(QJsonObject &object) const;

    friend bool operator==(const SongPositions &a, const SongPositions &b)
    {
        return a.positions == b.positions;
    }

private:
    QList<Position> positions;
};

// The step texts of all positions, in their order, joined by line feeds.
QString positionsAsText(const SongPositions &positions);

// Beats in a span of spanMs milliseconds at bpm beats a minute, rounded to the nearest integer,
// halves away from zero.
int beatCount(qint64 spanMs, int bpm);
