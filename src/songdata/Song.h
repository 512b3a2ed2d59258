#pragma once

#include "CountDownList.h"
#include "Cuesheet.h"
#include "DanceEventList.h"
#include "SongPositions.h"

#include <QAudioFormat>
#include <QDateTime>
#include <QImage>
#include <QObject>
#include <QSharedPointer>
#include <QString>

#include <memory>

class QAudioBuffer;
class QFileInfo;
class SongAudioData;

// The record of one music file. It is filled on construction from the file and written back by
// an explicit save() alone: nothing is written behind the caller's back. Everything lives on the
// GUI thread. Numbers that the tag holds as text (bpm, tempo, pitch, volume) are text here too,
// with a decimal point.
class Song : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString filename READ getFilename)
    Q_PROPERTY(QString song_id READ getSongId WRITE setSongId)
    Q_PROPERTY(QString iswc_id READ getIswcId WRITE setIswcId)
    Q_PROPERTY(QString artist READ getArtist WRITE setArtist)
    Q_PROPERTY(QString album READ getAlbum WRITE setAlbum)
    Q_PROPERTY(QString title READ getTitle WRITE setTitle)
    Q_PROPERTY(QString bpm READ getBpm WRITE setBpm)
    Q_PROPERTY(int bpmauto READ getBpmAuto)
    Q_PROPERTY(QString year READ getYear WRITE setYear)
    Q_PROPERTY(QString level READ getLevel WRITE setLevel)
    Q_PROPERTY(QDateTime modified READ getModified)
    Q_PROPERTY(int playlength READ getPlayLength)
    Q_PROPERTY(QString comment READ getComment WRITE setComment)
    Q_PROPERTY(QString tags READ getTags WRITE setTags)
    Q_PROPERTY(QString genre READ getGenre WRITE setGenre)
    Q_PROPERTY(int rating_stars READ getRatingStars WRITE setRatingStars)
    Q_PROPERTY(QString choreographer READ getChoreographer WRITE setChoreographer)
    Q_PROPERTY(QString adapted_by READ getAdaptedBy WRITE setAdaptedBy)
    Q_PROPERTY(QString cue_owner READ getCueOwner WRITE setCueOwner)
    Q_PROPERTY(QImage cover READ getCover)
    Q_PROPERTY(QString tracknum READ getTrackNum WRITE setTrackNum)
    Q_PROPERTY(double volume READ getVolume WRITE setVolume)
    Q_PROPERTY(double pitch READ getPitch WRITE setPitch)
    Q_PROPERTY(double tempo READ getTempo WRITE setTempo)
    Q_PROPERTY(QByteArray cuesheet READ getCuesheetData)
    Q_PROPERTY(int version_choreo READ getVersionChoreo WRITE setVersionChoreo)
    Q_PROPERTY(int version_pos READ getVersionPos WRITE setVersionPos)
    Q_PROPERTY(bool readonly READ isReadonly)
    Q_PROPERTY(int version_tarvelo READ getVersionTag)
    Q_PROPERTY(bool missingFileFlag READ isMissingFile WRITE setMissingFile)
    Q_PROPERTY(bool cached READ isCached)
    Q_PROPERTY(bool positionsYN READ hasPositions)
    Q_PROPERTY(bool choreoYN READ hasChoreography)
    Q_PROPERTY(bool selected READ isSelected WRITE setSelected)

public:
    enum class EFileFormat { Wav };

    // What save() stamps a file with.
    static constexpr int tagFormatVersion = 2;

    // Loads the file at once. missingFile marks a record that stands for a file which does not
    // exist: no audio is decoded for it.
    Song(const QString &filename, bool missingFile);
    ~Song() override;

    // Runs the load chain. True when a store delivered the song; *cached becomes true when that
    // was the cache. On false the record keeps what it held. Files of the earlier tag format
    // (version below 2) hold their positions 800 ms late: they are moved in memory.
    bool load(bool *cached);
    bool reload();
    // Runs the save chain; true when the music file was written. Does not look at readonly. A
    // record that no load ever filled is not written: it would wipe what the file holds. What the
    // record does not hold itself (see isIncomplete() and Cuesheet) is read before anything is
    // written; false when it can't be read.
    bool save();
    // Moves the file to the recycle bin, without a dialog. True when the file is gone. Whoever
    // still holds the record can play what was decoded; a save fails from now on, whatever file
    // comes to lie there.
    bool removeFromDisk();
    // Gives the file another place, at which there is none yet, and answers the record of the file
    // there. Empty, with everything as it was, when that failed. Whoever still holds this one goes
    // on with it: a save writes to the moved file, and through the new record.
    QSharedPointer<Song> moveTo(const QString &destination);
    // Who has the song's file now: the last one that the moves of this song's file have made, or
    // the song itself.
    static QSharedPointer<Song> present(QSharedPointer<Song> song);
    // Both answer whether the file's permissions were changed.
    bool setWriteProtection();
    bool removeWriteProtection();

    // Path of the music file, the song's key everywhere; never changes.
    const QString &getFilename() const { return filename; }
    bool isReadonly() const { return readonly; }
    // Sample rate in Hz, channel count and play length in whole seconds, 0 when unknown.
    int getFrequency() const { return frequency; }
    int getChannels() const { return channels; }
    int getPlayLength() const { return playlength; }
    const QString &getAdaptedBy() const { return adapted_by; }
    const QString &getAlbum() const { return album; }
    const QString &getArtist() const { return artist; }
    // Decimal integer text; "0" once loaded from a file without a value.
    const QString &getBpm() const { return bpm; }
    // Found by analysing the decoded audio's second quarter; 0 while there is none.
    int getBpmAuto() const;
    const QString &getChoreographer() const { return choreographer; }
    const QString &getComment() const { return comment; }
    QImage getCover() const { return cover; }
    const QString &getCueOwner() const { return cue_owner; }
    const QString &getGenre() const { return genre; }
    // Offsets in percent and the volume (1.0 = unchanged) of the last play, as text.
    const QString &getLastPitch() const { return pitch; }
    const QString &getLastTempo() const { return tempo; }
    const QString &getLastVolume() const { return volume; }
    double getPitch() const { return pitch.toDouble(); }
    double getTempo() const { return tempo.toDouble(); }
    double getVolume() const { return volume.toDouble(); }
    const QString &getLevel() const { return level; }
    bool isMissingFile() const { return missingFileFlag; }
    // Null without a file. To be shown in local time: the look at the system's time zone costs more
    // than reading it.
    const QDateTime &getModified() const { return modified; }
    const QString &getSongId() const { return song_id; }
    const QString &getIswcId() const { return iswc_id; }
    const QString &getTags() const { return tags; }
    const QString &getTitle() const { return title; }
    const QString &getTrackNum() const { return tracknum; }
    const QString &getYear() const { return year; }
    int getVersionChoreo() const { return version_choreo; }
    int getVersionPos() const { return version_pos; }
    int getVersionTag() const { return version_tarvelo; }
    // The POPM byte, 0 to 255 once loaded, -1 before.
    int getRating() const { return rating; }
    // 0 to 5; no byte but 1 itself gives one star.
    int getRatingStars() const;
    bool isSelected() const { return selected; }
    bool isCached() const { return cached; }
    // True when a damaged cache file delivered the song: what it holds may be empty or wrong in
    // the record alone. A save first takes from the music file what nobody has changed since.
    bool isIncomplete() const { return incomplete; }
    // True while a save has not reached the music file yet.
    bool isAheadOfFile() const { return aheadOfFile; }
    const SongPositions &getPositions() const { return positions; }
    SongPositions &getPositions() { return positions; }
    bool hasPositions() const { return positions.count() > 0; }
    const Cuesheet &getCuesheet() const { return cuesheet; }
    Cuesheet &getCuesheet() { return cuesheet; }
    QByteArray getCuesheetData() const { return cuesheet.data(); }
    bool hasChoreography() const { return cuesheet.isPresent(); }
    const DanceEventList &getDanceEvents() const { return danceEvents; }
    DanceEventList &getDanceEvents() { return danceEvents; }
    const CountDownList &getCountDowns() const { return countdowns; }
    CountDownList &getCountDowns() { return countdowns; }

    void setFrequency(int hertz) { frequency = hertz; }
    void setChannels(int count) { channels = count; }
    void setPlayLength(int seconds) { playlength = seconds; }
    void setAdaptedBy(const QString &text) { adapted_by = text; }
    void setAlbum(const QString &text) { album = text; }
    void setArtist(const QString &text) { artist = text; }
    // Any number text, comma or point; kept as its integer part. No number gives "0".
    void setBpm(const QString &text);
    void setChoreographer(const QString &text) { choreographer = text; }
    void setComment(const QString &text) { comment = text; }
    void setCueOwner(const QString &text) { cue_owner = text; }
    void setGenre(const QString &text) { genre = text; }
    // Comma or point; an empty text changes nothing.
    void setLastPitch(const QString &text);
    void setLastTempo(const QString &text);
    void setLastVolume(const QString &text);
    void setPitch(double percent);
    void setTempo(double percent);
    void setVolume(double factor);
    void setLevel(const QString &text) { level = text; }
    void setMissingFile(bool missing) { missingFileFlag = missing; }
    void setModified(const QDateTime &time) { modified = time; }
    void setSongId(const QString &text) { song_id = text; }
    void setIswcId(const QString &text) { iswc_id = text; }
    void setTags(const QString &text) { tags = text; }
    void setTitle(const QString &text) { title = text; }
    void setTrackNum(const QString &text) { tracknum = text; }
    void setYear(const QString &text) { year = text; }
    void setVersionChoreo(int version) { version_choreo = version; }
    void setVersionPos(int version) { version_pos = version; }
    // An empty text leaves the version alone.
    void setVersionTag(const QString &text);
    void setRating(int popm) { rating = popm; }
    // Leaves a rating alone that already shows this many stars.
    void setRatingStars(int stars);
    void setSelected(bool mark) { selected = mark; }
    void setIncomplete(bool isSo) { incomplete = isSo; }

    // File name for an export: title, artist, choreographer and level, cleaned of what no file
    // name can have, plus "." and suffix. levelShort stands for the level
    // "Intermediate-Advanced". maxLength above 0 limits the whole name, in UTF-16 units.
    QString exportFileName(const QString &suffix, const QString &levelShort, int maxLength) const;
    // Adds ms (milliseconds, either sign) to the time of every position.
    void shiftPositions(int ms);
    // Renews the countdowns from the song's bpm.
    void resetCountDowns();

    // Starts decoding the file into this record; returns as soon as a head of the song is there
    // or 100 ms have passed, and decoding goes on. Does nothing for a missing file. Runs the
    // event loop while it waits.
    void decodeAudio();
    // Frees the decoded audio.
    void releaseAudio();
    // Whether the sound has a rate and a channel count that can be played: up to 192 kHz, 16
    // channels.
    bool isPlayable() const;
    // Writes the decoded audio to a WAV file, stretched to this tempo in percent without a change
    // of pitch; of a song that is still being decoded, as much as is there. The format is WAV,
    // whatever format or name say. Does nothing without decoded audio; a file that can't be
    // written is told to nobody.
    void convert(const QString &target, int tempoPercent, EFileFormat format);
    // The decoded audio; empty unless decodeAudio() was called and the audio not yet released.
    const std::shared_ptr<SongAudioData> &getAudioData() const { return audioData; }
    // Only while getAudioData() isn't empty. The count grows while decoding runs.
    int audioBufferCount() const;
    std::shared_ptr<QAudioBuffer> audioBuffer(int index) const;
    // 16-bit at the file's own rate and channel count; filled by decodeAudio().
    const QAudioFormat &getFormat() const { return format; }

private:
    // Defaults alone: nothing is loaded.
    explicit Song(const QString &filename);
    void noteLoaded();
    void correctOldPositions();
    bool makeWhole();
    bool runLoadChain(const QFileInfo &file, bool *fromCache);
    bool runSaveChain();
    void removeFromStores() const;
    bool saveAsSuccessor();
    int detectBpm() const;

    QString filename;
    bool readonly = true;
    int frequency = 0;
    int channels = 0;
    int playlength = 0;
    QString adapted_by;
    QString album;
    QString artist;
    QString bpm;
    mutable int bpmauto = 0;
    QString choreographer;
    QString comment;
    QImage cover;
    QString cue_owner;
    QString genre;
    QString pitch = QStringLiteral("0.0");
    QString tempo = QStringLiteral("0.0");
    QString volume = QStringLiteral("1.0");
    QString level;
    bool missingFileFlag = false;
    QDateTime modified;
    QString song_id;
    QString iswc_id;
    QString tags;
    QString title;
    QString tracknum;
    QString year;
    int version_choreo = 0;
    int version_pos = 0;
    int version_tarvelo = 0;
    int rating = -1;
    bool selected = false;
    bool cached = false;
    bool delivered = false;
    bool incomplete = false;
    // An incomplete record as it was loaded; null for any other.
    std::unique_ptr<Song> asLoaded;
    bool aheadOfFile = false;
    // The file was moved or removed. Of a moved one there is a successor.
    bool fileGone = false;
    QSharedPointer<Song> successor;
    QAudioFormat format;
    std::shared_ptr<SongAudioData> audioData;
    DanceEventList danceEvents;
    SongPositions positions;
    Cuesheet cuesheet;
    Cuesheet::Sources cuesheetSources;
    CountDownList countdowns;
};

using SongPtr = QSharedPointer<Song>;
