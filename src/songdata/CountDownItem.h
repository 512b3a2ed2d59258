#pragma once

#include "CountDownEvent.h"

#include <QObject>

#include <limits>

class QJsonObject;

// Counts the instructor into a moment of a song, beat by beat. Times are in milliseconds from the
// start of the song. What was set takes effect with the next resetCountDown().
class CountDownItem : public QObject
{
    Q_OBJECT

public:
    // The ignition that nobody has set yet.
    static constexpr qint64 ignitionUnset = std::numeric_limits<qint64>::min();

    // The moment at which the count reaches countEnd.
    qint64 getIgnition() const { return ignition; }
    bool hasIgnition() const { return ignition != ignitionUnset; }
    // The first number and the last; the count goes up or down.
    int getCountStart() const { return countStart; }
    int getCountEnd() const { return countEnd; }
    const QString &getComment() const { return comment; }
    bool isEnabled() const { return enabled; }
    // 1 simple, 2 window, 3 cool: the setting countDown/type plus 1.
    int getType() const { return type; }
    // When the first number is due.
    qint64 getStartTime() const { return startTime; }
    // 0 until a bpm was known.
    qint64 getBeatLength() const { return beatLength; }

    void setIgnition(qint64 ms) { ignition = ms; }
    void setCountStart(int number) { countStart = number; }
    void setCountEnd(int number) { countEnd = number; }
    void setComment(const QString &text) { comment = text; }
    void setEnabled(bool on) { enabled = on; }

    // Computes type, start time and beat length; bpm 0 means unknown.
    void resetCountDown(int bpm);
    // True from a second before the start time to a second after the ignition, if enabled.
    bool isActive(qint64 nowMs) const;
    // The number to show at nowMs; of type 0 outside the count, while nothing plays, and as long
    // as the length of a beat isn't known. Numbers beyond 32 bits end at their limits.
    CountDownEvent makeEvent(qint64 nowMs, bool playing) const;

    // Keys "ignition", "count_start", "count_end", "comment", "enabled". Reading leaves a field
    // alone whose key is missing, or holds another type or a number that the field can't hold.
    void fromJson(const QJsonObject &object);
    void toJson(QJsonObject &object) const;

private:
    qint64 span() const;

    qint64 ignition = 0;
    int countStart = 0;
    int countEnd = 0;
    QString comment;
    bool enabled = false;
    int type = 1;
    qint64 startTime = 0;
    qint64 beatLength = 0;
};
