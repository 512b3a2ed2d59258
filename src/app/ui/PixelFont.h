#pragma once

class QString;
class QWidget;

// Fonts of a height in pixels, for what follows the frames and not the font setting.

// Sets the widget's own style sheet: a widget's font gives way to the application's sheet.
void setPixelSize(QWidget *widget, int pixels);
// Width in pixels of a text in the widget's font of that height.
int widthAt(const QWidget *widget, int pixels, const QString &text);
