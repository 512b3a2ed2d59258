#pragma once

#include <QString>

namespace TagLib::ID3v2 {
class Tag;
}

// User text frames (TXXX), found by their description: as given, else all in upper case, as some
// programs write it.
namespace UserText {

// The frame's first value; empty when there is none.
QString find(const TagLib::ID3v2::Tag &tag, const QString &description);

// Replaces every frame with either form of the description by one; an empty text leaves none. A
// frame that shows this text and holds further ones behind it stays as it is.
void write(TagLib::ID3v2::Tag &tag, const QString &description, const QString &text);

} // namespace UserText
