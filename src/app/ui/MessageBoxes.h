#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

// The program's message boxes: modal, blocking, in the middle of the active window.

void showError(const QString &text);
// Rich text.
void showInfo(const QString &text);
// The answer is Yes, No or Cancel; closing the box is Cancel.
QMessageBox::StandardButton askYesNoCancel(const QString &text);

// Puts a box over the middle of the active window, and never off the primary screen. Shows it.
void centerOnActiveWindow(QWidget *box);

// Everything that blocks until the user answers goes through here. A test puts in a function of
// its own; it gets the finished box and tells which button was pressed.
using BoxRunner = std::function<QMessageBox::StandardButton(QMessageBox &)>;
void setBoxRunner(const BoxRunner &runner);
