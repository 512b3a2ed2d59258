#pragma once

#include "ActionRules.h"

#include <QMenu>
#include <QObject>

// The window's actions and the menus that hold them, made from the tables. Says which command is
// asked for; what it does is the window's.
class Actions : public QObject
{
    Q_OBJECT

public:
    // The window owns the menus.
    explicit Actions(QWidget *window);

    QAction *action(ActionId id) const;
    QMenu *menu(MenuId id) const { return menus.at(static_cast<int>(id)); }
    // The actions of a menu in their order; null stands for a separator.
    QList<QAction *> entries(MenuId id) const;

    // Brings the enabled states up to date.
    void adapt(const ActionState &state);
    void adaptToSong(const SongState &state);
    // Texts in the language in force, for so many selected songs.
    void adaptTexts(int songsSelected);
    // Fetches all pictures anew from the theme on show.
    void refreshPictures();
    // From now on the action shows this picture of the theme.
    void setPicture(ActionId id, const char *name);

Q_SIGNALS:
    void requested(const CommandCall &call);

private:
    void makeActions();
    QMenu *makeMenu(MenuId id);

    void showPicture(ActionId id);

    QWidget *owner;
    QHash<ActionId, const char *> pictures;
    QList<QAction *> actions; // in the order of ActionId
    QList<QMenu *> menus;     // in the order of MenuId
    QHash<QMenu *, const char *> submenus;
};
