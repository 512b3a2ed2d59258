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

WidestLine widestLine(const QString &text, const TextWidth &width)
{
    WidestLine widest;
    for (const QString &line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const int lineWidth = width(line);
        if (lineWidth > widest.width || widest.line.isEmpty())
            widest = {line, lineWidth};
    }
    return widest;
}

PositionsExtent positionsExtent(const QList<PositionsRow> &rows, const ShownColumns &shown,
                                const TextWidth &width)
{
    PositionsExtent extent;
    extent.lines = static_cast<int>(rows.size());
    std::array<int, PositionsColumnCount> widths{};
    for (const PositionsRow &texts : rows) {
        for (std::size_t column = 0; column < texts.size(); ++column) {
            if (!shown[column])
                continue;
            const WidestLine line = widestLine(texts[column], width);
            if (line.width > widths[column]) {
                widths[column] = line.width;
                extent.widest[column] = line.line;
            }
        }
        extent.lines += static_cast<int>(texts[StepsColumn].count(QLatin1Char('\n')));
    }
    return extent;
}
