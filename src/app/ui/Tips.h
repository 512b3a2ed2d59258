#pragma once

class QString;
class QWidget;

// Gives a widget its tool tip, such as "Play       P", and what stands before the key in it as its
// accessible name.
void describe(QWidget *widget, const QString &tip);
