#include "SongStoreTags.h"

#include "GeneralFields.h"
#include "Id3Frames.h"
#include "Song.h"
#include "TagGuard.h"
#include "TagStream.h"

#include <QFile>
#include <QFileInfo>
#include <QtDebug>

#include <fileref.h>
#include <id3v2tag.h>
#include <mpegfile.h>

#include <filesystem>

namespace {

#ifdef Q_OS_WIN
std::wstring nativeName(const QString &path)
{
    return path.toStdWString();
}
#else
std::string nativeName(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}
#endif

// An open music file. It stays the owner of its stream, which has to outlive the reference.
class MusicFile
{
public:
    explicit MusicFile(const QString &path)
        : stream(nativeName(path).c_str())
        , reference(&stream, true, TagLib::AudioProperties::Average)
    { }
    bool isUsable() const { return !reference.isNull() && reference.tag(); }
    TagLib::FileRef *operator->() { return &reference; }
    // Null for any other format.
    TagLib::MPEG::File *mpeg() const
    {
        return dynamic_cast<TagLib::MPEG::File *>(reference.file());
    }

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

// The tag library takes no notice of a full disk: it would cut the music short. So a file is
// written only where there is room for what it may grow by.
bool hasRoom(qint64 growth, const QString &path)
{
    constexpr qint64 otherTags = 65536;
    std::error_code error;
    const auto space = std::filesystem::space(path.toStdU16String(), error);
    if (error || static_cast<qint64>(space.available) >= growth + otherTags)
        return true;
    qWarning() << "No room to save" << path;
    return false;
}

bool saveMpeg(TagLib::MPEG::File &file, const QString &path)
{
    const qint64 size = file.ID3v2Tag()->render(TagLib::ID3v2::v4).size();
    const qint64 sizeBefore = file.hasID3v2Tag() ? file.ID3v2Tag()->header()->completeTagSize() : 0;
    if (size > sizeBefore && !hasRoom(size - sizeBefore, path))
        return false;
    // Every field is in every tag already. Let duplicate them, and the library would remove what
    // it shows as no value: a track "A1", a date without a year.
    return file.save(TagLib::MPEG::File::AllTags, TagLib::File::StripNone, TagLib::ID3v2::v4,
                     TagLib::File::DoNotDuplicate);
}

// How large another format becomes is known only once it is written: twice its size is enough.
bool saveOther(TagLib::File &file, const Song &song)
{
    const QString path = song.getFilename();
    return hasRoom(QFileInfo(path).size() + GeneralFields::mostBytes(song), path) && file.save();
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
    MusicFile file(song.getFilename());
    if (!file.isUsable())
        return false;
    song.getPositions().clear();
    GeneralFields::read(*file->tag(), song);
    readAudioProperties(file->audioProperties(), song);
    auto *mpeg = file.mpeg();
    if (mpeg && mpeg->ID3v2Tag(false))
        Id3Frames::read(*mpeg->ID3v2Tag(false), song);
    return true;
}

bool SongStoreTags::save(Song &song)
{
    if (!isFilled(QFileInfo(song.getFilename())))
        return false;
    MusicFile file(song.getFilename());
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
    return mpeg ? saveMpeg(*mpeg, song.getFilename()) : saveOther(*file->file(), song);
}

bool SongStoreTags::remove(const Song &)
{
    return true;
}
