#include "TempoTexts.h"

QString tempoText(int percent)
{
    const bool oneDigit = percent >= -9 && percent <= 9;
    return (oneDigit ? QStringLiteral(" ") : QString())
           + (percent > 0 ? QStringLiteral("+") : QString()) + QString::number(percent)
           + QLatin1Char('%');
}

QString tempoBpmText(int percent, int bpm)
{
    if (bpm == 0)
        return {};
    return QString::number((percent + 100) * qint64{bpm} / 100) + QLatin1Char('b');
}

QString tempoPresetText(int percent)
{
    return QStringLiteral("%1%2%").arg(percent >= 1 ? QStringLiteral("+") : QString()).arg(percent);
}
