#pragma once

#include <QPalette>
#include <QString>

// One of the program's looks: its colours and its resource directory.
struct Theme
{
    QString displayName; // such as "Dark Night"
    QString directory;   // resource directory, such as "Dark_Night"
    QPalette palette;
};

// "Bright Morning", whatever its case, gives the bright theme, any other name the dark one.
const Theme &themeNamed(const QString &displayName);

// What a theme's style sheet is filled with.
struct StyleSheetMeasures
{
    double screenDpi = 96.0;
    int scrollBarWidth = 20;     // pixels
    int fontSize = 12;           // points
    int screenButtonHeight = 40; // pixels
    int topFrameHeight = 50;     // pixels
};

// Replaces the placeholders %1 to %9 of a style sheet.
QString filledStyleSheet(const QString &sheet, const StyleSheetMeasures &measures);

// Text of the theme's style sheet with its placeholders; empty when the theme has none.
QString styleSheetText(const Theme &theme);

// The background colour that the application's style sheet gives to selector; the first call
// decides the selector.
QString styleSheetColor(const QString &selector);
