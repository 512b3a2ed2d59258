#pragma once

#include <QString>

#include <tstring.h>

// Between the tag library's texts and ours. A text ends at its first NUL in both directions.
namespace TagText {

inline QString fromTag(const TagLib::String &text)
{
    return QString::fromUtf8(text.toCString(true));
}

inline TagLib::String toTag(const QString &text)
{
    return TagLib::String(text.toUtf8().constData(), TagLib::String::UTF8);
}

// Text in an encoding that does not exist would be written as nothing.
template <class Frame> void mendEncoding(Frame &frame)
{
    if (static_cast<unsigned int>(frame.textEncoding()) > TagLib::String::UTF8)
        frame.setTextEncoding(TagLib::String::Latin1);
}

} // namespace TagText
