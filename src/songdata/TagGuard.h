#pragma once

namespace TagLib {
class File;
}

// What the tag library doesn't see of an ID3v2 tag, it doesn't write again. So a tag is looked
// through once more before it is replaced.
namespace TagGuard {

// Whether the library sees all that the file's ID3v2 tag holds, and the tag lies over nothing
// else: it ends with its last frame, with padding or with mere junk, and neither claims more than
// the file nor reaches into the music. True for a file without such a tag.
bool isUnderstood(TagLib::File &file);

} // namespace TagGuard
