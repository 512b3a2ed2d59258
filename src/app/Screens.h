#pragma once

#include <QString>

// The five screens, in the order of their pages.
enum Screen { LibraryScreen, PositionsScreen, ChoreographyScreen, SettingsScreen, HelpScreen };
constexpr int screenCount = 5;

struct ScreenRow
{
    const char *name;    // to be translated in the context "Screens"
    const char *picture; // base name of the theme's picture
    const char *key;
};

const ScreenRow &screenRow(int screen);
// The screen's title in the language in force.
QString screenName(int screen);
// Title and key, for a tool tip: "Musik       F1".
QString screenTip(int screen);
