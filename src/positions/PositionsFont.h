#pragma once

#include <functional>

// The search for the largest font at which the positions fit their table. Plain rules over two
// measures of a font, so that they need no screen.

// What a font of a point size measures, in pixels.
struct FontMeasures
{
    std::function<int(int pointSize)> textWidth; // the widest row's text
    std::function<int(int pointSize)> lineHeight;
};

struct FittedFont
{
    int pointSize = 8;
    int rowHeight = 0; // pixels
};

// Size at which the widest text and padding fill availableWidth, between 8 and maxFont points.
// After 20 rounds the last size counts, also if it doesn't fit.
FittedFont fontForWidth(int availableWidth, int padding, int maxFont, const FontMeasures &measures);

// Size at which so many lines, one pixel apart, fill availableHeight; the row height is the height
// at their disposal. Call it only if the width's font is too high for them; lines is at least 1.
FittedFont fontForHeight(int availableHeight, int lines, int maxFont, const FontMeasures &measures);

// Both searches in their order: the width's font, or the height's where the whole text has to be
// seen and the width's is too high for it.
struct FontRoom
{
    int width = 0;    // pixels for the columns
    int height = 0;   // pixels for the rows
    int padding = 0;  // pixels between the columns
    int lines = 0;    // text lines of all rows
    int maxFont = 70; // points
    bool wholeText = false;
};
FittedFont fittedFont(const FontRoom &room, const FontMeasures &measures);
