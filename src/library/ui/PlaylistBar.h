#pragma once

#include "PlaylistTasks.h"

#include <QList>
#include <QWidget>

class FlowLayout;
class QComboBox;
class QLabel;
class QPushButton;

// What stands above a song list: the box that chooses the list, the buttons that work on it and a
// line about its length. It only asks: what happens is the panel's. Nothing in it takes the focus.
class PlaylistBar : public QWidget
{
    Q_OBJECT

public:
    enum class Side { Left, Right };

    // The left one has the keys, and the button for playing on.
    explicit PlaylistBar(Side side, QWidget *parent = nullptr);

    // Nobody is told of this; -1 for a list that is none of these.
    void setLists(const QStringList &names, int current);
    void setInfo(const QString &text);
    void adapt(const PlaylistState &state);
    // Opens the box of the lists, while it is visible.
    void openListBox();
    bool isListBoxVisible() const;

    // Play goes on with the next song by itself; of the left side.
    bool isNonStop() const;
    void setNonStop(bool wanted);

    void setButtonSize(const QSize &size);
    // Pixels between the buttons.
    void setButtonSpacing(int pixels);
    // Fetches the pictures of the buttons anew from the theme on show.
    void refreshPictures();
    void retranslate();

Q_SIGNALS:
    // The user chose the list with this index.
    void listChosen(int index);
    void requested(PlaylistTask task);

private:
    QString suffixed(const char *name) const;
    void createListBox();
    void createButtons();
    void createNonStop();
    QPushButton *createButton(const QString &name);
    void layOut();
    QString withKey(const char *text, const char *key) const;

    const Side side;
    QComboBox *listBox;
    FlowLayout *buttonLayout;
    QList<QPushButton *> buttons; // one for each row of the table of buttons
    QPushButton *nonStop = nullptr;
    QLabel *info;
};
