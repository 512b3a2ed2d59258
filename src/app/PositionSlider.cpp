#include "PositionSlider.h"

#include "Tips.h"

#include <QHBoxLayout>
#include <QSlider>

namespace {

constexpr int step = 5000; // milliseconds

} // namespace

PositionSlider::PositionSlider(QWidget *parent)
    : QFrame(parent)
    , horizontalSliderPosition(new QSlider(Qt::Horizontal, this))
{
    setObjectName(QStringLiteral("frameSlider"));
    horizontalSliderPosition->setObjectName(QStringLiteral("horizontalSliderPosition"));
    horizontalSliderPosition->setFocusPolicy(Qt::NoFocus);
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 8, 2);
    row->addWidget(horizontalSliderPosition);
    connect(horizontalSliderPosition, &QSlider::sliderPressed, this, [this] { held = true; });
    connect(horizontalSliderPosition, &QSlider::sliderReleased, this, [this] {
        Q_EMIT released(horizontalSliderPosition->value());
        held = false;
    });
    connect(horizontalSliderPosition, &QSlider::actionTriggered, this,
            &PositionSlider::onHorizontalSliderPosition_actionTriggered);
    retranslate();
}

void PositionSlider::onHorizontalSliderPosition_actionTriggered(int action)
{
    const int now = horizontalSliderPosition->value();
    if (action == QAbstractSlider::SliderPageStepAdd && now + step < length())
        Q_EMIT stepped(now + step);
    if (action == QAbstractSlider::SliderPageStepSub && now >= step)
        Q_EMIT stepped(now - step);
}

void PositionSlider::setLength(int ms)
{
    horizontalSliderPosition->setMaximum(ms);
}

int PositionSlider::length() const
{
    return horizontalSliderPosition->maximum();
}

void PositionSlider::setPosition(int ms)
{
    if (!held)
        horizontalSliderPosition->setValue(ms);
}

void PositionSlider::setFrameHeight(int height)
{
    horizontalSliderPosition->setMinimumHeight(height * 3 / 5);
}

void PositionSlider::retranslate()
{
    describe(horizontalSliderPosition, tr("Abspielfortschritt       Strg+O"));
}
