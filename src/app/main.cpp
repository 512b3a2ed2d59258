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

// In all sizes that desktops ask for.
QIcon programIcon()
{
    QIcon icon(QStringLiteral(":/Tarvelo.png"));
    for (const int side : {16, 24, 32, 48, 64, 128})
        icon.addFile(QStringLiteral(":/Tarvelo_%1.png").arg(side));
    return icon;
}

int runWindow()
{
    QApplication::setWindowIcon(programIcon());
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
