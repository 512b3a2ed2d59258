#include "SongStore.h"

#include "SafeFile.h"
#include "SongStoreCache.h"
#include "SongStoreDatabase.h"
#include "SongStoreTags.h"

namespace {

// Keeps nothing: the slot of a store that is not there.
class SongStoreNull : public SongStore
{
public:
    bool load(Song &, const QFileInfo &) override { return false; }
    bool save(Song &) override { return false; }
    bool remove(const Song &) override { return true; }
};

std::unique_ptr<SongStores> &chain()
{
    static std::unique_ptr<SongStores> stores;
    return stores;
}

} // namespace

void createSongStores()
{
    // The one connection has to be gone before it is opened again.
    destroySongStores();
    SafeFile::recover();
    auto stores = std::make_unique<SongStores>();
    stores->slot[SongStoreDatabaseSlot] = std::make_unique<SongStoreDatabase>();
    stores->slot[SongStoreNullSlot] = std::make_unique<SongStoreNull>();
    stores->slot[SongStoreCacheSlot] = std::make_unique<SongStoreCache>();
    stores->slot[SongStoreTagsSlot] = std::make_unique<SongStoreTags>();
    chain() = std::move(stores);
}

void destroySongStores()
{
    chain().reset();
}

SongStores *songStores()
{
    return chain().get();
}
