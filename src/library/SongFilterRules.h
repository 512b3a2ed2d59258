#pragma once

#include "DatePresets.h"
#include "SongColumns.h"
#include "TempoBands.h"

#include <QStringView>

#include <utility>

// What filters are measured against.
struct FilterTerms
{
    TempoBorders tempoBorders{};
    QDate today;
    DateSpan fileDates;  // for the date of the file
    DateSpan eventDates; // for the dates of the events

    friend bool operator==(const FilterTerms &, const FilterTerms &) = default;
};

// What a column holds of one song.
struct FilterValue
{
    QStringView text;             // what it shows, case folded
    std::span<const QDate> dates; // of a date column, in local time; events have several
};

// The filter of one column: its text taken apart for the rule of the column.
class ColumnFilter
{
public:
    // The text is not empty. Texts of FilterTexts are known in the language of now.
    ColumnFilter(SongColumn filteredColumn, const QString &filterText);

    SongColumn column() const { return filtered; }
    bool usesDates() const { return filtered == FileDateColumn || filtered == EventDateColumn; }
    bool passes(const FilterValue &value, const FilterTerms &terms) const;

private:
    enum class Choice { None, NoEntry, AnyEntry };
    using Rule = bool (ColumnFilter::*)(const FilterValue &, const FilterTerms &) const;

    static Choice choiceOf(SongColumn column, const QString &text);
    static Rule ruleOf(SongColumn column);

    bool passesAlways(const FilterValue &value, const FilterTerms &terms) const;
    bool contains(const FilterValue &value, const FilterTerms &terms) const;
    bool equals(const FilterValue &value, const FilterTerms &terms) const;
    bool isInBand(const FilterValue &value, const FilterTerms &terms) const;
    bool isInYears(const FilterValue &value, const FilterTerms &terms) const;
    bool hasFileDate(const FilterValue &value, const FilterTerms &terms) const;
    bool hasEventDate(const FilterValue &value, const FilterTerms &terms) const;
    bool hasCategory(const FilterValue &value, const FilterTerms &terms) const;
    bool hasStars(const FilterValue &value, const FilterTerms &terms) const;

    SongColumn filtered;
    QString folded;
    Choice choice;
    Rule rule;
    const TempoBand *band;
    const DatePreset *preset;
    std::pair<int, int> years;
};
