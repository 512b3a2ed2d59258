#include "TempoBands.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

// Borders that cross make a band that holds nothing.
template <int number> bool isBetween(int bpm, const TempoBorders &borders)
{
    return bpm > borders[number - 1] && bpm <= borders[number];
}

bool isVerySlow(int bpm, const TempoBorders &borders)
{
    return bpm >= 1 && bpm <= borders[0];
}

bool isVeryFast(int bpm, const TempoBorders &borders)
{
    return bpm > borders[3];
}

constexpr TempoBand rows[] = {
    {QT_TRANSLATE_NOOP("FilterTexts", "Sehr langsam"), isVerySlow},
    {QT_TRANSLATE_NOOP("FilterTexts", "Langsam"), isBetween<1>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Normal"), isBetween<2>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Schnell"), isBetween<3>},
    {QT_TRANSLATE_NOOP("FilterTexts", "Sehr schnell"), isVeryFast},
};

} // namespace

QString TempoBand::text() const
{
    return QCoreApplication::translate("FilterTexts", source);
}

std::span<const TempoBand> tempoBands()
{
    return rows;
}

const TempoBand *tempoBand(const QString &text)
{
    const auto found = std::find_if(std::begin(rows), std::end(rows),
                                    [&text](const TempoBand &row) { return row.text() == text; });
    return found == std::end(rows) ? nullptr : found;
}
