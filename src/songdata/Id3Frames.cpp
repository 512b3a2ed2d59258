#include "Id3Frames.h"

#include "Song.h"
#include "TagText.h"
#include "UserText.h"

#include <id3v2tag.h>
#include <popularimeterframe.h>
#include <synchronizedlyricsframe.h>
#include <textidentificationframe.h>

using namespace TagLib::ID3v2;

namespace {

QString withComma(QString number)
{
    return number.replace(u'.', u',');
}

const QString cuesheetKey = QStringLiteral("Cuesheet");

// One user text frame: its description, the text that is written, and what takes the text read.
struct TextFrame
{
    const char16_t *description;
    QString (*text)(const Song &);
    void (*take)(Song &, const QString &);
};

// In the order in which they are written.
constexpr TextFrame textFrames[] = {
    {u"SongId", [](const Song &song) { return song.getSongId(); },
     [](Song &song, const QString &text) { song.setSongId(text); }},
    {u"LastTempo", [](const Song &song) { return withComma(song.getLastTempo()); },
     [](Song &song, const QString &text) { song.setLastTempo(text); }},
    {u"LastPitch", [](const Song &song) { return withComma(song.getLastPitch()); },
     [](Song &song, const QString &text) { song.setLastPitch(text); }},
    {u"LastVolume", [](const Song &song) { return withComma(song.getLastVolume()); },
     [](Song &song, const QString &text) { song.setLastVolume(text); }},
    {u"CloggingLevel", [](const Song &song) { return song.getLevel(); },
     [](Song &song, const QString &text) { song.setLevel(text); }},
    {u"Choreographer", [](const Song &song) { return song.getChoreographer(); },
     [](Song &song, const QString &text) { song.setChoreographer(text); }},
    {u"AdaptedBy", [](const Song &song) { return song.getAdaptedBy(); },
     [](Song &song, const QString &text) { song.setAdaptedBy(text); }},
    {u"CueOwner", [](const Song &song) { return song.getCueOwner(); },
     [](Song &song, const QString &text) { song.setCueOwner(text); }},
    {u"Countdowns", [](const Song &song) { return song.getCountDowns().toText(); },
     [](Song &song, const QString &text) { song.getCountDowns().fromText(text); }},
    {u"ISWC", [](const Song &song) { return song.getIswcId(); },
     [](Song &song, const QString &text) { song.setIswcId(text); }},
    // A NUL would end the frame, and with it the events behind it.
    {u"DanceEvents",
     [](const Song &song) { return song.getDanceEvents().toTagText().replace(QChar(0), u' '); },
     [](Song &song, const QString &text) { song.getDanceEvents().fromTagText(text); }},
    // No frame is version 0, also when the record was of another version before.
    {u"Version", [](const Song &) { return QString::number(Song::tagFormatVersion); },
     [](Song &song, const QString &text) {
         song.setVersionTag(text.isEmpty() ? QStringLiteral("0") : text);
     }},
};

template <class Kind> Kind *firstFrame(const Tag &tag, const char *id)
{
    for (Frame *frame : tag.frameList(id)) {
        if (auto *found = dynamic_cast<Kind *>(frame))
            return found;
    }
    return nullptr;
}

template <class Kind, class... Arguments>
Kind *firstOrNewFrame(Tag &tag, const char *id, Arguments... arguments)
{
    Kind *frame = firstFrame<Kind>(tag, id);
    if (!frame) {
        frame = new Kind(arguments...);
        tag.addFrame(frame);
    }
    return frame;
}

void readBpm(const Tag &tag, Song &song)
{
    const auto *frame = firstFrame<TextIdentificationFrame>(tag, "TBPM");
    const bool present = frame && !frame->fieldList().isEmpty();
    song.setBpm(present ? TagText::fromTag(frame->fieldList().front()) : QString());
}

void writeBpm(Tag &tag, const Song &song)
{
    const unsigned int bpm = song.getBpm().toUInt();
    if (bpm == 0) {
        tag.removeFrames("TBPM");
        return;
    }
    auto *frame
        = firstOrNewFrame<TextIdentificationFrame>(tag, "TBPM", "TBPM", TagLib::String::Latin1);
    frame->setTextEncoding(TagLib::String::Latin1);
    frame->setText(TagLib::String::number(static_cast<int>(bpm)));
}

void readRating(const Tag &tag, Song &song)
{
    const auto *frame = firstFrame<PopularimeterFrame>(tag, "POPM");
    song.setRating(frame ? frame->rating() : 0);
}

// A rating that nobody knows is below 0; as a byte it would be five stars.
void writeRating(Tag &tag, const Song &song)
{
    if (const int rating = song.getRating(); rating >= 0)
        firstOrNewFrame<PopularimeterFrame>(tag, "POPM")->setRating(qMin(rating, 255));
}

void readPositions(const Tag &tag, Song &song)
{
    song.getPositions().clear();
    if (const auto *frame = firstFrame<SynchronizedLyricsFrame>(tag, "SYLT"))
        song.getPositions().fromFrame(frame);
}

void writePositions(Tag &tag, Song &song)
{
    song.getPositions().sort();
    song.getPositions().toFrame(
        firstOrNewFrame<SynchronizedLyricsFrame>(tag, "SYLT", TagLib::String::Latin1));
}

// Other programs keep the tracks of a disc in a frame "CUESHEET", as plain text.
bool isForeignCuesheet(const QString &text)
{
    return !QByteArray::fromBase64Encoding(text.toUtf8(), QByteArray::AbortOnBase64DecodingErrors);
}

void writeCuesheet(Tag &tag, Song &song)
{
    const QString capitals = cuesheetKey.toUpper();
    if (!isForeignCuesheet(UserText::exactly(tag, capitals).value_or(QString())))
        UserText::removeAll(tag, capitals);
    UserText::replace(tag, cuesheetKey, QString::fromLatin1(song.getCuesheetData().toBase64()));
    song.getCuesheet().noteFrame(song.getFilename());
}

} // namespace

QByteArray Id3Frames::cuesheet(const Tag &tag)
{
    std::optional<QString> text = UserText::exactly(tag, cuesheetKey);
    if (!text) {
        text = UserText::exactly(tag, cuesheetKey.toUpper());
        if (!text || isForeignCuesheet(*text))
            return QByteArray();
    }
    return QByteArray::fromBase64(text->toUtf8().left(text->size()));
}

void Id3Frames::read(const Tag &tag, Song &song)
{
    readBpm(tag, song);
    readRating(tag, song);
    readPositions(tag, song);
    for (const TextFrame &frame : textFrames)
        frame.take(song, UserText::find(tag, QString::fromUtf16(frame.description)));
    song.getCuesheet().set(cuesheet(tag));
    song.getCuesheet().noteFrame(song.getFilename());
}

void Id3Frames::write(Tag &tag, Song &song)
{
    writeBpm(tag, song);
    writeRating(tag, song);
    writePositions(tag, song);
    for (const TextFrame &frame : textFrames)
        UserText::write(tag, QString::fromUtf16(frame.description), frame.text(song));
    writeCuesheet(tag, song);
}
