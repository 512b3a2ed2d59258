// The play history of a song: any text as the frame's and as the cache's, read, written and read
// again.

#include "DanceEventList.h"

#include <cstdint>
#include <cstdlib>

namespace {

void expectStable(void (DanceEventList::*read)(const QString &),
                  QString (DanceEventList::*write)() const, const QString &text)
{
    DanceEventList list;
    (list.*read)(text);
    list.lastDate();
    list.allNames();
    list.countRounded();
    const QString written = (list.*write)();
    DanceEventList again;
    (again.*read)(written);
    if (!(again == list) || (again.*write)() != written)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QString text
        = QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    expectStable(&DanceEventList::fromTagText, &DanceEventList::toTagText, text);
    expectStable(&DanceEventList::fromCacheText, &DanceEventList::toCacheText, text);
    return 0;
}
