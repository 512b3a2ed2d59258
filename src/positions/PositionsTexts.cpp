#include "PositionsTexts.h"

#include "TimeTexts.h"

namespace {

QString withBlank(const QString &text)
{
    return text + QLatin1Char(' ');
}

QString beatsText(const SongPositions &positions, int row, int bpm, int durationMs)
{
    if (bpm == 0)
        return {};
    const bool last = row == positions.count() - 1;
    const qint64 end = last ? durationMs : positions.at(row + 1).getTime();
    return withBlank(QString::number(beatCount(end - positions.at(row).getTime(), bpm)));
}

} // namespace

PositionsRow positionsRow(const SongPositions &positions, int row, int bpm, int durationMs)
{
    const Position &position = positions.at(row);
    return {withBlank(QString::number(row + 1)), position.getPart(),
            withBlank(positionTimeText(position.getTime())),
            beatsText(positions, row, bpm, durationMs), position.getSteps()};
}

QString widestLine(const QString &text, const TextWidth &width)
{
    QString widest;
    int most = -1;
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const int lineWidth = width(line);
        if (lineWidth > most) {
            most = lineWidth;
            widest = line;
        }
    }
    return widest;
}

PositionsExtent positionsExtent(const SongPositions &positions, int bpm, int durationMs,
                                const ShownColumns &shown, const TextWidth &width)
{
    PositionsExtent extent;
    extent.lines = positions.count();
    std::array<int, PositionsColumnCount> widths{};
    for (int row = 0; row < positions.count(); ++row) {
        const PositionsRow texts = positionsRow(positions, row, bpm, durationMs);
        for (std::size_t column = 0; column < texts.size(); ++column) {
            const QString line = shown[column] ? widestLine(texts[column], width) : QString();
            const int lineWidth = width(line);
            if (lineWidth > widths[column]) {
                widths[column] = lineWidth;
                extent.widest[column] = line;
            }
        }
        extent.lines += static_cast<int>(texts[StepsColumn].count(QLatin1Char('\n')));
    }
    return extent;
}
