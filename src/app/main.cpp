#include "InstanceGuard.h"
#include "MainWindow.h"
#include "Platform.h"
#include "Tarvelo.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <QProcess>

namespace {

int refuseSecondInstance()
{
    QMessageBox box(QMessageBox::Warning, QString(),
                    QStringLiteral("The application is already running.\n"
                                   "Allowed to run only one instance of the application."));
    box.exec();
    return 1;
}

int runWindow()
{
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/Tarvelo.png")));
    Tarvelo tarvelo;
    MainWindow window(&tarvelo);
    window.decoupledStartActions();
    return window.isQuitRequested() ? 0 : QApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    Platform::detachConsole();
    Platform::prepareDesktop();
    const QApplication application(argc, argv);
    int result = 0;
    {
        InstanceGuard guard;
        if (!guard.acquire())
            return refuseSecondInstance();
        result = runWindow();
    }
    // Only now is the guard free for the next instance.
    if (MainWindow::isRestartRequested())
        QProcess::startDetached(QApplication::arguments().constFirst(), QApplication::arguments());
    return result;
}
