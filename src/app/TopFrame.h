#pragma once

#include "Commands.h"
#include "PositionsHeader.h"

#include <QFrame>

class QLabel;
class QLineEdit;
class QMenu;
class QPushButton;
class QToolButton;

// The frame above the screens: which screen is on, the search field or the current song, and the
// screen's own buttons and menu.
class TopFrame : public QFrame
{
    Q_OBJECT

public:
    explicit TopFrame(QWidget *parent = nullptr);

    // Title, picture and elements of the screen; its menu opens at the right.
    void setScreen(int newScreen, QMenu *menu);
    // The menu in which a screen can be chosen.
    void setScreenMenu(QMenu *menu);
    // Fetches the screen's picture anew from the theme on show.
    void refreshPicture();
    // The song's texts. Given anew at each change of song or language.
    void setSongTexts(const PositionsHeader &header);
    // How many songs are on show and chosen.
    void setFilterStats(const QString &text);
    // Pixels of the frame; all its controls follow.
    void setFrameHeight(int height);

    // Cuts a text to the room that the choreographer has.
    QString elideForInfo(const QString &text) const;
    // Pixel size of the menu button.
    int menuButtonHeight() const;
    // Pixel size of the search field's letters: the frame is never lower.
    int filterFontPixels() const;
    void retranslate();
    // Shows the title again, should somebody have hidden it.
    void showTitle();

    bool isFullWidth() const;
    void setFullWidth(bool full);

    // The panel with the left playlist is wanted.
    void setPlaylistShown(bool shown);
    void setPlaylistManagerShown(bool shown);

    // The button that tells of countdowns: the full watch for a song that has some, the empty one
    // for another song, none of them without a song or on another screen.
    void setCountDownButtons(bool hasSong, bool hasCountDowns);
    // The number to show on the watch, and that there is none any more.
    void showCount(const QString &count);
    void endCount();

    // The menu at the right, as if its button had been pressed.
    void openMenu();

    QLineEdit *filterField() const { return lineEditFilter; }
    bool isFilterFocused() const;
    void focusFilter();
    void clearFilter();

    // While the position editor is open, its song stays.
    void setLocked(bool locked);

Q_SIGNALS:
    void requested(const CommandCall &call);
    // The choreographer has more room now, or less.
    void infoRoomChanged();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void addButtons();
    void addWidgets();

    int screen = 0;
    QToolButton *toolButtonScreenSelect;
    QLabel *labelScreen;
    QLineEdit *lineEditFilter;
    QLabel *labelPositionsHeader;
    QLabel *labelFilterStats;
    QLabel *labelPositionsAdditionalInfoL;
    QLabel *labelPositionsAdditionalInfoR;
    QList<QPushButton *> buttons; // in the order of their table
    QToolButton *toolButtonRightMenu;
};
