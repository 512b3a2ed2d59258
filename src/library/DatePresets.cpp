#include "DatePresets.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int daysOfMonth = 30; // of any month: "since last month" may begin on its second day

int daysAgo(QDate date, const DateTerms &terms)
{
    return static_cast<int>(date.daysTo(terms.today));
}

QDate monday(const DateTerms &terms)
{
    return terms.today.addDays(1 - terms.today.dayOfWeek());
}

QDate firstOfMonth(const DateTerms &terms)
{
    return {terms.today.year(), terms.today.month(), 1};
}

// Days to come match as well: they are less than no days ago.
template <int days> bool isWithin(QDate date, const DateTerms &terms)
{
    return daysAgo(date, terms) < days;
}

template <int weeks> bool isSinceWeeks(QDate date, const DateTerms &terms)
{
    return date >= monday(terms).addDays(-7 * weeks);
}

template <int days> bool isSinceMonth(QDate date, const DateTerms &terms)
{
    return date >= firstOfMonth(terms).addDays(-days);
}

template <int days> bool isDaysAgo(QDate date, const DateTerms &terms)
{
    return daysAgo(date, terms) == days;
}

template <int day> bool isWeekday(QDate date, const DateTerms &)
{
    return date.dayOfWeek() == day;
}

bool isInSpan(QDate date, const DateTerms &terms)
{
    return terms.span.contains(date);
}

constexpr DatePreset rows[] = {
    {QT_TRANSLATE_NOOP("FilterTexts", "Zeitspanne eingeben ..."), isInSpan},
    {QT_TRANSLATE_NOOP("FilterTexts", "Heute"), isDaysAgo<0>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit Gestern"), isWithin<2>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit Vorgestern"), isWithin<3>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Diese Woche"), isSinceWeeks<0>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit letzter Woche"), isSinceWeeks<1>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit vorletzter Woche"), isSinceWeeks<2>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit 3 Wochen"), isSinceWeeks<3>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Dieser Monat"), isSinceMonth<0>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Seit letztem Monat"), isSinceMonth<daysOfMonth>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Heute vor einer Woche"), isDaysAgo<7>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Heute vor zwei Wochen"), isDaysAgo<14>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Heute vor drei Wochen"), isDaysAgo<21>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Heute vor vier Wochen"), isDaysAgo<28>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Montags"), isWeekday<1>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Dienstags"), isWeekday<2>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Mittwochs"), isWeekday<3>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Donnerstags"), isWeekday<4>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Freitags"), isWeekday<5>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Samstags"), isWeekday<6>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Sonntags"), isWeekday<7>},
};

} // namespace

QString DatePreset::text() const
{
    return QCoreApplication::translate("FilterTexts", source);
}

std::span<const DatePreset> datePresets()
{
    return rows;
}

const DatePreset *datePreset(const QString &text)
{
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [&text](const DatePreset &row) { return row.text() == text; });
    return found == std::end(rows) ? nullptr : found;
}
