#include "PositionsFont.h"

#include <cmath>

namespace {

constexpr double smallestFont = 8.0;
constexpr int rounds = 20;

// The bounds of a search by halves; they close in on whole sizes and may stop one point apart.
struct Bounds
{
    double low = smallestFont;
    double high;

    int middle() const { return static_cast<int>(std::floor((low + high) * 0.5)); }
    double width() const { return high - low; }
};

} // namespace

FittedFont fontForWidth(int availableWidth, int padding, int maxFont, const FontMeasures &measures)
{
    Bounds bounds{.high = static_cast<double>(maxFont)};
    FittedFont font;
    for (int round = 0; round < rounds; ++round) {
        font.pointSize = bounds.middle();
        font.rowHeight = measures.lineHeight(font.pointSize);
        const int width = measures.textWidth(font.pointSize) + padding;
        if (width == availableWidth || (bounds.width() < 0.1 && width <= availableWidth))
            break;
        (width < availableWidth ? bounds.low : bounds.high) = font.pointSize;
    }
    return font;
}

FittedFont fontForHeight(int availableHeight, int lines, int maxFont, const FontMeasures &measures)
{
    Bounds bounds{.high = static_cast<double>(maxFont)};
    FittedFont font;
    const double share = static_cast<double>(availableHeight) / lines;
    font.rowHeight = static_cast<int>(std::floor(share - 1.0));
    for (int round = 0; round < rounds; ++round) {
        font.pointSize = bounds.middle();
        const int height = measures.lineHeight(font.pointSize);
        if (height == font.rowHeight || (bounds.width() < 2.0 && height <= font.rowHeight))
            break;
        (font.rowHeight > height ? bounds.low : bounds.high) = font.pointSize;
    }
    return font;
}

FittedFont fittedFont(const FontRoom &room, const FontMeasures &measures)
{
    const FittedFont font = fontForWidth(room.width, room.padding, room.maxFont, measures);
    const bool tooHigh = room.height < (font.rowHeight + 1) * room.lines;
    if (room.wholeText && room.lines > 0 && tooHigh)
        return fontForHeight(room.height, room.lines, room.maxFont, measures);
    return font;
}
