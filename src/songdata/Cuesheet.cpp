#include "Cuesheet.h"

#include "SongStoreTags.h"

#include <QFile>
#include <QJsonObject>
#include <QtEndian>

namespace {

QByteArray readCache(const Cuesheet::CachePlace &place, qint64 length)
{
    constexpr qint64 lengthBytes = sizeof(quint32);
    const auto state = Platform::fileState(place.file);
    QFile file(place.file);
    if (!state || !state->isUnchanged(place.state) || !file.open(QIODevice::ReadOnly)
        || !file.seek(place.offset - lengthBytes))
        return QByteArray();
    const QByteArray prefix = file.read(lengthBytes);
    if (prefix.size() < lengthBytes || qFromBigEndian<quint32>(prefix.constData()) != length)
        return QByteArray();
    return file.read(length);
}

} // namespace

// Shared by all copies.
struct Cuesheet::Source
{
    Source(const QString &file, const CachePlace &place, qint64 count)
        : musicFile(file)
        , cache(place)
        , length(count)
    { }
    QByteArray data() const { return held.size() == length ? held : read(); }
    void hold() const { held = data(); }

    QString musicFile;
    CachePlace cache;
    qint64 length;

private:
    QByteArray read() const;

    mutable QByteArray held;
};

QByteArray Cuesheet::Source::read() const
{
    // After a power cut a cache file may hold zeros where the document was.
    QByteArray document = SongStoreTags::cuesheetOf(musicFile);
    if (document.size() != length)
        document = readCache(cache, length);
    return document.size() == length ? document : QByteArray();
}

QByteArray Cuesheet::data() const
{
    return bytes.size() == length ? bytes : source->data();
}

void Cuesheet::set(const QByteArray &document)
{
    bytes = document;
    length = document.size();
    source.reset();
}

bool Cuesheet::hasCuesheet(const QJsonObject &object)
{
    return object.value(u"cuesheet").isString();
}

void Cuesheet::fromJson(const QJsonObject &object)
{
    if (!hasCuesheet(object))
        return;
    set(QByteArray::fromBase64(object.value(u"cuesheet").toString().toLatin1()));
    changed = true;
}

void Cuesheet::toJson(QJsonObject &object) const
{
    const QByteArray document = data();
    if (!document.isEmpty())
        object.insert(u"cuesheet", QString::fromLatin1(document.toBase64()));
}

void Cuesheet::noteFrame(const QString &musicFile)
{
    source = std::make_shared<Source>(musicFile, source ? source->cache : CachePlace(), length);
}

void Cuesheet::noteCache(const CachePlace &place)
{
    source = std::make_shared<Source>(source ? source->musicFile : QString(), place, length);
}

void Cuesheet::setUnread(qint64 count, const QString &musicFile, const CachePlace &place)
{
    bytes.clear();
    length = count;
    source = std::make_shared<Source>(musicFile, place, length);
}

bool Cuesheet::fetch()
{
    const QByteArray document = data();
    if (document.size() != length)
        return false;
    bytes = document;
    return true;
}

void Cuesheet::letGo()
{
    if (source && !source->musicFile.isEmpty())
        bytes.clear();
}

bool Cuesheet::isLoadedAs(const Cuesheet &other) const
{
    return source == other.source && (source || length == other.length);
}

void Cuesheet::addTo(Sources &sources) const
{
    std::erase_if(sources,
                  [&](const auto &known) { return known.expired() || known.lock() == source; });
    if (source)
        sources.push_back(source);
}

void Cuesheet::holdForCopies(const Sources &sources) const
{
    for (const auto &known : sources) {
        const auto found = known.lock();
        const long ours = source == found ? 2 : 1;
        if (found && found.use_count() > ours)
            found->hold();
    }
}
