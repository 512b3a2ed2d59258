#include "MessageBoxes.h"

#include "ThemeContext.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCoreApplication>
#include <QScreen>
#include <QTextDocumentFragment>

namespace {

struct BoxKind
{
    const char *title;
    const char *picture;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton;
};

constexpr BoxKind errorBox{QT_TRANSLATE_NOOP("MessageBoxes", "Fehler ..."), "Error",
                           QMessageBox::Ok, QMessageBox::Ok};
constexpr BoxKind infoBox{QT_TRANSLATE_NOOP("MessageBoxes", "Information ..."), "Info",
                          QMessageBox::Ok, QMessageBox::Ok};
constexpr BoxKind problemBox{QT_TRANSLATE_NOOP("MessageBoxes", "Problem ..."), "Error",
                             QMessageBox::Ok, QMessageBox::Ok};
constexpr BoxKind sorryBox{QT_TRANSLATE_NOOP("MessageBoxes", "Sorry ..."), "Frownie",
                           QMessageBox::Ok, QMessageBox::Ok};
constexpr const char *questionTitle = QT_TRANSLATE_NOOP("MessageBoxes", "Frage ...");
constexpr BoxKind yesNoBox{questionTitle, "Help", QMessageBox::Yes | QMessageBox::No,
                           QMessageBox::No};
constexpr BoxKind yesNoCancelBox{questionTitle, "Help",
                                 QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                                 QMessageBox::Yes};

struct ButtonText
{
    QMessageBox::StandardButton button;
    const char *text;
};

constexpr ButtonText buttonTexts[] = {
    {QMessageBox::Yes, QT_TRANSLATE_NOOP("MessageBoxes", "Ja")},
    {QMessageBox::No, QT_TRANSLATE_NOOP("MessageBoxes", "Nein")},
    {QMessageBox::Cancel, QT_TRANSLATE_NOOP("MessageBoxes", "Abbruch")},
};

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

void nameButtons(QMessageBox &box)
{
    for (const ButtonText &row : buttonTexts) {
        if (QAbstractButton *button = box.button(row.button))
            button->setText(translated(row.text));
    }
}

void setPicture(QMessageBox &box, const QString &name)
{
    const QPixmap picture = themePicture(name);
    if (picture.isNull())
        return;
    box.setWindowIcon(picture);
    const qreal ratio = box.devicePixelRatio();
    QPixmap scaled
        = picture.scaled(themeIconSize() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    scaled.setDevicePixelRatio(ratio);
    box.setIconPixmap(scaled);
}

// A screen reader tells the title and the text as soon as the box comes up.
void describe(QMessageBox &box)
{
    box.setAccessibleName(box.windowTitle());
    box.setAccessibleDescription(QTextDocumentFragment::fromHtml(box.text()).toPlainText());
}

QMessageBox::StandardButton show(const BoxKind &kind, const QString &text, int minWidth = 0)
{
    QMessageBox box(QMessageBox::NoIcon, translated(kind.title), text, kind.buttons);
    box.setTextFormat(Qt::RichText);
    box.setDefaultButton(kind.defaultButton);
    nameButtons(box);
    setPicture(box, QLatin1String(kind.picture));
    describe(box);
    if (minWidth != 0)
        box.setStyleSheet(
            QStringLiteral("QLabel#qt_msgbox_label{min-width: %1px; text-align: left;}")
                .arg(minWidth));
    return boxRunner()(box);
}

} // namespace

void setBoxRunner(const BoxRunner &runner)
{
    boxRunner() = runner ? runner : runBox;
}

void showError(const QString &text)
{
    show(errorBox, text);
}

void showInfo(const QString &text, int minWidth)
{
    show(infoBox, text, minWidth);
}

QMessageBox::StandardButton askYesNoCancel(const QString &text)
{
    return show(yesNoCancelBox, text);
}

bool askYesNo(const QString &text)
{
    return show(yesNoBox, text) == QMessageBox::Yes;
}

void showWriteProtected()
{
    show(problemBox, translated(QT_TRANSLATE_NOOP(
                         "MessageBoxes", "Diese Datei ist schreibgeschützt, daher können keine "
                                         "Änderungen vorgenommen werden.")));
}

void showNotImplemented()
{
    show(sorryBox, translated(QT_TRANSLATE_NOOP(
                       "MessageBoxes", "Diese Funktion steht leider noch nicht zur Verfügung.")));
}

void centerOnActiveWindow(QWidget *box)
{
    QCoreApplication::processEvents();
    const QWidget *active = QApplication::activeWindow();
    box->show();
    if (!active || active == box)
        return;
    QPoint corner(active->x() + active->width() / 2 - box->width() / 2,
                  active->y() + active->height() / 2 - box->height() / 2);
    if (corner.y() < 0)
        corner.setY(20);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    if (corner.x() + box->width() > screen.width() || corner.y() + box->height() > screen.height())
        corner = QPoint(screen.width() - box->width(), screen.height() - box->height());
    box->move(corner);
}
