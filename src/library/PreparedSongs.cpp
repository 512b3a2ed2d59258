#include "PreparedSongs.h"

#include "SongListTableModel.h"

#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <utility>

namespace {

constexpr std::size_t rowsAhead = 4;
constexpr std::size_t cacheLine = 64; // bytes

template <typename Object> void fetch(const Object *object)
{
    for (std::size_t offset = 0; offset < sizeof(Object); offset += cacheLine)
        __builtin_prefetch(reinterpret_cast<const char *>(object) + offset);
}

} // namespace

PreparedSongs::PreparedSongs(const SongListTableModel &songModel)
    : model(songModel)
{ }

void PreparedSongs::songsChanged(int firstRow, int lastRow)
{
    const int last = std::min(lastRow, static_cast<int>(rows.size()) - 1);
    for (int row = std::max(firstRow, 1); row <= last; ++row)
        rows[static_cast<std::size_t>(row)].doubtful = true;
}

void PreparedSongs::songsChanged()
{
    songsChanged(1, static_cast<int>(rows.size()));
}

// The addresses of songs that are gone may be those of others by now: fits() looks closer.
void PreparedSongs::matchRows()
{
    const SongPlace place = model.place(0);
    const bool samePlace
        = musicDir == place.musicDir.path() && highIntermediate == place.highIntermediate;
    if (rowsKnown && samePlace)
        return;
    QHash<const Song *, std::shared_ptr<PreparedSong>> known;
    for (const Row &row : rows)
        if (row.texts && samePlace)
            known.insert(row.song, row.texts);
    rows.assign(static_cast<std::size_t>(model.rowCount()), {});
    for (std::size_t row = 1; row < rows.size(); ++row) {
        rows[row].song = model.song(static_cast<int>(row)).data();
        rows[row].texts = known.value(rows[row].song);
    }
    musicDir = place.musicDir.path();
    highIntermediate = place.highIntermediate;
    rowsKnown = true;
    next = 1;
}

// A glance at ten thousand songs is mostly waiting for the memory: this waits for several at once.
void PreparedSongs::fetch(const Row &row)
{
    ::fetch(row.song);
    ::fetch(row.texts.get());
}

bool PreparedSongs::fits(Row &row)
{
    if (!row.texts)
        return false;
    return std::exchange(row.doubtful, false) ? row.texts->fitsWholly(*row.song)
                                              : row.texts->fits(*row.song);
}

void PreparedSongs::prepare(std::size_t row)
{
    rows[row].texts
        = std::make_shared<PreparedSong>(*rows[row].song, model.place(static_cast<int>(row)));
    rows[row].doubtful = false;
    ++prepared;
}

void PreparedSongs::renew()
{
    matchRows();
    for (std::size_t row = 1; row < rows.size(); ++row) {
        if (row + rowsAhead < rows.size())
            fetch(rows[row + rowsAhead]);
        if (!fits(rows[row]))
            prepare(row);
    }
    next = rows.size();
}

bool PreparedSongs::prepareSome(int ms)
{
    matchRows();
    QElapsedTimer timer;
    timer.start();
    for (; next < rows.size() && timer.elapsed() < ms; ++next)
        if (!rows[next].texts)
            prepare(next);
    return isWhole();
}
