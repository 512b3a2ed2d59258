#include "CountDownDisplayDialog.h"

#include "Compositing.h"
#include "PixelFont.h"
#include "Settings.h"

#include <QBitmap>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>

namespace {

constexpr QSize firstSize(400, 300);  // pixels, until the user has chosen another one
constexpr int margin = 10;            // pixels around the digits
constexpr double contourShare = 0.05; // of the digits' height

// The outlines of what a label shows, where it shows them.
QPainterPath digitsOf(const QLabel &label)
{
    QPainterPath digits;
    digits.addText(0, 0, label.font(), label.text());
    return digits.translated(QRectF(label.rect()).center() - digits.boundingRect().center());
}

QPen contour(const QLabel &label, const QBrush &brush, double strength)
{
    return QPen(brush, label.font().pixelSize() * contourShare * strength, Qt::SolidLine,
                Qt::RoundCap, Qt::RoundJoin);
}

// Digits with a contour in the colour of the ground: they lie over rows of every colour.
class DigitsLabel : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent *) override
    {
        const QPainterPath digits = digitsOf(*this);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.strokePath(digits, contour(*this, palette().window(), 1.0));
        painter.fillPath(digits, palette().windowText());
    }
};

} // namespace

CountDownDisplayDialog::CountDownDisplayDialog(QWidget *theMainWindow, bool isOverlay,
                                               CountDownFade *sharedFade)
    : mainWindow(theMainWindow)
    , overlay(isOverlay)
    , shaped(isOverlay && !Compositing::isOn())
    , fade(sharedFade)
    , labelCounter(new DigitsLabel(this))
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    // The program neither ends with this window nor goes on for its sake.
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(tr("Countdown"));
    labelCounter->setObjectName(QStringLiteral("labelCounter"));
    // A longer number must not make the window grow.
    labelCounter->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    labelCounter->setMinimumSize(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(labelCounter);
    if (overlay)
        makeOverlay();
    else
        makeWindow();
}

void CountDownDisplayDialog::makeOverlay()
{
    setAttribute(Qt::WA_TranslucentBackground);
    // The rows under it can be clicked while it counts.
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint | Qt::WindowTransparentForInput
                   | Qt::WindowDoesNotAcceptFocus);
    updateGeometryAndFont();
    // Nothing of it is seen before its first number.
    if (shaped)
        setMask(outline(0.0));
    // The main window stays under it, also when it is clicked.
    winId();
    windowHandle()->setTransientParent(mainWindow ? mainWindow->windowHandle() : nullptr);
}

void CountDownDisplayDialog::makeWindow()
{
    // Also where the user has clicked it to move it, the keys stay with the main window.
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    resize(firstSize);
    const auto key = Settings::Key::CountDownDisplayWindowGeometry;
    if (Settings::contains(key))
        restoreGeometry(Settings::value(key).toByteArray());
    else
        updateGeometryAndFont();
}

void CountDownDisplayDialog::updateGeometryAndFont()
{
    if (!overlay || !mainWindow)
        return;
    const int width = mainWindow->width();
    setGeometry(mainWindow->x() + width / 2 - width / 4, mainWindow->y(), width / 2,
                mainWindow->height());
    labelCounter->setFont(mainWindow->font());
    setDigitHeight(mainWindow->height() * 2 / 3);
}

void CountDownDisplayDialog::setDigitHeight(int pixels)
{
    digitHeight = pixels;
    fitDigits();
}

// Digits that are too wide for the window get smaller rather than cut.
void CountDownDisplayDialog::fitDigits()
{
    const int room = std::max(width() - 2 * margin, 1);
    const int needed = widthAt(labelCounter, digitHeight, labelCounter->text());
    const int fitting = needed > room ? digitHeight * room / needed : digitHeight;
    QFont font = labelCounter->font();
    font.setPixelSize(std::max(fitting, 1));
    labelCounter->setFont(font);
    setPixelSize(labelCounter, font.pixelSize());
}

void CountDownDisplayDialog::setCount(int count)
{
    labelCounter->setText(QString::number(count));
    fitDigits();
    if (!overlay)
        return;
    if (fade->step == 0)
        setStrength(fadeOpacity.front());
    delete fade->timer;
    fade->timer = new QTimer(this);
    fade->timer->setTimerType(Qt::PreciseTimer);
    connect(fade->timer, &QTimer::timeout, this, &CountDownDisplayDialog::counterFadeOut);
    fade->timer->start(fadeIntervalMs);
}

void CountDownDisplayDialog::counterFadeOut()
{
    setStrength(fadeOpacity[static_cast<std::size_t>(fade->step)]);
    fade->step += 1;
    if (fade->step < static_cast<int>(fadeOpacity.size()))
        return;
    fade->step = 0;
    fade->timer->stop();
}

void CountDownDisplayDialog::setStrength(double strength)
{
    setWindowOpacity(strength);
    if (shaped)
        setMask(outline(strength));
}

// The digits' contour, thinner where they are weaker, and a place outside of the window where
// they have faded: an empty region would show the window whole.
QRegion CountDownDisplayDialog::outline(double strength) const
{
    if (strength <= 0.0)
        return QRegion(-1, -1, 1, 1);
    QBitmap shape(size());
    shape.clear();
    QPainter painter(&shape);
    painter.strokePath(digitsOf(*labelCounter), contour(*labelCounter, Qt::color1, strength));
    painter.end();
    return QRegion(shape);
}

// Within the shape lies the colour of the digits, around it that of their ground.
void CountDownDisplayDialog::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    if (shaped)
        QPainter(this).fillRect(rect(), palette().window());
}

void CountDownDisplayDialog::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    setDigitHeight(height() / 2);
}

void CountDownDisplayDialog::closeEvent(QCloseEvent *event)
{
    if (!overlay)
        Settings::setValue(Settings::Key::CountDownDisplayWindowGeometry, saveGeometry());
    QWidget::closeEvent(event);
}
