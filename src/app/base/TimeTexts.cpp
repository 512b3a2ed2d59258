#include "TimeTexts.h"

namespace {

QString twoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace

QString durationText(int seconds)
{
    if (seconds == 0)
        return {};
    const int minutes = seconds / 60 % 60;
    const QString tail = QLatin1Char(':') + twoDigits(seconds % 60);
    if (seconds < 3600)
        return QString::number(minutes) + tail;
    return QString::number(seconds / 3600) + QLatin1Char(':') + twoDigits(minutes) + tail;
}

QString positionTimeText(int ms)
{
    const qint64 span = qAbs<qint64>(ms);
    return QStringLiteral("%1%2:%3:%4")
        .arg(ms < 0 ? QStringLiteral("-") : QString(), twoDigits(span / 60000 % 60),
             twoDigits(span / 1000 % 60))
        .arg(span % 1000, 3, 10, QLatin1Char('0'));
}

QString runTimeText(int ms)
{
    const qint64 span = ms < 0 ? 1000 - qint64(ms) : ms;
    return QStringLiteral("%1%2:%3").arg(ms < 0 ? QStringLiteral("-") : QString(),
                                         twoDigits(span / 60000 % 60), twoDigits(span / 1000 % 60));
}
