#pragma once

#include "SongStore.h"

// Owns the program's one database connection (QSQLITE, the default one). It holds no data.
class SongStoreDatabase : public SongStore
{
public:
    // Opens it; a failure is only logged.
    SongStoreDatabase();
    ~SongStoreDatabase() override;

    bool load(Song &song, const QFileInfo &file) override;
    bool save(Song &song) override;
    bool remove(const Song &song) override;
};
