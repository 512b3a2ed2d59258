#pragma once

#include "PreparedSong.h"

#include <memory>
#include <vector>

class SongListTableModel;

// The prepared songs of a song table, by its rows: each is prepared once, and anew when it has
// changed.
class PreparedSongs
{
public:
    // The model outlives it.
    explicit PreparedSongs(const SongListTableModel &songModel);

    // To be called when rows came, went or moved: who is still there stays prepared.
    void rowsChanged() { rowsKnown = false; }
    // To be called when songs may have changed in a way that a glance misses.
    void songsChanged(int firstRow, int lastRow);
    void songsChanged();
    // Prepares all songs that aren't or have changed.
    void renew();
    // Of a song row; rows and songs are those of the last renew().
    const PreparedSong &at(int row) const { return *rows[static_cast<std::size_t>(row)].texts; }
    // Works for about so many milliseconds on what isn't prepared yet; true when all is.
    bool prepareSome(int ms);
    bool isWhole() const { return rowsKnown && next >= rows.size(); }
    // How often a song was prepared.
    quint64 count() const { return prepared; }

private:
    struct Row
    {
        const Song *song = nullptr;
        // A song may stand in several rows of a playlist.
        std::shared_ptr<PreparedSong> texts;
        bool doubtful = true;
    };

    void matchRows();
    static void fetch(const Row &row);
    static bool fits(Row &row);
    void prepare(std::size_t row);

    const SongListTableModel &model;
    bool rowsKnown = false;
    quint64 prepared = 0;
    std::vector<Row> rows;
    std::size_t next = 1; // the first that may not be prepared yet
    // What all of them were prepared with.
    QString musicDir;
    QString highIntermediate;
};
