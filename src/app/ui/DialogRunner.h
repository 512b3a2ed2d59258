#pragma once

#include <functional>

class QDialog;

// Shows a modal dialog of the program and waits until the user has answered it; the result is that
// of QDialog::exec().
int runDialog(QDialog &dialog);

// Every dialog that blocks goes through runDialog(). A test puts in a function of its own; it gets
// the finished dialog, works it and tells the result. An empty function brings the real way back.
using DialogRunner = std::function<int(QDialog &)>;
void setDialogRunner(const DialogRunner &runner);
