#include "Song.h"

#include "CacheRecord.h"
#include "FileTools.h"
#include "FileTransfer.h"
#include "Platform.h"
#include "PlatformFiles.h"
#include "SongStore.h"

#include <QFileInfo>
#include <QtDebug>

namespace {

// How late the positions of files before tagFormatVersion are.
constexpr int oldFormatDelayMs = 800;

SongStore *storeIn(SongStoreSlot slot)
{
    SongStores *stores = songStores();
    return stores ? stores->slot.at(slot).get() : nullptr;
}

bool loadFrom(SongStoreSlot slot, Song &song, const QFileInfo &file)
{
    SongStore *store = storeIn(slot);
    return store && store->load(song, file);
}

bool saveTo(SongStoreSlot slot, Song &song)
{
    SongStore *store = storeIn(slot);
    return store && store->save(song);
}

void removeFrom(SongStoreSlot slot, const Song &song)
{
    if (SongStore *store = storeIn(slot))
        store->remove(song);
}

QDateTime timeOf(const QString &path)
{
    constexpr qint64 nanoseconds = 1'000'000;
    const auto state = Platform::fileState(path);
    return state ? QDateTime::fromMSecsSinceEpoch(state->modified / nanoseconds, Qt::UTC)
                 : QDateTime();
}

QString withPoint(QString number)
{
    return number.replace(u',', u'.');
}

// Numbers reach us with a comma or a point; an empty one is no number and changes nothing.
void takeNumber(QString &member, const QString &text)
{
    const QString number = withPoint(text);
    if (!number.isEmpty() && number != member)
        member = number;
}

} // namespace

Song::Song(const QString &path, bool missingFile)
    : filename(path)
    , missingFileFlag(missingFile)
{
    load(&cached);
}

Song::Song(const QString &path)
    : filename(path)
{ }

Song::~Song()
{
    releaseAudio();
}

bool Song::load(bool *fromCache)
{
    const QFileInfo file(filename);
    modified = timeOf(filename);
    readonly = !file.isWritable();
    const bool loaded = runLoadChain(file, fromCache);
    if (loaded)
        noteLoaded();
    delivered = delivered || loaded;
    return loaded;
}

bool Song::runLoadChain(const QFileInfo &file, bool *fromCache)
{
    if (loadFrom(SongStoreNullSlot, *this, file))
        return true;
    if (loadFrom(SongStoreCacheSlot, *this, file)) {
        if (fromCache)
            *fromCache = true;
        return true;
    }
    if (!loadFrom(SongStoreTagsSlot, *this, file))
        return false;
    saveTo(SongStoreNullSlot, *this);
    incomplete = false;
    saveTo(SongStoreCacheSlot, *this);
    cuesheet.letGo();
    loadFrom(SongStoreDatabaseSlot, *this, file);
    return true;
}

void Song::noteLoaded()
{
    correctOldPositions();
    cuesheet.addTo(cuesheetSources);
    asLoaded.reset(incomplete ? new Song(filename) : nullptr);
    if (asLoaded)
        CacheRecord::copy(*this, *asLoaded);
}

void Song::correctOldPositions()
{
    if (version_tarvelo < tagFormatVersion)
        shiftPositions(-oldFormatDelayMs);
}

bool Song::reload()
{
    return load(nullptr);
}

bool Song::save()
{
    if (successor)
        return saveAsSuccessor();
    const bool saved = delivered && !fileGone && makeWhole() && runSaveChain();
    cuesheet.addTo(cuesheetSources);
    if (saved)
        cuesheet.letGo();
    resetCountDowns();
    if (!saved)
        qCritical() << "Save File failed:" << filename;
    return saved;
}

// What only the files hold is read before the first of them changes.
bool Song::makeWhole()
{
    cuesheet.holdForCopies(cuesheetSources);
    if (incomplete) {
        Song whole(filename);
        const QFileInfo file(filename);
        if (!loadFrom(SongStoreTagsSlot, whole, file))
            return false;
        whole.correctOldPositions();
        CacheRecord::fill(*this, *asLoaded, whole);
        asLoaded.reset();
    }
    return cuesheet.fetch();
}

bool Song::runSaveChain()
{
    // The positions in memory are those of the present format, so whatever a store writes has to
    // say so, or they would be moved once more at the next load.
    const int versionBefore = version_tarvelo;
    version_tarvelo = tagFormatVersion;
    aheadOfFile = true;
    saveTo(SongStoreNullSlot, *this);
    saveTo(SongStoreCacheSlot, *this);
    saveTo(SongStoreDatabaseSlot, *this);
    const bool saved = saveTo(SongStoreTagsSlot, *this);
    aheadOfFile = false;
    if (!saved)
        version_tarvelo = versionBefore;
    return saved;
}

bool Song::removeFromDisk()
{
    cuesheet.holdForCopies(cuesheetSources);
    if (fileGone || !Platform::moveToRecycleBin(filename))
        return false;
    fileGone = true;
    removeFromStores();
    return true;
}

void Song::removeFromStores() const
{
    removeFrom(SongStoreNullSlot, *this);
    removeFrom(SongStoreCacheSlot, *this);
    removeFrom(SongStoreDatabaseSlot, *this);
    removeFrom(SongStoreTagsSlot, *this);
}

SongPtr Song::moveTo(const QString &destination)
{
    cuesheet.holdForCopies(cuesheetSources);
    if (fileGone || !FileTransfer::move(filename, destination))
        return {};
    fileGone = true;
    removeFromStores();
    if (cuesheet.isPresent())
        cuesheet.noteFrame(destination);
    // A cache file of what once lay there may be newer than this file.
    Song(destination).removeFromStores();
    successor.reset(new Song(destination, false));
    return successor;
}

SongPtr Song::present(SongPtr song)
{
    while (song && song->successor)
        song = song->successor;
    return song;
}

// What was changed here since the file was moved, in an editor that was open, say.
bool Song::saveAsSuccessor()
{
    if (incomplete)
        CacheRecord::fill(*this, *asLoaded, *successor);
    CacheRecord::copy(*this, *successor);
    return successor->save();
}

bool Song::setWriteProtection()
{
    if (!Platform::setFileWritable(filename, false))
        return false;
    readonly = true;
    return true;
}

bool Song::removeWriteProtection()
{
    if (!Platform::setFileWritable(filename, true))
        return false;
    readonly = false;
    return true;
}

void Song::setBpm(const QString &text)
{
    bool isNumber = false;
    const float value = withPoint(text).toFloat(&isNumber);
    // Written so that "nan" fails as well.
    const bool fits = isNumber && std::abs(value) < 2147483648.0F;
    bpm = QString::number(fits ? static_cast<int>(value) : 0);
}

void Song::setLastPitch(const QString &text)
{
    takeNumber(pitch, text);
}

void Song::setLastTempo(const QString &text)
{
    takeNumber(tempo, text);
}

void Song::setLastVolume(const QString &text)
{
    takeNumber(volume, text);
}

void Song::setPitch(double percent)
{
    setLastPitch(QString::number(percent, 'g', 6));
}

void Song::setTempo(double percent)
{
    setLastTempo(QString::number(percent, 'g', 6));
}

void Song::setVolume(double factor)
{
    setLastVolume(QString::number(factor, 'g', 6));
}

void Song::setVersionTag(const QString &text)
{
    if (!text.isEmpty())
        version_tarvelo = text.toInt();
}

int Song::getRatingStars() const
{
    // Some programs store the stars themselves.
    if (rating >= 1 && rating <= 4)
        return rating;
    if (rating >= 255)
        return 5;
    if (rating >= 194)
        return 4;
    if (rating >= 128)
        return 3;
    return rating >= 64 ? 2 : 0;
}

void Song::setRatingStars(int stars)
{
    if (getRatingStars() == stars)
        return;
    constexpr int ratings[] = {0, 1, 64, 128, 194, 255};
    rating = stars >= 0 && stars <= 5 ? ratings[stars] : 0;
}

QString Song::exportFileName(const QString &suffix, const QString &levelShort, int maxLength) const
{
    const QString separator = QStringLiteral(" - ");
    QString name = title + separator + artist;
    if (!choreographer.isEmpty())
        name += separator + choreographer;
    const QString shown = level == u"Intermediate-Advanced" ? levelShort : level;
    if (!shown.isEmpty())
        name += separator + shown;
    name = cleanFileName(name);
    if (maxLength > 0) {
        name.truncate(qMax(0, maxLength - static_cast<int>(suffix.size()) - 1));
        if (!name.isEmpty() && name.back().isHighSurrogate())
            name.chop(1);
    }
    return name + u'.' + suffix;
}

void Song::shiftPositions(int ms)
{
    positions.shift(ms);
}

void Song::resetCountDowns()
{
    countdowns.reset(bpm.toInt());
}
