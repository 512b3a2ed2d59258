#include "CacheRecord.h"

#include "Song.h"

#include <QDataStream>
#include <QFile>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr quint32 magic = 0xAADDBBCC;
// To be raised with every change of the fields: other versions are not read.
constexpr quint32 formatVersion = 15;
constexpr int streamVersion = 17;
constexpr quint32 nullDocument = 0xFFFFFFFF;
// A tag is not longer than this.
constexpr quint32 longestDocument = 0x0FFFFFFF;

// No tag delivers a text with a NUL: such a file was never written to its end.
void take(QDataStream &in, QString &text)
{
    in >> text;
    if (!text.contains(QChar(0)))
        return;
    text.clear();
    in.setStatus(QDataStream::ReadCorruptData);
}

void take(QDataStream &in, qint32 &number)
{
    in >> number;
}

QString readText(QDataStream &in)
{
    QString text;
    take(in, text);
    return text;
}

struct Field
{
    void (*write)(QDataStream &, const Song &);
    void (*read)(QDataStream &, Song &);
    void (*copy)(const Song &from, Song &to);
    // Where song is as it was loaded.
    void (*fill)(Song &song, const Song &loaded, const Song &whole);
};

template <auto get, auto set> constexpr Field field()
{
    using Value = std::decay_t<decltype((std::declval<const Song &>().*get)())>;
    return {[](QDataStream &out, const Song &song) { out << (song.*get)(); },
            [](QDataStream &in, Song &song) {
                Value value{};
                take(in, value);
                (song.*set)(value);
            },
            [](const Song &from, Song &to) { (to.*set)((from.*get)()); },
            [](Song &song, const Song &loaded, const Song &whole) {
                if ((song.*get)() == (loaded.*get)())
                    (song.*set)((whole.*get)());
            }};
}

// No tag has it, so there is nothing to take from there.
template <auto get, auto set> constexpr Field cachedOnly()
{
    Field row = field<get, set>();
    row.fill = [](Song &, const Song &, const Song &) {};
    return row;
}

// In the order of the file.
constexpr Field fieldsBeforePositions[] = {
    field<&Song::getAdaptedBy, &Song::setAdaptedBy>(),
    field<&Song::getAlbum, &Song::setAlbum>(),
    field<&Song::getArtist, &Song::setArtist>(),
    field<&Song::getBpm, &Song::setBpm>(),
    field<&Song::getChoreographer, &Song::setChoreographer>(),
    field<&Song::getComment, &Song::setComment>(),
    field<&Song::getCueOwner, &Song::setCueOwner>(),
    field<&Song::getFrequency, &Song::setFrequency>(),
    field<&Song::getGenre, &Song::setGenre>(),
    field<&Song::getLastPitch, &Song::setLastPitch>(),
    field<&Song::getLastTempo, &Song::setLastTempo>(),
    field<&Song::getLastVolume, &Song::setLastVolume>(),
    field<&Song::getLevel, &Song::setLevel>(),
    field<&Song::getChannels, &Song::setChannels>(),
    field<&Song::getPlayLength, &Song::setPlayLength>(),
    field<&Song::getRating, &Song::setRating>(),
    field<&Song::getSongId, &Song::setSongId>(),
    cachedOnly<&Song::getTags, &Song::setTags>(),
    field<&Song::getTitle, &Song::setTitle>(),
    field<&Song::getTrackNum, &Song::setTrackNum>(),
    field<&Song::getYear, &Song::setYear>(),
};

constexpr Field iswc = field<&Song::getIswcId, &Song::setIswcId>();

void readVersion(QDataStream &in, Song &song)
{
    // An empty text would leave the version of an earlier load.
    const QString text = readText(in);
    song.setVersionTag(text.isEmpty() ? QStringLiteral("0") : text);
}

void writePositions(QDataStream &out, const SongPositions &positions)
{
    out << static_cast<quint32>(positions.count());
    for (int i = 0; i < positions.count(); ++i) {
        const Position &position = positions.at(i);
        out << position.getPart() << position.getSteps() << position.getTime();
    }
}

// The count may be any number: the end of the file ends the list.
void readPositions(QDataStream &in, SongPositions &positions)
{
    positions.clear();
    quint32 count = 0;
    in >> count;
    for (; count > 0; --count) {
        const QString part = readText(in);
        const QString steps = readText(in);
        qint32 time = 0;
        take(in, time);
        if (in.status() != QDataStream::Ok)
            return;
        positions.insert(positions.count(), Position(time, part, steps));
    }
}

void passOverDocument(QDataStream &in, const Cuesheet::CachePlace &file, Song &song)
{
    song.getCuesheet().clear();
    quint32 length = 0;
    in >> length;
    if (length == nullDocument || length == 0)
        return;
    const qint64 offset = in.device()->pos();
    const qint64 end = offset + length;
    if (length > longestDocument || end > in.device()->size()) {
        in.setStatus(QDataStream::ReadPastEnd);
        return;
    }
    in.device()->seek(end);
    song.getCuesheet().setUnread(length, song.getFilename(), {file.file, file.state, offset});
}

void readLists(QDataStream &in, Song &song)
{
    song.getDanceEvents().clear();
    song.getDanceEvents().fromCacheText(readText(in));
    // Not cleared: an empty text leaves the countdowns as they are, as that of the tag does.
    song.getCountDowns().fromText(readText(in));
}

// After the first fault every further field is empty.
class Reader
{
public:
    explicit Reader(QDataStream &stream)
        : in(stream)
    { }
    template <class Step> void run(Step step)
    {
        step(in);
        if (in.status() != QDataStream::Ok)
            in.device()->seek(in.device()->size());
    }

private:
    QDataStream &in;
};

void readFields(QDataStream &in, const Cuesheet::CachePlace &file, Song &song)
{
    Reader reader(in);
    for (const Field &row : fieldsBeforePositions)
        reader.run([&](QDataStream &stream) { row.read(stream, song); });
    reader.run([&](QDataStream &stream) { readVersion(stream, song); });
    reader.run([&](QDataStream &stream) { readPositions(stream, song.getPositions()); });
    reader.run([&](QDataStream &stream) { passOverDocument(stream, file, song); });
    reader.run([&](QDataStream &stream) { readLists(stream, song); });
    reader.run([&](QDataStream &stream) { iswc.read(stream, song); });
    song.setIncomplete(in.status() != QDataStream::Ok || !in.atEnd());
}

template <class List> QJsonArray entriesOf(const List &list, const QString &key)
{
    QJsonObject object;
    list.toJson(object);
    return object.value(key).toArray();
}

template <class List> void copyList(const List &from, List &to)
{
    QJsonObject object;
    from.toJson(object);
    to.fromJson(object);
}

// Each entry of others takes one away.
QJsonArray without(const QJsonArray &entries, const QJsonArray &others)
{
    const auto textOf = [](const QJsonValue &entry) {
        return QJsonDocument(entry.toObject()).toJson(QJsonDocument::Compact);
    };
    QHash<QByteArray, int> counts;
    for (const QJsonValue other : others)
        ++counts[textOf(other)];
    QJsonArray left;
    for (const QJsonValue entry : entries) {
        int &count = counts[textOf(entry)];
        if (count > 0)
            --count;
        else
            left.append(entry);
    }
    return left;
}

// The list of the file, with what was removed and added here since the load.
template <class List>
void fillList(List &mine, const List &loaded, const List &whole, const QString &key)
{
    const QJsonArray now = entriesOf(mine, key);
    const QJsonArray before = entriesOf(loaded, key);
    const QJsonArray inFile = entriesOf(whole, key);
    const QJsonArray lost = without(inFile, before);
    QJsonArray filled = without(inFile, without(before, now));
    // Somebody may have entered by hand what was lost.
    for (const QJsonValue added : without(without(now, before), lost))
        filled.append(added);
    if (filled != now)
        mine.fromJson(QJsonObject{{key, filled}});
}

} // namespace

CacheRecord::Bytes CacheRecord::write(const Song &song)
{
    Bytes bytes;
    const QByteArray document = song.getCuesheetData();
    QDataStream out(&bytes.content, QIODevice::WriteOnly);
    out.setVersion(streamVersion);
    out << magic << formatVersion;
    for (const Field &row : fieldsBeforePositions)
        row.write(out, song);
    out << QString::number(song.getVersionTag());
    writePositions(out, song.getPositions());
    out << document;
    bytes.documentOffset = out.device()->pos() - document.size();
    out << song.getDanceEvents().toCacheText() << song.getCountDowns().toText();
    iswc.write(out, song);
    return bytes;
}

bool CacheRecord::read(QFile &file, const Platform::FileState &state, Song &song)
{
    QDataStream in(&file);
    quint32 foundMagic = 0;
    quint32 foundVersion = 0;
    in >> foundMagic >> foundVersion;
    if (foundMagic != magic || foundVersion != formatVersion)
        return false;
    readFields(in, {file.fileName(), state, 0}, song);
    return true;
}

void CacheRecord::copy(const Song &from, Song &to)
{
    for (const Field &row : fieldsBeforePositions)
        row.copy(from, to);
    iswc.copy(from, to);
    to.getPositions() = from.getPositions();
    to.getCuesheet() = from.getCuesheet();
    copyList(from.getDanceEvents(), to.getDanceEvents());
    copyList(from.getCountDowns(), to.getCountDowns());
}

void CacheRecord::fill(Song &song, const Song &loaded, const Song &whole)
{
    for (const Field &row : fieldsBeforePositions)
        row.fill(song, loaded, whole);
    iswc.fill(song, loaded, whole);
    song.setVersionTag(QString::number(whole.getVersionTag()));
    fillList(song.getPositions(), loaded.getPositions(), whole.getPositions(),
             QStringLiteral("positions"));
    fillList(song.getDanceEvents(), loaded.getDanceEvents(), whole.getDanceEvents(),
             QStringLiteral("events"));
    fillList(song.getCountDowns(), loaded.getCountDowns(), whole.getCountDowns(),
             QStringLiteral("countdowns"));
    if (song.getCuesheet().isLoadedAs(loaded.getCuesheet()))
        song.getCuesheet() = whole.getCuesheet();
    song.setIncomplete(false);
}
