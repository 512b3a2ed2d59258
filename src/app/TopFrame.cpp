#include "TopFrame.h"

#include "PixelFont.h"
#include "Screens.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

template <typename Widget> Widget *named(const char *name, QWidget *parent)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

TopFrame::TopFrame(QWidget *parent)
    : QFrame(parent)
    , screenMenu(new QMenu(this))
    , toolButtonScreenSelect(named<QToolButton>("toolButtonScreenSelect", this))
    , labelScreen(named<QLabel>("labelScreen", this))
    , labelPositionsHeader(named<QLabel>("labelPositionsHeader", this))
    , labelPositionsAdditionalInfoL(named<QLabel>("labelPositionsAdditionalInfoL", this))
    , labelPositionsAdditionalInfoR(named<QLabel>("labelPositionsAdditionalInfoR", this))
    , buttonPositionsDisplay(named<QPushButton>("buttonPositionsDisplay", this))
    , toolButtonRightMenu(named<QToolButton>("toolButtonRightMenu", this))
{
    setObjectName(QStringLiteral("frameTop"));
    addWidgets();
    makeScreenMenu();
    retranslate();
}

void TopFrame::addWidgets()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 8, 2);
    layout->setSpacing(8);
    for (QWidget *widget : std::initializer_list<QWidget *>{
             toolButtonScreenSelect, labelScreen, labelPositionsHeader,
             labelPositionsAdditionalInfoL, labelPositionsAdditionalInfoR, buttonPositionsDisplay,
             toolButtonRightMenu}) {
        widget->setFocusPolicy(Qt::NoFocus);
        layout->addWidget(widget);
    }
    labelPositionsHeader->setTextFormat(Qt::PlainText);
    labelPositionsHeader->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->setStretchFactor(labelPositionsHeader, 1000);
    // Keeps the buttons at the right where the header is hidden.
    layout->insertStretch(layout->indexOf(labelPositionsHeader) + 1, 1);
    labelPositionsAdditionalInfoL->setTextFormat(Qt::PlainText);
    labelPositionsAdditionalInfoR->setTextFormat(Qt::RichText);
    labelPositionsAdditionalInfoL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    buttonPositionsDisplay->setCheckable(true);
    toolButtonRightMenu->setText(QStringLiteral("≡"));
    toolButtonRightMenu->setPopupMode(QToolButton::InstantPopup);
    toolButtonScreenSelect->setPopupMode(QToolButton::InstantPopup);
    connect(buttonPositionsDisplay, &QPushButton::clicked, this, &TopFrame::fullWidthToggled);
}

void TopFrame::makeScreenMenu()
{
    toolButtonScreenSelect->setMenu(screenMenu);
    for (int i = 0; i < screenCount; ++i)
        connect(screenMenu->addAction(QString()), &QAction::triggered, this,
                [this, i] { Q_EMIT screenRequested(i); });
}

void TopFrame::retranslate()
{
    buttonPositionsDisplay->setToolTip(
        tr("Schaltet um zwischen voller Breite und ganzem Text      W"));
    toolButtonRightMenu->setToolTip(tr("Menü"));
    toolButtonScreenSelect->setToolTip(tr("Bildschirm wählen"));
    const QList<QAction *> actions = screenMenu->actions();
    for (int i = 0; i < screenCount; ++i)
        actions.at(i)->setText(screenName(i) + QLatin1Char('\t') + QLatin1String(screenRow(i).key));
    setFullWidth(isFullWidth());
    labelScreen->setText(screenName(screen));
}

void TopFrame::setScreen(int newScreen, QMenu *menu)
{
    screen = newScreen;
    const bool showsSong = screen == PositionsScreen || screen == ChoreographyScreen;
    labelScreen->setText(screenName(screen));
    toolButtonScreenSelect->setText(screenSymbol(screen));
    toolButtonRightMenu->setMenu(menu);
    buttonPositionsDisplay->setVisible(screen == PositionsScreen);
    labelPositionsHeader->setVisible(showsSong);
    labelPositionsAdditionalInfoL->setVisible(showsSong);
    labelPositionsAdditionalInfoR->setVisible(showsSong);
}

void TopFrame::setSongTexts(const PositionsHeader &header)
{
    labelPositionsHeader->setText(header.title);
    labelPositionsHeader->setToolTip(header.title);
    labelPositionsAdditionalInfoL->setText(header.infoLabels);
    labelPositionsAdditionalInfoR->setText(header.infoValues);
}

QString TopFrame::elideForInfo(const QString &text) const
{
    const QFontMetrics metrics(labelPositionsAdditionalInfoR->font());
    return metrics.elidedText(text, Qt::ElideRight, width() / 4);
}

int TopFrame::menuButtonHeight() const
{
    return toolButtonScreenSelect->height();
}

void TopFrame::setFrameHeight(int height)
{
    setFixedHeight(height);
    const int medium = height * 4 / 5;
    for (QWidget *button : std::initializer_list<QWidget *>{
             toolButtonScreenSelect, toolButtonRightMenu, buttonPositionsDisplay}) {
        button->setFixedSize(medium, medium);
        setPixelSize(button, height * 2 / 5);
    }
    setPixelSize(labelScreen, height * 3 / 5);
    setPixelSize(labelPositionsHeader, height * 2 / 5);
    setPixelSize(labelPositionsAdditionalInfoL, height / 3);
    setPixelSize(labelPositionsAdditionalInfoR, height / 3);
}

bool TopFrame::isFullWidth() const
{
    return buttonPositionsDisplay->isChecked();
}

void TopFrame::setFullWidth(bool full)
{
    buttonPositionsDisplay->setChecked(full);
    buttonPositionsDisplay->setText(full ? QStringLiteral("↔") : QStringLiteral("↕"));
    // A new text takes the button's shortcut away.
    buttonPositionsDisplay->setShortcut(Qt::Key_W);
}
