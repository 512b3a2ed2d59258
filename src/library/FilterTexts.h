#pragma once

#include <QStringList>

// The texts that the filter row offers and the filter rules know again, each in the language of
// now: a filter that was chosen in another language is an unknown one.
namespace FilterTexts {

// Of combo columns: songs without an entry there, and songs with one.
QString noEntry();
QString anyEntry();
// Both, in this order.
QStringList choices();

// Asks for a span of dates.
QString dateRange();
// dateRange() first, then every other date preset in the order of the table of presets.
QStringList datePresets();
// From very slow to very fast.
QStringList tempoBands();
// One to five stars; at least one to four; at most one to four.
QStringList ratings();
// "1960-1969": years of four digits each, which makes it 9 characters.
QString yearRange(int first, int last);

} // namespace FilterTexts
