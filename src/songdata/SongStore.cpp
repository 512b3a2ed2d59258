#include "SongStore.h"

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
    auto stores = std::make_unique<SongStores>();
    stores->slot[SongStoreNullSlot] = std::make_unique<SongStoreNull>();
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
