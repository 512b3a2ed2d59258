#pragma once

#include "PositionsHeader.h"

#include <QFrame>

class QLabel;
class QMenu;
class QPushButton;
class QToolButton;

// The frame above the screens: which screen is on, the current song, and the screen's own buttons
// and menu.
class TopFrame : public QFrame
{
    Q_OBJECT

public:
    explicit TopFrame(QWidget *parent = nullptr);

    // Title and elements of the screen; its menu opens at the right.
    void setScreen(int screen, QMenu *menu);
    // The song's texts. Given anew at each change of song or language.
    void setSongTexts(const PositionsHeader &header);
    // Pixels of the frame; all its controls follow.
    void setFrameHeight(int height);

    // Cuts a text to the room that the choreographer has.
    QString elideForInfo(const QString &text) const;
    // Pixel size of the menu button.
    int menuButtonHeight() const;
    void retranslate();

    bool isFullWidth() const;
    void setFullWidth(bool full);

Q_SIGNALS:
    void screenRequested(int screen);
    void fullWidthToggled(bool full);

private:
    void addWidgets();
    void makeScreenMenu();

    int screen = 0;
    QMenu *screenMenu;
    QToolButton *toolButtonScreenSelect;
    QLabel *labelScreen;
    QLabel *labelPositionsHeader;
    QLabel *labelPositionsAdditionalInfoL;
    QLabel *labelPositionsAdditionalInfoR;
    QPushButton *buttonPositionsDisplay;
    QToolButton *toolButtonRightMenu;
};
