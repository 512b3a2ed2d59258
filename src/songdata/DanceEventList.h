#pragma once

#include "DanceEvent.h"

#include <QList>

// The play history of a song, in the order in which the plays were registered: nothing sorts it.
// Copies share their events. No entry is ever null.
class DanceEventList
{
public:
    // Texts read from a file give no more events than this.
    static constexpr int mostRead = 64000;
    static constexpr int mostCollected = 65536;

    int count() const { return static_cast<int>(events.size()); }
    // No bounds check: index is 0 to count() - 1.
    const std::shared_ptr<DanceEvent> &at(int index) const { return events.at(index); }
    auto begin() const { return events.cbegin(); }
    auto end() const { return events.cend(); }
    void append(const std::shared_ptr<DanceEvent> &event) { events.append(event); }
    void removeAt(int index) { events.removeAt(index); }
    void clear() { events.clear(); }

    // Registers a play, now and under the current event, at this offset of the tempo.
    void addPlay(double tempoPercent);

    // The number of plays when one that begins within eventRounding seconds (a setting) of the
    // play before it counts no more than that. The events themselves stay as they are.
    int countRounded() const;
    // The latest date; null for an empty list.
    QDateTime lastDate() const;
    // The texts from the last entry to the first, joined with ", ". One that is found in what was
    // collected before it, be it within a longer text, is left out, and so is what comes once
    // mostCollected characters are there.
    QString allCategories() const;
    QString allNames() const;

    // The frame's text: a line "seconds<tab>category<tab>name<tab>tempo<line feed>" for each
    // event; empty for an empty list. Reading skips lines of another shape and events that are
    // not isValid(); the tempo may be missing.
    QString toTagText() const;
    void fromTagText(const QString &text);

    // The cache's text: toJson() as compact JSON; empty for an empty list. A text that is no JSON
    // leaves the list as it is.
    QString toCacheText() const;
    void fromCacheText(const QString &text);

    // Key "events" with an array of events. Reading leaves an empty list when hasEvents() is
    // false, and takes events with any date.
    static bool hasEvents(const QJsonObject &object);
    void fromJson(const QJsonObject &object);
    void toJson(QJsonObject &object) const;

    // The same events in the same order, whether shared or not.
    friend bool operator==(const DanceEventList &a, const DanceEventList &b);

private:
    QString collect(QString (DanceEvent::*text)() const) const;

    QList<std::shared_ptr<DanceEvent>> events;
};
