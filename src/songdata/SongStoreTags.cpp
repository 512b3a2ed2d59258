#include "SongStoreTags.h"

#include "GeneralFields.h"
#include "Id3Frames.h"
#include "Song.h"
#include "TagGuard.h"
#include "TagStream.h"

#include <QFileInfo>
#include <QtDebug>

#include <fileref.h>
#include <id3v2tag.h>
#include <mpegfile.h>

namespace {

// An open music file. It stays the owner of its stream, which has to outlive the reference.
class MusicFile
{
public:
    MusicFile(const QString &path, FileEdit::Access access)
        : stream(path, access)
        , reference(&stream, true, TagLib::AudioProperties::Average)
    { }
    bool isUsable() const { return !reference.isNull() && reference.tag(); }
    TagLib::FileRef *operator->() { return &reference; }
    // Null for any other format.
    TagLib::MPEG::File *mpeg() const
    {
        return dynamic_cast<TagLib::MPEG::File *>(reference.file());
    }
    void addRoom() { stream.addRoom(); }
    bool commit() { return stream.commit(); }

private:
    TagStream stream;
    TagLib::FileRef reference;
};

void readAudioProperties(const TagLib::AudioProperties *properties, Song &song)
{
    if (!properties)
        return;
    song.setChannels(properties->channels());
    song.setFrequency(properties->sampleRate());
    song.setPlayLength(properties->lengthInSeconds());
}

bool composeMpeg(TagLib::MPEG::File &file)
{
    // Every field is in every tag already. Let duplicate them, and the library would remove what
    // it shows as no value: a track "A1", a date without a year.
    return file.save(TagLib::MPEG::File::AllTags, TagLib::File::StripNone, TagLib::ID3v2::v4,
                     TagLib::File::DoNotDuplicate);
}

// To open a pipe or a device may take for ever, and an empty file would become a tag without music.
bool isFilled(const QFileInfo &info)
{
    return info.isFile() && info.size() > 0;
}

} // namespace

bool SongStoreTags::load(Song &song, const QFileInfo &info)
{
    if (!isFilled(info))
        return false;
    MusicFile file(song.getFilename(), FileEdit::Access::Read);
    if (!file.isUsable())
        return false;
    song.getPositions().clear();
    song.getCuesheet().clear();
    GeneralFields::read(*file->tag(), song);
    readAudioProperties(file->audioProperties(), song);
    auto *mpeg = file.mpeg();
    if (mpeg && mpeg->ID3v2Tag(false))
        Id3Frames::read(*mpeg->ID3v2Tag(false), song);
    else if (song.getBpm().isEmpty())
        song.setBpm(QString());
    return true;
}

bool SongStoreTags::save(Song &song)
{
    if (!isFilled(QFileInfo(song.getFilename())))
        return false;
    MusicFile file(song.getFilename(), FileEdit::Access::Write);
    if (!file.isUsable())
        return false;
    if (!TagGuard::isUnderstood(*file->file())) {
        qWarning() << "The tag holds more than can be saved:" << song.getFilename();
        return false;
    }
    GeneralFields::write(*file->file(), song);
    auto *mpeg = file.mpeg();
    if (mpeg && mpeg->ID3v2Tag(false))
        Id3Frames::write(*mpeg->ID3v2Tag(false), song);
    song.setModified(QDateTime::currentDateTime());
    if (!(mpeg ? composeMpeg(*mpeg) : file->file()->save()))
        return false;
    if (mpeg)
        file.addRoom();
    return file.commit();
}

bool SongStoreTags::remove(const Song &)
{
    return true;
}

QByteArray SongStoreTags::cuesheetOf(const QString &path)
{
    if (!isFilled(QFileInfo(path)))
        return QByteArray();
    MusicFile file(path, FileEdit::Access::Read);
    auto *mpeg = file.isUsable() ? file.mpeg() : nullptr;
    return mpeg && mpeg->hasID3v2Tag() ? Id3Frames::cuesheet(*mpeg->ID3v2Tag()) : QByteArray();
}
