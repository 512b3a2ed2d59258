#pragma once

#include <QMessageBox>
#include <QString>

#include <functional>

// The program's message boxes: modal, blocking, in the middle of the active window, with a picture
// of the theme on show. Their texts are rich text: what comes from outside, such as the name of a
// file, goes in through fileNameAsHtml() or QString::toHtmlEscaped().

void showError(const QString &text);
// minWidth: least width of the text in pixels; 0 leaves it to the text.
void showInfo(const QString &text, int minWidth = 0);
// The answer is Yes, No or Cancel; closing the box is Cancel.
QMessageBox::StandardButton askYesNoCancel(const QString &text);
// True for yes. Return and closing the box mean no.
bool askYesNo(const QString &text);
// A change was asked for in a write-protected file.
void showWriteProtected();
// Stands for a function that is still to come.
void showNotImplemented();

// Shows a box over the middle of the active window. One that would leave the primary screen at
// its right or lower edge goes to its lower right corner. Without an active window the box stays
// where Qt put it.
void centerOnActiveWindow(QWidget *box);

// Everything that blocks until the user answers goes through here. A test puts in a function of
// its own; it gets the finished box and tells which button was pressed. An empty function brings
// the real box back.
using BoxRunner = std::function<QMessageBox::StandardButton(QMessageBox &)>;
void setBoxRunner(const BoxRunner &runner);
