#pragma once

#include <QByteArray>

// The screen, as somebody in front of it sees it: asked of the X server, not of a program.
namespace Desktop {

// True when the process has a window with this title on the screen, and something is painted in it.
bool shows(qint64 pid, const QByteArray &title);

} // namespace Desktop
