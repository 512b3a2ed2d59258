#include "DanceEventList.h"

#include "Settings.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>
#include <QStringTokenizer>

#include <algorithm>

namespace {

// What separates fields and lines can't be part of a field.
QString cleaned(QString text)
{
    return text.replace(u'\t', u' ').replace(u'\n', u' ');
}

QString toLine(const DanceEvent &event)
{
    return QString::number(event.seconds()) + u'\t' + cleaned(event.getCategory()) + u'\t'
           + cleaned(event.getName()) + u'\t' + event.getTempo() + u'\n';
}

// Null for a line that is no event.
std::shared_ptr<DanceEvent> fromLine(QStringView line)
{
    const qsizetype separators = line.count(u'\t');
    if (separators < 2 || separators > 3)
        return nullptr;
    const QList<QStringView> fields = line.split(u'\t');
    const QString tempo = fields.size() > 3 ? fields.at(3).toString() : QString();
    auto event = std::make_shared<DanceEvent>(
        fields.at(1).toString(), fields.at(2).toString(), tempo,
        QDateTime::fromSecsSinceEpoch(fields.at(0).toLongLong(), Qt::UTC));
    return event->isValid() ? event : nullptr;
}

} // namespace

void DanceEventList::addPlay(double tempoPercent)
{
    const auto play = DanceEvent::createDefault();
    if (const auto current = getCurrentDanceEvent()) {
        play->setCategory(current->getCategory());
        play->setName(current->getName());
    }
    play->setTempoPercent(tempoPercent);
    events.append(play);
}

int DanceEventList::countRounded() const
{
    const qint64 span = Settings::value(Settings::Key::EventRounding).toInt();
    int rounded = events.isEmpty() ? 0 : 1;
    for (qsizetype index = 1; index < events.size(); ++index) {
        if (events.at(index)->seconds() - events.at(index - 1)->seconds() > span)
            ++rounded;
    }
    return rounded;
}

QDateTime DanceEventList::lastDate() const
{
    const auto last
        = std::max_element(events.cbegin(), events.cend(), [](const auto &a, const auto &b) {
              return a->seconds() < b->seconds();
          });
    return last == events.cend() ? QDateTime() : (*last)->getDate();
}

QString DanceEventList::allCategories() const
{
    return collect(&DanceEvent::getCategory);
}

QString DanceEventList::allNames() const
{
    return collect(&DanceEvent::getName);
}

// Each new text is searched in all before it: a history made up of different texts alone would
// take minutes without the limit. The set spares the search for the usual case, a repetition.
QString DanceEventList::collect(QString (DanceEvent::*text)() const) const
{
    QString collected;
    QSet<QString> known;
    for (auto event = events.crbegin(); event != events.crend() && collected.size() < mostCollected;
         ++event) {
        const QString next = ((**event).*text)();
        if (known.contains(next) || collected.contains(next))
            continue;
        known.insert(next);
        collected += collected.isEmpty() ? next : QStringLiteral(", ") + next;
    }
    return collected;
}

QString DanceEventList::toTagText() const
{
    QString text;
    for (const auto &event : events)
        text += toLine(*event);
    return text;
}

// Line by line: a list of all lines of a damaged text could take more memory than there is.
void DanceEventList::fromTagText(const QString &text)
{
    events.clear();
    int linesLeft = mostRead;
    for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
        if (linesLeft-- == 0)
            return;
        if (auto event = fromLine(line))
            events.append(std::move(event));
    }
}

QString DanceEventList::toCacheText() const
{
    if (events.isEmpty())
        return {};
    QJsonObject object;
    toJson(object);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void DanceEventList::fromCacheText(const QString &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text.toUtf8());
    if (!document.isNull())
        fromJson(document.object());
}

bool DanceEventList::hasEvents(const QJsonObject &object)
{
    return object.value(u"events").isArray();
}

void DanceEventList::fromJson(const QJsonObject &object)
{
    events.clear();
    const QJsonArray entries = object.value(u"events").toArray();
    const qsizetype count = std::min<qsizetype>(entries.size(), mostRead);
    for (qsizetype index = 0; index < count; ++index) {
        events.append(
            std::make_shared<DanceEvent>(DanceEvent::fromJson(entries.at(index).toObject())));
    }
}

void DanceEventList::toJson(QJsonObject &object) const
{
    QJsonArray entries;
    for (const auto &event : events)
        entries.append(event->toJson());
    object.insert(u"events", entries);
}

bool operator==(const DanceEventList &a, const DanceEventList &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto &left, const auto &right) { return *left == *right; });
}
