#include "DanceEvent.h"

#include "Settings.h"

#include <QJsonObject>

namespace {

std::shared_ptr<DanceEvent> &currentDanceEvent()
{
    static std::shared_ptr<DanceEvent> event;
    return event;
}

} // namespace

DanceEvent::DanceEvent()
    : date(QDateTime::currentDateTime())
{ }

DanceEvent::DanceEvent(const QString &kind, const QString &title, const QString &tempoText)
    : DanceEvent(kind, title, tempoText, QDateTime::currentDateTime())
{ }

DanceEvent::DanceEvent(const QString &kind, const QString &title, const QString &tempoText,
                       const QDateTime &time)
    : category(kind)
    , name(title)
    , date(time)
    , tempo(tempoText)
{ }

std::shared_ptr<DanceEvent> DanceEvent::createDefault()
{
    return std::make_shared<DanceEvent>(
        Settings::value(Settings::Key::LastDanceEventCategory).toString(), QString(), QString());
}

void DanceEvent::setCategory(const QString &text)
{
    if (text == category)
        return;
    category = text;
    Settings::setValue(Settings::Key::LastDanceEventCategory, category);
}

void DanceEvent::setTempoPercent(double percent)
{
    tempo = QString::number(percent);
}

bool DanceEvent::isValid() const
{
    constexpr qint64 earliest = 100000000;
    constexpr qint64 latest = 3000000000;
    return seconds() >= earliest && seconds() <= latest;
}

DanceEvent DanceEvent::fromJson(const QJsonObject &object)
{
    return {object.value(u"category").toString(), object.value(u"name").toString(),
            object.value(u"tempo").toString(),
            QDateTime::fromSecsSinceEpoch(object.value(u"date").toInteger(), Qt::UTC)};
}

QJsonObject DanceEvent::toJson() const
{
    QJsonObject object;
    object.insert(u"category", category);
    object.insert(u"name", name);
    object.insert(u"date", seconds());
    object.insert(u"tempo", tempo);
    return object;
}

bool operator==(const DanceEvent &a, const DanceEvent &b)
{
    return a.seconds() == b.seconds() && a.category == b.category && a.name == b.name
           && a.tempo == b.tempo;
}

std::shared_ptr<DanceEvent> getCurrentDanceEvent()
{
    return currentDanceEvent();
}

void setCurrentDanceEvent(const std::shared_ptr<DanceEvent> &event)
{
    currentDanceEvent() = event;
}
