// A playlist of any bytes: read, written and read again.

#include "PlaylistText.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    for (const QString &directory : {QStringLiteral("/music/lists/"), QStringLiteral("/")}) {
        const QStringList entries = PlaylistText::read(bytes, directory);
        for (const auto lineEnd : {PlaylistText::LineEnd::Unix, PlaylistText::LineEnd::Windows}) {
            const QByteArray written = PlaylistText::write(entries, directory, lineEnd);
            if (PlaylistText::read(written, directory) != entries)
                std::abort();
        }
    }
    return 0;
}
