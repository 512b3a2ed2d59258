// The positions' frame of a tag: any bytes, read, written and read again.

#include "SongPositions.h"

#include <synchronizedlyricsframe.h>

#include <cstdint>
#include <cstdlib>

using TagLib::ID3v2::SynchronizedLyricsFrame;

namespace {

SongPositions readAgain(const SongPositions &positions)
{
    SynchronizedLyricsFrame written(TagLib::String::Latin1);
    positions.toFrame(&written);
    const SynchronizedLyricsFrame frame(written.render());
    SongPositions read;
    read.fromFrame(&frame);
    return read;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const SynchronizedLyricsFrame frame(
        TagLib::ByteVector(reinterpret_cast<const char *>(data), static_cast<unsigned int>(size)));
    SongPositions positions;
    positions.fromFrame(&frame);
    const SongPositions again = readAgain(positions);
    if (again.count() != positions.count())
        std::abort();
    for (int index = 0; index < again.count(); ++index)
        if (again.at(index).getTime() != positions.at(index).getTime())
            std::abort();
    // Letters that are none may be lost once, and no more.
    if (!(readAgain(again) == again))
        std::abort();
    return 0;
}
