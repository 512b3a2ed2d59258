#pragma once

#include <QString>
#include <QStringList>

// The keyboard of the virtual screen: the keys arrive as those of a user do, by way of the
// window that is active.
namespace Keyboard {

// Key names as xdotool knows them, such as "Return", "plus" or "ctrl+x". Waits until they are
// typed, with the event loop running. False when they could not be typed.
bool press(const QStringList &keys);

// Gives the screen a German keyboard.
bool useGermanLayout();

// Types a key while the right Alt key is held, which is AltGr on a German keyboard.
bool pressWithAltGr(const QString &key);

// How many windows the program has on the screen; its box without a title counts.
int programWindows();

// The titles of the windows on the screen.
QStringList windowTitles();

// Waits until a window whose title begins so is on the screen.
bool waitForWindow(const QString &titleStart, int timeoutMs = 15000);

} // namespace Keyboard
