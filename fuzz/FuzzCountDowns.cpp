// The countdowns of a song: any text, read, counted with at any tempo and time, written and read
// again. The first two bytes choose the tempo.

#include "CountDownList.h"

#include <cstdint>
#include <cstdlib>

namespace {

void countWith(CountDownList &list, int bpm)
{
    list.reset(bpm);
    list.earliestStart();
    for (int index = 0; index < list.count(); ++index) {
        const CountDownItem &item = *list.at(index);
        for (const qint64 now :
             {qint64{0}, item.getStartTime(), item.getIgnition(), CountDownItem::ignitionUnset,
              std::numeric_limits<qint64>::max()}) {
            item.isActive(now);
            if (item.makeEvent(now, true).type != 0 && item.getBeatLength() < 1)
                std::abort();
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size < 2)
        return 0;
    CountDownList list;
    list.fromText(QString::fromUtf8(reinterpret_cast<const char *>(data + 2),
                                    static_cast<qsizetype>(size - 2)));
    countWith(list, (data[0] * 256 + data[1]) - 8224);
    const QString written = list.toText();
    CountDownList again;
    again.fromText(written);
    if (again.count() != list.count() || again.toText() != written)
        std::abort();
    return 0;
}
