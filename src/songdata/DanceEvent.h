#pragma once

#include <QDateTime>
#include <QString>

#include <memory>

class QJsonObject;

// One entry of a song's play history: when it was played, at what event and at which tempo. Held
// through std::shared_ptr, as the song and the dialogs show the same entry.
class DanceEvent
{
public:
    // Without a date the event is now. No constructor touches a setting.
    DanceEvent();
    DanceEvent(const QString &category, const QString &name, const QString &tempo);
    DanceEvent(const QString &category, const QString &name, const QString &tempo,
               const QDateTime &date);
    // Now, in the category that was chosen last (setting lastDanceEventCategory).
    static std::shared_ptr<DanceEvent> createDefault();

    // The kind of event, such as "Training"; free text.
    QString getCategory() const { return category; }
    QString getName() const { return name; }
    // In local time.
    QDateTime getDate() const { return date.toLocalTime(); }
    // Offset in percent as decimal text; empty for events from before tempi were recorded.
    QString getTempo() const { return tempo; }

    // A new category is remembered in the setting lastDanceEventCategory.
    void setCategory(const QString &text);
    void setName(const QString &text) { name = text; }
    void setDate(const QDateTime &time) { date = time; }
    void setTempo(const QString &text) { tempo = text; }
    void setTempoPercent(double percent);

    // The date in seconds since the epoch, which is all that is stored of it; 0 without a date.
    qint64 seconds() const { return date.toSecsSinceEpoch(); }
    // False for a date from before March 1973 or after January 2065: that is damage.
    bool isValid() const;

    // Keys "category", "name", "date" (seconds since the epoch), "tempo". What is missing, or of
    // another type, reads as an empty text or the date 0. No setting is touched.
    static DanceEvent fromJson(const QJsonObject &object);
    QJsonObject toJson() const;

    // As stored: dates are equal within a second.
    friend bool operator==(const DanceEvent &a, const DanceEvent &b);

private:
    QString category;
    QString name;
    // In any time zone: local time costs a look at the system's settings, for every event read.
    QDateTime date;
    QString tempo;
};

// The event under which plays are registered at the moment; empty at the start of the program and
// whenever plays are registered without one.
std::shared_ptr<DanceEvent> getCurrentDanceEvent();
void setCurrentDanceEvent(const std::shared_ptr<DanceEvent> &event);
