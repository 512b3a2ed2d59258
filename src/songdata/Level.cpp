#include "Level.h"

QString displayedLevel(const QString &level, const QString &highIntermediate)
{
    const bool high
        = level.compare(QLatin1String("Intermediate-Advanced"), Qt::CaseInsensitive) == 0;
    return high && !highIntermediate.isEmpty() ? highIntermediate : level;
}
