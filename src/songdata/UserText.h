#pragma once

#include <QString>

#include <optional>

namespace TagLib::ID3v2 {
class Tag;
}

// User text frames (TXXX), found by their description: as given, else all in upper case, as some
// programs write it.
namespace UserText {

// The frame's first value; empty when there is none.
QString find(const TagLib::ID3v2::Tag &tag, const QString &description);

// The first value of the frame with exactly this description; null when there is no such frame.
std::optional<QString> exactly(const TagLib::ID3v2::Tag &tag, const QString &description);

// Replaces all frames with exactly this description by one, also when the text is empty.
void replace(TagLib::ID3v2::Tag &tag, const QString &description, const QString &text);

void removeAll(TagLib::ID3v2::Tag &tag, const QString &description);

// Replaces every frame with either form of the description by one; an empty text leaves none. A
// frame that shows this text and holds further ones behind it stays as it is.
void write(TagLib::ID3v2::Tag &tag, const QString &description, const QString &text);

} // namespace UserText
