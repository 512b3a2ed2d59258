#include "DialogRunner.h"

#include <QDialog>

namespace {

int run(QDialog &dialog)
{
    return dialog.exec();
}

DialogRunner &dialogRunner()
{
    static DialogRunner runner = run;
    return runner;
}

} // namespace

int runDialog(QDialog &dialog)
{
    return dialogRunner()(dialog);
}

void setDialogRunner(const DialogRunner &runner)
{
    dialogRunner() = runner ? runner : run;
}
