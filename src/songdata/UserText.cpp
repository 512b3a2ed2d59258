#include "UserText.h"

#include "TagText.h"

#include <id3v2tag.h>
#include <textidentificationframe.h>

using TagLib::ID3v2::Tag;
using TagLib::ID3v2::UserTextIdentificationFrame;

namespace {

UserTextIdentificationFrame *frameOf(const Tag &tag, const QString &description)
{
    const TagLib::String wanted = TagText::toTag(description);
    for (auto *frame : tag.frameList("TXXX")) {
        auto *user = dynamic_cast<UserTextIdentificationFrame *>(frame);
        if (user && user->description() == wanted)
            return user;
    }
    return nullptr;
}

// The first entry of the list is the description.
QString valueOf(const UserTextIdentificationFrame &frame)
{
    const TagLib::StringList fields = frame.fieldList();
    return fields.size() < 2 ? QString() : TagText::fromTag(fields[1]);
}

} // namespace

std::optional<QString> UserText::exactly(const Tag &tag, const QString &description)
{
    const auto *frame = frameOf(tag, description);
    return frame ? std::optional(valueOf(*frame)) : std::nullopt;
}

void UserText::replace(Tag &tag, const QString &description, const QString &text)
{
    removeAll(tag, description);
    auto *frame = new UserTextIdentificationFrame(TagLib::String::Latin1);
    frame->setDescription(TagText::toTag(description));
    frame->setText(TagText::toTag(text));
    tag.addFrame(frame);
}

void UserText::removeAll(Tag &tag, const QString &description)
{
    while (auto *frame = frameOf(tag, description))
        tag.removeFrame(frame, true);
}

QString UserText::find(const Tag &tag, const QString &description)
{
    const auto *frame = frameOf(tag, description);
    if (!frame)
        frame = frameOf(tag, description.toUpper());
    return frame ? valueOf(*frame) : QString();
}

void UserText::write(Tag &tag, const QString &description, const QString &text)
{
    if (description != description.toUpper())
        removeAll(tag, description.toUpper());
    const auto *present = frameOf(tag, description);
    // What others put behind the first value would be lost.
    if (present && !text.isEmpty() && present->fieldList().size() > 2 && valueOf(*present) == text)
        return;
    if (text.isEmpty())
        removeAll(tag, description);
    else
        replace(tag, description, text);
}
