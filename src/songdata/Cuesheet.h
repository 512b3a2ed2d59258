#pragma once

#include "PlatformFiles.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class QJsonObject;

// The choreography of a song, a whole PDF document as bytes. Present when there are any. A value.
// The bytes of a loaded song stay in its files until somebody asks for them, so that a library
// full of documents costs no memory. A copy keeps its bytes whatever becomes of the files.
class Cuesheet
{
public:
    // Where a cache file holds the bytes, as long as nobody writes to it.
    struct CachePlace
    {
        QString file;
        Platform::FileState state;
        qint64 offset = 0;
    };

    // Reads the bytes when they aren't held: from the music file, and from the cache file where
    // that one has not as many. Empty when neither has.
    QByteArray data() const;
    void set(const QByteArray &document);
    void clear() { set({}); }
    // Reads nothing.
    bool isPresent() const { return length > 0; }
    // Whether a document was ever taken from the exchange form.
    bool isChanged() const { return changed; }

    // The exchange form: key "cuesheet" with the bytes in base64, left out when there are none.
    // fromJson leaves everything as it is when the key is missing or holds no string.
    static bool hasCuesheet(const QJsonObject &object);
    void fromJson(const QJsonObject &object);
    void toJson(QJsonObject &object) const;

    // For the stores: where the present bytes can be read again. set() forgets it.
    void noteFrame(const QString &musicFile);
    void noteCache(const CachePlace &place);
    // There are length bytes, above 0, in the music file's frame and in a cache file.
    void setUnread(qint64 length, const QString &musicFile, const CachePlace &place);
    // Holds the bytes from now on. False when they can't be read; nothing has changed then.
    bool fetch();
    // Holds them no longer, if the music file has them.
    void letGo();

    // Whether neither of the two was set since they were one.
    bool isLoadedAs(const Cuesheet &other) const;
    // All files' bytes that a song's choreographies were left in.
    struct Source;
    using Sources = std::vector<std::weak_ptr<const Source>>;
    void addTo(Sources &sources) const;
    // To be called before the files change: what copies of this song's choreographies have left
    // in them is read, and held for them from now on.
    void holdForCopies(const Sources &sources) const;

private:
    bool changed = false;
    QByteArray bytes; // empty while unread
    qint64 length = 0;
    std::shared_ptr<const Source> source;
};
