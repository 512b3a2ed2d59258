#include "SongFilterRules.h"

#include "FilterTexts.h"
#include "SearchText.h"

#include <QStringList>
#include <QStringTokenizer>

#include <algorithm>

namespace {

constexpr int lengthOfYearRange = 9;

std::pair<int, int> yearsOf(const QString &text)
{
    if (text.size() != lengthOfYearRange)
        return {text.toInt(), text.toInt()};
    const QStringList ends = text.split(u'-');
    return {ends.value(0).toInt(), ends.value(1).toInt()};
}

bool hasChoices(SongColumn column)
{
    return songColumn(column)->combo && column != FileDateColumn && column != DirectoryColumn;
}

bool isRange(const DatePreset *preset)
{
    return preset == &datePresets().front();
}

} // namespace

ColumnFilter::ColumnFilter(SongColumn filteredColumn, const QString &filterText)
    : filtered(filteredColumn)
    , folded(caseFolded(filterText))
    , choice(choiceOf(filteredColumn, filterText))
    , rule(ruleOf(filteredColumn))
    , band(tempoBand(filterText))
    , preset(datePreset(filterText))
    , years(yearsOf(filterText))
{ }

ColumnFilter::Choice ColumnFilter::choiceOf(SongColumn column, const QString &text)
{
    if (!hasChoices(column))
        return Choice::None;
    if (text == FilterTexts::noEntry())
        return Choice::NoEntry;
    return text == FilterTexts::anyEntry() ? Choice::AnyEntry : Choice::None;
}

ColumnFilter::Rule ColumnFilter::ruleOf(SongColumn column)
{
    struct Row
    {
        SongColumn column;
        Rule rule;
    };
    constexpr Row rows[] = {
        {SelectedColumn, &ColumnFilter::passesAlways},
        {BpmColumn, &ColumnFilter::isInBand},
        {YearColumn, &ColumnFilter::isInYears},
        {HasPositionsColumn, &ColumnFilter::equals},
        {HasChoreographyColumn, &ColumnFilter::equals},
        {ChoreographerColumn, &ColumnFilter::contains},
        {FileDateColumn, &ColumnFilter::hasFileDate},
        {RatingColumn, &ColumnFilter::hasStars},
        {EventDateColumn, &ColumnFilter::hasEventDate},
        {EventCategoryColumn, &ColumnFilter::hasCategory},
        {WritableColumn, &ColumnFilter::equals},
    };
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [column](const Row &row) { return row.column == column; });
    if (found != std::end(rows))
        return found->rule;
    return songColumn(column)->combo ? &ColumnFilter::equals : &ColumnFilter::contains;
}

bool ColumnFilter::passes(const FilterValue &value, const FilterTerms &terms) const
{
    if (choice != Choice::None)
        return value.text.isEmpty() == (choice == Choice::NoEntry);
    return (this->*rule)(value, terms);
}

bool ColumnFilter::passesAlways(const FilterValue &, const FilterTerms &) const
{
    return true;
}

bool ColumnFilter::contains(const FilterValue &value, const FilterTerms &) const
{
    return value.text.contains(folded);
}

bool ColumnFilter::equals(const FilterValue &value, const FilterTerms &) const
{
    return value.text == folded;
}

// Whatever is no band lets all songs through.
bool ColumnFilter::isInBand(const FilterValue &value, const FilterTerms &terms) const
{
    return !band || band->contains(value.text.toInt(), terms.tempoBorders);
}

bool ColumnFilter::isInYears(const FilterValue &value, const FilterTerms &) const
{
    const int year = value.text.toInt();
    return !value.text.isEmpty() && year >= years.first && year <= years.second;
}

// Whatever is no preset lets all files with a date through, and so does a span without an end.
bool ColumnFilter::hasFileDate(const FilterValue &value, const FilterTerms &terms) const
{
    if (value.dates.empty())
        return false;
    if (!preset || (isRange(preset) && !terms.fileDates.isValid()))
        return true;
    return preset->matches(value.dates.front(), {terms.today, terms.fileDates});
}

// Here an unknown preset, or a span without an end, lets nothing through.
bool ColumnFilter::hasEventDate(const FilterValue &value, const FilterTerms &terms) const
{
    return preset && std::any_of(value.dates.begin(), value.dates.end(), [&](QDate date) {
               return preset->matches(date, {terms.today, terms.eventDates});
           });
}

bool ColumnFilter::hasCategory(const FilterValue &value, const FilterTerms &) const
{
    for (const QStringView category : value.text.tokenize(QStringView(u", ")))
        if (category == folded)
            return true;
    return false;
}

// "★★+" is at least two stars. "-★★" is at most two: the sign counts as a place.
bool ColumnFilter::hasStars(const FilterValue &value, const FilterTerms &) const
{
    const auto plus = folded.indexOf(u'+');
    if (plus >= 0)
        return plus <= value.text.size();
    if (folded.startsWith(u'-'))
        return value.text.size() < folded.size();
    return value.text == folded;
}
