#include "MessageBoxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QScreen>

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("MessageBoxes", text);
}

QMessageBox::StandardButton runBox(QMessageBox &box)
{
    centerOnActiveWindow(&box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

BoxRunner &boxRunner()
{
    static BoxRunner runner = runBox;
    return runner;
}

void showOk(const char *title, QMessageBox::Icon icon, const QString &text)
{
    QMessageBox box(icon, translated(title), text, QMessageBox::Ok);
    box.setTextFormat(Qt::RichText);
    boxRunner()(box);
}

} // namespace

void setBoxRunner(const BoxRunner &runner)
{
    boxRunner() = runner ? runner : runBox;
}

void showError(const QString &text)
{
    showOk(QT_TRANSLATE_NOOP("MessageBoxes", "Fehler ..."), QMessageBox::Critical, text);
}

void showInfo(const QString &text)
{
    showOk(QT_TRANSLATE_NOOP("MessageBoxes", "Information ..."), QMessageBox::Information, text);
}

QMessageBox::StandardButton askYesNoCancel(const QString &text)
{
    QMessageBox box(QMessageBox::Question,
                    translated(QT_TRANSLATE_NOOP("MessageBoxes", "Frage ...")), text);
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Yes);
    box.button(QMessageBox::Yes)->setText(translated(QT_TRANSLATE_NOOP("MessageBoxes", "Ja")));
    box.button(QMessageBox::No)->setText(translated(QT_TRANSLATE_NOOP("MessageBoxes", "Nein")));
    box.button(QMessageBox::Cancel)
        ->setText(translated(QT_TRANSLATE_NOOP("MessageBoxes", "Abbruch")));
    return boxRunner()(box);
}

void centerOnActiveWindow(QWidget *box)
{
    QCoreApplication::processEvents();
    const QWidget *active = QApplication::activeWindow();
    box->show();
    if (!active || active == box)
        return;
    const QRect frame = active->frameGeometry();
    QPoint corner = frame.center() - box->rect().center();
    if (corner.y() < 0)
        corner.setY(20);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    if (corner.x() + box->width() > screen.width() || corner.y() + box->height() > screen.height())
        corner = QPoint(screen.width() - box->width(), screen.height() - box->height());
    box->move(corner);
}
