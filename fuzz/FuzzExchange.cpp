// The exchange form of positions: any bytes that are JSON, read, written and read again.

#include "SongPositions.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    SongPositions positions;
    positions.fromJson(QJsonDocument::fromJson(bytes).object());
    QJsonObject object;
    positions.toJson(object);
    SongPositions again;
    again.fromJson(object);
    if (!(again == positions))
        std::abort();
    return 0;
}
