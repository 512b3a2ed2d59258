#include "LevelKey.h"

namespace {

struct LevelRow
{
    const char *prefix;
    const char *level;
};

constexpr LevelRow levels[] = {
    {" 1", "Warmup"},
    {" 2", "Intro"},
    {" 3", "Beginner"},
    {" 4", "Basic"},
    {" 5", "Easy"},
    {" 6", "Easy-Intermediate"},
    {" 7", "Intermediate"},
    {" 8", "High Intermediate"},
    {" 8", "Intermediate-Advanced"},
    {" 8", "Intermediate+"},
    {" 9", "Advanced"},
};

} // namespace

QString levelKey(const QString &level)
{
    for (const LevelRow &row : levels) {
        if (level.compare(QLatin1String(row.level), Qt::CaseInsensitive) == 0)
            return QLatin1String(row.prefix) + level;
    }
    return level;
}
