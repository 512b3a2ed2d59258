#include "Version.h"

namespace Version {

QVersionNumber number()
{
    return QVersionNumber(8, 0, 0);
}

QDate date()
{
    return QDate(2024, 12, 6);
}

QString shortText()
{
    return number().normalized().toString();
}

QString logText()
{
    const QDate day = date();
    return QStringLiteral("%1 %2-%3-%4")
        .arg(number().toString())
        .arg(day.year())
        .arg(day.month())
        .arg(day.day());
}

} // namespace Version
