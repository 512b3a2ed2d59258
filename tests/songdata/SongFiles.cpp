#include "SongFiles.h"

#include "Samples.h"
#include "Song.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QtDebug>

#include <id3v2tag.h>
#include <mpegfile.h>
#include <textidentificationframe.h>

namespace {

// Made once a test program: the encoder takes its time.
QString originalTone()
{
    static QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("tone.mp3"));
    if (!QFile::exists(path))
        Samples::writeTone(path, {1.5, 440, 44100, 2});
    return path;
}

} // namespace

QString SongFiles::tone(const QDir &directory, const QString &name)
{
    const QString path = directory.path() + u'/' + name;
    if (!QFile::copy(originalTone(), path))
        qWarning() << "No test file" << path;
    return path;
}

QString SongFiles::copyOf(const QString &file, const QDir &directory)
{
    const QString path = directory.filePath(QFileInfo(file).fileName());
    if (!QFile::copy(file, path))
        qWarning() << "No copy of" << file;
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

void SongFiles::edit(const QString &path, const std::function<void(TagLib::ID3v2::Tag &)> &change)
{
    TagLib::MPEG::File file(QFile::encodeName(path).constData());
    change(*file.ID3v2Tag(true));
    file.save(TagLib::MPEG::File::ID3v2, TagLib::File::StripNone, TagLib::ID3v2::v4,
              TagLib::File::DoNotDuplicate);
}

void SongFiles::addUserText(TagLib::ID3v2::Tag &tag, const char *description, const char *text)
{
    auto *frame = new TagLib::ID3v2::UserTextIdentificationFrame(TagLib::String::UTF8);
    frame->setDescription(description);
    frame->setText(TagLib::String(text, TagLib::String::UTF8));
    tag.addFrame(frame);
}

QJsonArray SongFiles::dump(const QStringList &files)
{
    QProcess reader;
    reader.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(TARVELO_DUMP_TAGS)});
    reader.write(QJsonDocument(QJsonArray::fromStringList(files)).toJson());
    reader.closeWriteChannel();
    reader.waitForFinished(120000);
    const QJsonArray result = QJsonDocument::fromJson(reader.readAllStandardOutput()).array();
    if (result.size() != files.size())
        qWarning() << "dump_tags.py:" << reader.readAllStandardError();
    return result;
}

QJsonObject SongFiles::dump(const QString &file)
{
    return dump(QStringList(file)).at(0).toObject();
}

QJsonArray SongFiles::frames(const QJsonObject &dump, const QString &id)
{
    QJsonArray result;
    for (const QJsonValue &frame : dump.value(u"frames").toArray()) {
        if (frame.toArray().at(0).toString() == id)
            result.append(frame.toArray().at(1));
    }
    return result;
}

QStringList SongFiles::userTexts(const QJsonObject &dump, const QString &description)
{
    QStringList result;
    for (const QJsonValue &value : frames(dump, QStringLiteral("TXXX"))) {
        const QJsonObject frame = value.toObject();
        if (frame.value(u"desc").toString() == description)
            result.append(frame.value(u"text").toArray().at(0).toString());
    }
    return result;
}

QStringList SongFiles::fieldsOf(const Song &song)
{
    QJsonObject lists;
    song.getPositions().toJson(lists);
    song.getDanceEvents().toJson(lists);
    song.getCountDowns().toJson(lists);
    song.getCuesheet().toJson(lists);
    return {song.getAdaptedBy(),
            song.getAlbum(),
            song.getArtist(),
            song.getBpm(),
            song.getChoreographer(),
            song.getComment(),
            song.getCueOwner(),
            song.getGenre(),
            song.getLastPitch(),
            song.getLastTempo(),
            song.getLastVolume(),
            song.getLevel(),
            song.getSongId(),
            song.getTitle(),
            song.getTrackNum(),
            song.getYear(),
            song.getIswcId(),
            QString::number(song.getFrequency()),
            QString::number(song.getChannels()),
            QString::number(song.getPlayLength()),
            QString::number(song.getRating()),
            QString::number(song.getVersionTag()),
            QString::fromUtf8(QJsonDocument(lists).toJson(QJsonDocument::Compact))};
}
