#pragma once

#include <QFont>

class QString;
class QWidget;

// Fonts of a height in pixels, for what follows the frames and not the font setting, and figures
// that don't dance: in a clock every digit takes the same room.

// Sets the widget's own style sheet: a widget's font gives way to the application's sheet.
void setPixelSize(QWidget *widget, int pixels);
// The same with a family whose digits are equally wide.
void setTabularPixelSize(QWidget *widget, int pixels);
// Width in pixels of a text in the widget's font of that height.
int widthAt(const QWidget *widget, int pixels, const QString &text);

// Whether all ten digits are equally wide.
bool hasTabularFigures(const QFont &font);
// The font itself where its digits are equally wide, or else the desktop's fixed-width family in
// the same size, weight and slope.
QFont withTabularFigures(const QFont &font);
