#pragma once

#include <QStringList>

// The names that the position editor offers for new parts: a text with a name a line.
namespace PartPresets {

constexpr int mostEntries = 8;
constexpr int mostLetters = 7;

struct Checked
{
    QString text; // what may stay
    bool tooMany = false;
    int tooLong = 0; // entries that were cut
};

// Entries beyond the last one that is allowed go, longer ones are cut. Empty entries count.
Checked check(const QString &text);

} // namespace PartPresets
