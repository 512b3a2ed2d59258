#include "CountDownList.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

CountDownItem *CountDownList::addNew()
{
    items.push_back(std::make_unique<CountDownItem>());
    items.back()->setIgnition(CountDownItem::ignitionUnset);
    return items.back().get();
}

void CountDownList::removeAt(int index)
{
    items.erase(items.begin() + index);
}

void CountDownList::clear()
{
    items.clear();
}

void CountDownList::reset(int bpm)
{
    for (const auto &item : items)
        item->resetCountDown(bpm);
}

int CountDownList::earliestStart() const
{
    qint64 earliest = noStart;
    for (const auto &item : items) {
        if (item->isEnabled() && item->hasIgnition())
            earliest = std::min(earliest, item->getStartTime());
    }
    return static_cast<int>(std::max<qint64>(earliest, std::numeric_limits<int>::min()));
}

const CountDownItem *CountDownList::activeAt(qint64 nowMs) const
{
    const auto found = std::find_if(items.cbegin(), items.cend(),
                                    [nowMs](const auto &item) { return item->isActive(nowMs); });
    return found == items.cend() ? nullptr : found->get();
}

QString CountDownList::toText() const
{
    if (items.empty())
        return {};
    QJsonObject object;
    toJson(object);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void CountDownList::fromText(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isNull())
        fromJson(document.object());
}

bool CountDownList::hasCountdowns(const QJsonObject &object)
{
    return object.value(u"countdowns").isArray();
}

void CountDownList::fromJson(const QJsonObject &object)
{
    items.clear();
    const QJsonArray entries = object.value(u"countdowns").toArray();
    const qsizetype count = std::min<qsizetype>(entries.size(), mostRead);
    for (qsizetype index = 0; index < count; ++index) {
        items.push_back(std::make_unique<CountDownItem>());
        items.back()->fromJson(entries.at(index).toObject());
    }
}

void CountDownList::toJson(QJsonObject &object) const
{
    QJsonArray entries;
    for (const auto &item : items) {
        QJsonObject entry;
        item->toJson(entry);
        entries.append(entry);
    }
    object.insert(u"countdowns", entries);
}
