#include "ProgressDisplay.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QFrame>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int smallestWidth = 320;
constexpr int largestWidth = 330;
constexpr int logoSide = 256;

int heightOf(const QFrame *frame, int width)
{
    const QLayout *layout = frame->layout();
    return layout->hasHeightForWidth() ? layout->totalHeightForWidth(width)
                                       : layout->totalSizeHint().height();
}

} // namespace

ProgressDisplay::ProgressDisplay(QWidget *parent, int maximum, bool showHeader, bool showCancel)
    : QDialog(parent, Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint)
{
    setObjectName(QStringLiteral("ProgressDisplay"));
    setWindowTitle(QStringLiteral(" "));
    setAccessibleName(tr("Fortschritt"));
    setModal(true);
    setMinimumWidth(smallestWidth);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    addHeader(showHeader);
    addProgress(maximum);
    addCancel(showCancel);
    adaptSize();
}

QFrame *ProgressDisplay::addFrame(const char *name, bool shown)
{
    auto *frame = new QFrame(this);
    frame->setObjectName(QLatin1String(name));
    frame->setVisible(shown);
    new QVBoxLayout(frame);
    layout()->addWidget(frame);
    if (shown)
        shownFrames.append(frame);
    return frame;
}

void ProgressDisplay::addHeader(bool shown)
{
    QFrame *frame = addFrame("frameHeader", shown);
    auto *logo = new QLabel(frame);
    logo->setObjectName(QStringLiteral("labelLogo"));
    logo->setAccessibleName(QStringLiteral("Tarvelo"));
    logo->setPixmap(QIcon(QStringLiteral(":/Tarvelo.png")).pixmap(logoSide));
    logo->setAlignment(Qt::AlignCenter);
    frame->layout()->addWidget(logo);
}

void ProgressDisplay::addProgress(int maximum)
{
    QFrame *frame = addFrame("frameProgress", true);
    labelDisplayText = new QLabel(frame);
    labelDisplayText->setObjectName(QStringLiteral("labelDisplayText"));
    labelDisplayText->setTextFormat(Qt::PlainText);
    labelDisplayText->setWordWrap(true);
    frame->layout()->addWidget(labelDisplayText);
    progressBar = new QProgressBar(frame);
    progressBar->setObjectName(QStringLiteral("progressBar"));
    progressBar->setAccessibleName(tr("Fortschritt"));
    progressBar->setRange(0, maximum);
    progressBar->setValue(0);
    frame->layout()->addWidget(progressBar);
}

void ProgressDisplay::addCancel(bool shown)
{
    QFrame *frame = addFrame("frameCancel", shown);
    buttonCancel = new QPushButton(tr("Abbruch"), frame);
    buttonCancel->setObjectName(QStringLiteral("buttonCancel"));
    // Return alone must not end a long work.
    buttonCancel->setAutoDefault(false);
    connect(buttonCancel, &QPushButton::clicked, this, &ProgressDisplay::reject);
    frame->layout()->addWidget(buttonCancel);
}

// Escape and the desktop's own ways to close a window mean what the cancel button means.
void ProgressDisplay::reject()
{
    if (buttonCancel->parentWidget()->isHidden())
        return;
    canceled = true;
    buttonCancel->setEnabled(false);
}

void ProgressDisplay::closeEvent(QCloseEvent *event)
{
    event->ignore();
    reject();
}

void ProgressDisplay::updateProgress()
{
    progressBar->setValue(progressBar->value() + 1);
    QCoreApplication::processEvents();
}

void ProgressDisplay::setText(const QString &text)
{
    labelDisplayText->setText(text);
    progressBar->setAccessibleName(text);
    adaptSize();
    QCoreApplication::processEvents();
}

void ProgressDisplay::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        adaptSize();
}

void ProgressDisplay::showEvent(QShowEvent *event)
{
    adaptSize();
    QDialog::showEvent(event);
}

// A word of a very large font may need more than the usual width.
void ProgressDisplay::adaptSize()
{
    int broad = largestWidth;
    for (const QFrame *frame : std::as_const(shownFrames))
        broad = qMax(broad, frame->layout()->totalMinimumSize().width());
    int sum = 0;
    for (const QFrame *frame : std::as_const(shownFrames))
        sum += heightOf(frame, broad);
    setMaximumSize(broad, sum);
    resize(broad, sum);
}
