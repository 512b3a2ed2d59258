#include "BottomFrame.h"

#include "PixelFont.h"
#include "Screens.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace {

constexpr const char *screenButtonNames[screenCount]
    = {"buttonList", "buttonPositions", "buttonPDF", "buttonSettings", "buttonHelp"};

} // namespace

BottomFrame::BottomFrame(QWidget *parent)
    : QFrame(parent)
{
    setObjectName(QStringLiteral("buttonFrame"));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(8, 2, 8, 2);
    row->setSpacing(8);
    addScreenButtons();
    row->addStretch(1);
    buttonTime = addButton("buttonTime", {});
    row->addStretch(1);
    addTransport();
    row->addStretch(1);
    buttonRunTime = addButton("buttonRunTime", QStringLiteral("00:00"));
    row->addStretch(1);
    addTempo();
    retranslate();
}

QPushButton *BottomFrame::addButton(const char *name, const QString &text)
{
    auto *button = new QPushButton(text, this);
    button->setObjectName(QLatin1String(name));
    button->setFocusPolicy(Qt::NoFocus);
    layout()->addWidget(button);
    return button;
}

void BottomFrame::addScreenButtons()
{
    for (int i = 0; i < screenCount; ++i) {
        QPushButton *button = addButton(screenButtonNames[i], screenSymbol(i));
        button->setCheckable(true);
        connect(button, &QPushButton::clicked, this, [this, i] { Q_EMIT screenRequested(i); });
        screenButtons.append(button);
    }
    squareButtons = screenButtons;
}

void BottomFrame::addTransport()
{
    buttonStop = addButton("buttonStop", QStringLiteral("⏹"));
    buttonPause = addButton("buttonPause", QStringLiteral("⏸"));
    buttonPlay = addButton("buttonPlay", QStringLiteral("⏵"));
    connect(buttonStop, &QPushButton::clicked, this, &BottomFrame::stopClicked);
    connect(buttonPause, &QPushButton::clicked, this, &BottomFrame::pauseClicked);
    connect(buttonPlay, &QPushButton::clicked, this, &BottomFrame::playClicked);
    squareButtons << buttonStop << buttonPause << buttonPlay;
}

void BottomFrame::addTempo()
{
    buttonTempoMinus = addButton("buttonTempoMinus", QStringLiteral("−"));
    buttonTempoDisplay = addButton("buttonTempoDisplay", {});
    buttonTempoDisplayBPM = addButton("buttonTempoDisplayBPM", {});
    buttonTempoPlus = addButton("buttonTempoPlus", QStringLiteral("+"));
    connect(buttonTempoMinus, &QPushButton::clicked, this, &BottomFrame::tempoMinusClicked);
    connect(buttonTempoPlus, &QPushButton::clicked, this, &BottomFrame::tempoPlusClicked);
    tempoButtons << buttonTempoMinus << buttonTempoPlus;
}

void BottomFrame::retranslate()
{
    for (int i = 0; i < screenCount; ++i)
        screenButtons.at(i)->setToolTip(screenTip(i));
    buttonTime->setToolTip(tr("Uhrzeit"));
    buttonRunTime->setToolTip(tr("Spielzeit"));
    buttonStop->setToolTip(tr("Musikwiedergabe stoppen       S"));
    buttonPause->setToolTip(tr("Musikwiedergabe pausieren       A"));
    buttonPlay->setToolTip(tr("Musikwiedergabe starten       P"));
    buttonTempoMinus->setToolTip(tr("Langsamer       -"));
    buttonTempoPlus->setToolTip(tr("Schneller       +"));
    buttonTempoDisplay->setToolTip(tr("Tempo in Prozent"));
    buttonTempoDisplayBPM->setToolTip(tr("Tempo in Beats pro Minute"));
}

void BottomFrame::setScreen(int screen)
{
    for (int i = 0; i < screenCount; ++i)
        screenButtons.at(i)->setChecked(i == screen);
}

void BottomFrame::setFrameHeight(int height)
{
    setFixedHeight(height * 7 / 5);
    for (QPushButton *button : std::as_const(squareButtons)) {
        button->setFixedSize(height, height);
        setPixelSize(button, height / 2);
    }
    for (QPushButton *button : std::as_const(tempoButtons)) {
        button->setFixedSize(height * 4 / 5, height * 4 / 5);
        setPixelSize(button, height / 2);
    }
    for (QPushButton *display :
         {buttonTime, buttonRunTime, buttonTempoDisplay, buttonTempoDisplayBPM})
        setPixelSize(display, height);
    constexpr int padding = 8;
    buttonTempoDisplay->setFixedWidth(widthAt(buttonTempoDisplay, height, QStringLiteral("+50%"))
                                      + padding);
    buttonTempoDisplayBPM->setFixedWidth(
        widthAt(buttonTempoDisplayBPM, height, QStringLiteral("100b")) + padding);
}

void BottomFrame::setTimeDisplayMode(int mode)
{
    timeMode = mode;
    buttonTime->setVisible(mode != RunTimeOnly);
    buttonRunTime->setVisible(mode == RunTimeOnly || mode == ParallelTime);
}

void BottomFrame::setClock(const QString &text)
{
    buttonTime->setText(text);
}

void BottomFrame::setRunTime(const QString &text)
{
    if (timeMode == AlternatingTime)
        buttonTime->setText(text);
    else if (timeMode != ClockOnly)
        buttonRunTime->setText(text);
}

void BottomFrame::setTempo(const QString &percent, const QString &bpm)
{
    buttonTempoDisplay->setText(percent);
    buttonTempoDisplayBPM->setText(bpm);
}
