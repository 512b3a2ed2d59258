#include "SongPositions.h"

#include "TagText.h"

#include <QJsonArray>
#include <QJsonObject>

#include <synchronizedlyricsframe.h>

#include <algorithm>
#include <cmath>

using TagLib::ID3v2::SynchronizedLyricsFrame;

void SongPositions::insert(int index, const Position &position)
{
    positions.insert(index, position);
}

void SongPositions::removeAt(int index)
{
    positions.removeAt(index);
}

void SongPositions::clear()
{
    positions.clear();
}

void SongPositions::sort()
{
    std::sort(positions.begin(), positions.end());
}

void SongPositions::shift(int ms)
{
    for (Position &position : positions)
        position.addTime(ms);
}

void SongPositions::fromFrame(const SynchronizedLyricsFrame *frame)
{
    positions.clear();
    for (const auto &entry : frame->synchedText()) {
        const QStringList fields = TagText::fromTag(entry.text).split(u'\t');
        const bool named = fields.size() > 1;
        // The frame's time is unsigned; ours may be negative and keeps its bits there.
        positions.append(Position(static_cast<int>(entry.time), named ? fields.at(0) : QString(),
                                  fields.at(named ? 1 : 0)));
    }
}

void SongPositions::toFrame(SynchronizedLyricsFrame *frame) const
{
    SynchronizedLyricsFrame::SynchedTextList entries;
    for (const Position &position : positions) {
        const QString text = position.getPart() + u'\t' + position.getSteps();
        entries.append(SynchronizedLyricsFrame::SynchedText(
            static_cast<unsigned int>(position.getTime()), TagText::toTag(text)));
    }
    TagText::mendEncoding(*frame);
    frame->setDescription("TarveloChoreoParts");
    frame->setLanguage("eng");
    frame->setType(SynchronizedLyricsFrame::Movement);
    frame->setTimestampFormat(SynchronizedLyricsFrame::AbsoluteMilliseconds);
    frame->setSynchedText(entries);
}

bool SongPositions::hasPositions(const QJsonObject &object)
{
    return object.value(u"positions").isArray();
}

void SongPositions::fromJson(const QJsonObject &object)
{
    positions.clear();
    const QJsonArray entries = object.value(u"positions").toArray();
    for (const auto &value : entries) {
        const QJsonObject entry = value.toObject();
        positions.append(Position(static_cast<int>(entry.value(u"timestamp").toInteger(0)),
                                  entry.value(u"part").toString(),
                                  entry.value(u"text").toString()));
    }
}

void SongPositions::toJson(QJsonObject &object) const
{
    QJsonArray entries;
    for (const Position &position : positions) {
        QJsonObject entry;
        entry.insert(u"timestamp", position.getTime());
        entry.insert(u"part", position.getPart());
        entry.insert(u"text", position.getSteps());
        entries.append(entry);
    }
    object.insert(u"positions", entries);
}

QString positionsAsText(const SongPositions &positions)
{
    QStringList texts;
    for (int index = 0; index < positions.count(); ++index)
        texts.append(positions.at(index).getSteps());
    return texts.join(u'\n');
}

int beatCount(qint64 spanMs, int bpm)
{
    return static_cast<int>(std::lround(static_cast<double>(spanMs) * bpm / 60000.0));
}
