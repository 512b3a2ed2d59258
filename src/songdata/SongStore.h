#pragma once

#include <array>
#include <memory>

class QFileInfo;
class Song;

// One link of the chain through which songs are loaded and saved.
class SongStore
{
public:
    virtual ~SongStore() = default;
    // True when the store delivered the song; on false the song is as it was.
    virtual bool load(Song &song, const QFileInfo &file) = 0;
    // True when the store keeps the song's present state.
    virtual bool save(Song &song) = 0;
    virtual bool remove(const Song &song) = 0;
};

enum SongStoreSlot {
    SongStoreDatabaseSlot,
    SongStoreNullSlot,
    SongStoreCacheSlot,
    SongStoreTagsSlot,
    SongStoreSlotCount
};

// The stores in their slots. A slot may be empty: every user of the chain checks.
struct SongStores
{
    std::array<std::unique_ptr<SongStore>, SongStoreSlotCount> slot;
};

// The one chain of the program: made after the player, torn down before it, by the application
// object. Before it is made, and after, songs load nothing and save nothing. Making it finishes the
// saves that were cut off when an earlier process was killed.
void createSongStores();
void destroySongStores();
// Null while there is no chain.
SongStores *songStores();
