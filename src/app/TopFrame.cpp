#include "TopFrame.h"

#include "PixelFont.h"
#include "Screens.h"
#include "ThemeContext.h"
#include "Tips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QToolButton>

namespace {

enum ButtonId {
    ResetFilterButton,
    ResetSelectionButton,
    CountDownEmptyButton,
    CountDownFullButton,
    DisplayButton,
    PlaylistManagerButton,
    PlaylistModeButton,
    ButtonCount
};

struct ButtonRow
{
    const char *name;
    const char *tip;
    Command command;
    bool checkable;
    bool small;
};

constexpr ButtonRow buttonTable[ButtonCount] = {
    {"buttonResetFilter", QT_TRANSLATE_NOOP("TopFrame", "Alle Filter zurücksetzen       R"),
     Command::ResetFilters, false, true},
    {"buttonResetSelection",
     QT_TRANSLATE_NOOP("TopFrame", "Auswahl aufheben       Strg+Umschalt+A"), Command::SelectNoSong,
     false, true},
    {"buttonCountDownEmpty", QT_TRANSLATE_NOOP("TopFrame", "Countdown bearbeiten       Alt+C"),
     Command::EditCountDown, false, false},
    {"buttonCountDownFull", QT_TRANSLATE_NOOP("TopFrame", "Countdown bearbeiten       Alt+C"),
     Command::EditCountDown, false, false},
    {"buttonPositionsDisplay",
     QT_TRANSLATE_NOOP("TopFrame", "Schaltet um zwischen voller Breite und ganzem Text      W"),
     Command::TogglePositionsDisplay, true, false},
    {"buttonPlaylistManager", QT_TRANSLATE_NOOP("TopFrame", "Zweite Liste wählen und bearbeiten"),
     Command::TogglePlaylistManager, true, false},
    {"buttonPlaylistMode", QT_TRANSLATE_NOOP("TopFrame", "Playlist anzeigen       L"),
     Command::TogglePlaylistPanel, true, false},
};

constexpr unsigned on(Screen screen)
{
    return 1U << screen;
}
constexpr unsigned withSong = on(PositionsScreen) | on(ChoreographyScreen);

template <typename Widget> Widget *named(const char *name, QWidget *parent)
{
    auto *widget = new Widget(parent);
    widget->setObjectName(QLatin1String(name));
    return widget;
}

} // namespace

TopFrame::TopFrame(QWidget *parent)
    : QFrame(parent)
    , toolButtonScreenSelect(named<QToolButton>("toolButtonScreenSelect", this))
    , labelScreen(named<QLabel>("labelScreen", this))
    , lineEditFilter(named<QLineEdit>("lineEditFilter", this))
    , labelPositionsHeader(named<QLabel>("labelPositionsHeader", this))
    , labelFilterStats(named<QLabel>("labelFilterStats", this))
    , labelPositionsAdditionalInfoL(named<QLabel>("labelPositionsAdditionalInfoL", this))
    , labelPositionsAdditionalInfoR(named<QLabel>("labelPositionsAdditionalInfoR", this))
    , toolButtonRightMenu(named<QToolButton>("toolButtonRightMenu", this))
{
    setObjectName(QStringLiteral("frameTop"));
    addButtons();
    addWidgets();
    retranslate();
    setCountDownButtons(false, false);
}

void TopFrame::addButtons()
{
    for (const ButtonRow &row : buttonTable) {
        auto *button = named<QPushButton>(row.name, this);
        button->setCheckable(row.checkable);
        buttons.append(button);
        connect(button, &QPushButton::clicked, this, [this, command = row.command] {
            Q_EMIT requested({command, 0});
        });
    }
    buttons.at(DisplayButton)->setShortcut(Qt::Key_W);
}

void TopFrame::addWidgets()
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 2, 8, 2);
    layout->setSpacing(8);
    QList<QWidget *> all{toolButtonScreenSelect, labelScreen, lineEditFilter, labelPositionsHeader,
                         labelFilterStats};
    all += QList<QWidget *>(buttons.cbegin(), buttons.cbegin() + CountDownEmptyButton);
    all << labelPositionsAdditionalInfoL << labelPositionsAdditionalInfoR;
    all += QList<QWidget *>(buttons.cbegin() + CountDownEmptyButton, buttons.cend());
    all << toolButtonRightMenu;
    for (QWidget *widget : std::as_const(all)) {
        widget->setFocusPolicy(Qt::NoFocus);
        layout->addWidget(widget);
    }
    lineEditFilter->setFocusPolicy(Qt::ClickFocus);
    lineEditFilter->setClearButtonEnabled(true);
    labelPositionsHeader->setTextFormat(Qt::PlainText);
    labelPositionsHeader->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout->setStretchFactor(labelPositionsHeader, 1000);
    layout->setStretchFactor(lineEditFilter, 1000);
    // Keeps the buttons at the right where the header is hidden.
    layout->insertStretch(layout->indexOf(labelPositionsHeader) + 1, 1);
    labelFilterStats->setTextFormat(Qt::PlainText);
    labelPositionsAdditionalInfoL->setTextFormat(Qt::PlainText);
    labelPositionsAdditionalInfoR->setTextFormat(Qt::RichText);
    labelPositionsAdditionalInfoL->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    toolButtonRightMenu->setPopupMode(QToolButton::InstantPopup);
    toolButtonScreenSelect->setPopupMode(QToolButton::InstantPopup);
}

void TopFrame::setScreenMenu(QMenu *menu)
{
    toolButtonScreenSelect->setMenu(menu);
}

void TopFrame::retranslate()
{
    for (int i = 0; i < ButtonCount; ++i)
        describe(buttons.at(i), tr(buttonTable[i].tip));
    describe(toolButtonRightMenu, tr("Menü"));
    describe(toolButtonScreenSelect, tr("Bildschirm wählen       F1 ... F5"));
    describe(lineEditFilter, tr("Suche in allen Spalten       F"));
    lineEditFilter->setPlaceholderText(tr("Suchen"));
    labelScreen->setText(screenName(screen));
}

void TopFrame::setScreen(int newScreen, QMenu *menu)
{
    screen = newScreen;
    labelScreen->setText(screenName(screen));
    refreshPicture();
    toolButtonRightMenu->setMenu(menu);
    const std::pair<QWidget *, unsigned> shown[] = {
        {buttons.at(PlaylistManagerButton), on(LibraryScreen)},
        {buttons.at(PlaylistModeButton), on(LibraryScreen) | withSong},
        {buttons.at(ResetFilterButton), on(LibraryScreen)},
        {buttons.at(ResetSelectionButton), on(LibraryScreen)},
        {labelFilterStats, on(LibraryScreen)},
        {lineEditFilter, on(LibraryScreen)},
        {buttons.at(DisplayButton), on(PositionsScreen)},
        {labelPositionsAdditionalInfoL, withSong},
        {labelPositionsAdditionalInfoR, withSong},
        {labelPositionsHeader, withSong},
    };
    for (const auto &[widget, screens] : shown)
        widget->setVisible((screens & (1U << screen)) != 0);
}

void TopFrame::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    labelPositionsAdditionalInfoR->setMaximumWidth(width() / 4);
    Q_EMIT infoRoomChanged();
}

void TopFrame::refreshPicture()
{
    toolButtonScreenSelect->setIcon(themeIcon(QLatin1String(screenRow(screen).picture)));
}

void TopFrame::setSongTexts(const PositionsHeader &header)
{
    labelPositionsHeader->setText(header.title);
    labelPositionsHeader->setToolTip(header.title);
    labelPositionsAdditionalInfoL->setText(header.infoLabels);
    labelPositionsAdditionalInfoR->setText(header.infoValues);
}

void TopFrame::setFilterStats(const QString &text)
{
    labelFilterStats->setText(text);
}

QString TopFrame::elideForInfo(const QString &text) const
{
    const QFontMetrics metrics(labelPositionsAdditionalInfoR->font());
    return metrics.elidedText(text, Qt::ElideRight, labelPositionsAdditionalInfoR->maximumWidth());
}

int TopFrame::menuButtonHeight() const
{
    return toolButtonScreenSelect->height();
}

int TopFrame::filterFontPixels() const
{
    return QFontInfo(lineEditFilter->font()).pixelSize();
}

void TopFrame::setFrameHeight(int height)
{
    setFixedHeight(height);
    const int medium = height * 4 / 5;
    const int small = height * 3 / 5;
    for (QToolButton *button : {toolButtonScreenSelect, toolButtonRightMenu})
        button->setFixedSize(medium, medium);
    toolButtonScreenSelect->setIconSize({medium, medium});
    for (int i = 0; i < ButtonCount; ++i) {
        const int side = buttonTable[i].small ? small : medium;
        buttons.at(i)->setFixedSize(side, side);
    }
    if (QMenu *menu = toolButtonScreenSelect->menu())
        setPixelSize(menu, small);
    setPixelSize(labelScreen, small);
    setPixelSize(labelPositionsHeader, height * 2 / 5);
    setPixelSize(labelFilterStats, height / 3);
    setPixelSize(labelPositionsAdditionalInfoL, height / 3);
    setPixelSize(labelPositionsAdditionalInfoR, height / 3);
}

void TopFrame::showTitle()
{
    labelScreen->show();
}

bool TopFrame::isFullWidth() const
{
    return buttons.at(DisplayButton)->isChecked();
}

void TopFrame::setFullWidth(bool full)
{
    buttons.at(DisplayButton)->setChecked(full);
}

void TopFrame::setPlaylistShown(bool shown)
{
    buttons.at(PlaylistModeButton)->setChecked(shown);
}

void TopFrame::setPlaylistManagerShown(bool shown)
{
    buttons.at(PlaylistManagerButton)->setChecked(shown);
}

void TopFrame::setCountDownButtons(bool hasSong, bool hasCountDowns)
{
    const bool shown = hasSong && screen == PositionsScreen;
    QPushButton *full = buttons.at(CountDownFullButton);
    QPushButton *empty = buttons.at(CountDownEmptyButton);
    full->setVisible(shown && hasCountDowns);
    full->setEnabled(hasCountDowns);
    full->setText({});
    empty->setVisible(shown && !hasCountDowns);
}

void TopFrame::showCount(const QString &count)
{
    QPushButton *full = buttons.at(CountDownFullButton);
    if (full->isHidden() && screen == PositionsScreen) {
        full->show();
        buttons.at(CountDownEmptyButton)->hide();
    }
    full->setText(count);
}

void TopFrame::endCount()
{
    QPushButton *full = buttons.at(CountDownFullButton);
    full->setText({});
    if (full->isHidden())
        return;
    full->hide();
    buttons.at(CountDownEmptyButton)->show();
}

// A menu that is open keeps the keys, so this one must not wait for it.
void TopFrame::openMenu()
{
    QMenu *menu = toolButtonRightMenu->menu();
    const QPoint corner
        = toolButtonRightMenu->mapToGlobal(toolButtonRightMenu->rect().bottomRight());
    menu->popup(corner - QPoint(menu->sizeHint().width(), 0));
    for (QAction *action : menu->actions()) {
        if (action->isSeparator() || !action->isEnabled())
            continue;
        menu->setActiveAction(action);
        break;
    }
}

bool TopFrame::isFilterFocused() const
{
    return lineEditFilter->hasFocus();
}

void TopFrame::focusFilter()
{
    lineEditFilter->setFocus();
    lineEditFilter->selectAll();
}

void TopFrame::clearFilter()
{
    lineEditFilter->clear();
}

void TopFrame::setLocked(bool locked)
{
    for (const ButtonId id :
         {ResetFilterButton, ResetSelectionButton, CountDownEmptyButton, CountDownFullButton})
        buttons.at(id)->setDisabled(locked);
    lineEditFilter->setDisabled(locked);
    toolButtonRightMenu->setDisabled(locked);
}
