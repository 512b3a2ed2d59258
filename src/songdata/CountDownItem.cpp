#include "CountDownItem.h"

#include "Settings.h"

#include <QJsonObject>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr qint64 leeway = 1000;

const int countDownEventType = qRegisterMetaType<CountDownEvent>();

// Any number can come out of a file: arithmetic ends at the limits instead of beyond them.
qint64 difference(qint64 a, qint64 b)
{
    qint64 result = 0;
    if (qSubOverflow(a, b, &result))
        return b > 0 ? std::numeric_limits<qint64>::min() : std::numeric_limits<qint64>::max();
    return result;
}

int toInt(qint64 number)
{
    return static_cast<int>(std::clamp<qint64>(number, std::numeric_limits<int>::min(),
                                               std::numeric_limits<int>::max()));
}

} // namespace

void CountDownItem::resetCountDown(int bpm)
{
    type = toInt(Settings::value(Settings::Key::CountDownType).toInt() + qint64{1});
    startTime = ignition;
    if (bpm == 0)
        return;
    beatLength = static_cast<qint64>(60.0 / bpm * 1000.0);
    startTime = difference(ignition, span() * beatLength);
}

bool CountDownItem::isActive(qint64 nowMs) const
{
    return nowMs > difference(startTime, leeway) && nowMs < difference(ignition, -leeway)
           && enabled;
}

CountDownEvent CountDownItem::makeEvent(qint64 nowMs, bool playing) const
{
    if (beatLength < 1 || !playing)
        return {0, comment, 0};
    const qint64 remaining = toInt(difference(ignition, nowMs) / beatLength);
    const qint64 count = countEnd < countStart ? countEnd + remaining : countEnd - remaining;
    const bool onShow = remaining >= 0 && remaining <= span();
    return {toInt(count), comment, onShow ? type : 0};
}

qint64 CountDownItem::span() const
{
    return std::abs(qint64{countEnd} - countStart);
}

void CountDownItem::fromJson(const QJsonObject &object)
{
    ignition = object.value(u"ignition").toInteger(ignition);
    countStart = object.value(u"count_start").toInt(countStart);
    countEnd = object.value(u"count_end").toInt(countEnd);
    comment = object.value(u"comment").toString(comment);
    enabled = object.value(u"enabled").toBool(enabled);
}

void CountDownItem::toJson(QJsonObject &object) const
{
    object.insert(u"ignition", ignition);
    object.insert(u"count_start", countStart);
    object.insert(u"count_end", countEnd);
    object.insert(u"comment", comment);
    object.insert(u"enabled", enabled);
}
