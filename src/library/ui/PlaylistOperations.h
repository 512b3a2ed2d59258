#pragma once

#include "Playlist.h"

#include <QCoreApplication>

class QWidget;
class SongManager;

// What a user does with a list as a whole, with its questions and messages. A dialog runs the event
// loop: afterwards the manager may hold other lists.
class PlaylistOperations
{
    Q_DECLARE_TR_FUNCTIONS(PlaylistOperations)

public:
    // Both outlive it; the dialogs stand before the widget.
    PlaylistOperations(SongManager *songManager, QWidget *parent);

    // Before a list is left: asks whether its changes are to be saved. False when the user wants to
    // stay, or when they could not be saved; true, and nothing asked, for a list without changes.
    bool promptSave(const PlaylistPtr &list) const;
    // Under its name, or under one that is asked for, which a list without a file always is. False,
    // with the list still changed, when there was no answer or the file could not be written.
    bool save(const PlaylistPtr &list, bool askName) const;
    // Asks for a file; the answer is its list, empty without a choice. What stands in the way of
    // opening it, changes in this list or in one of that file, is asked about first.
    PlaylistPtr open(const PlaylistPtr &current) const;
    // Deletes the list's file after a question. False when it stays, of which the user is told
    // where it was not the user's choice.
    bool remove(const PlaylistPtr &list) const;

private:
    QString chooseTarget(const PlaylistPtr &list) const;
    bool promptSaveOf(const QString &file, const PlaylistPtr &asked) const;

    SongManager *manager;
    QWidget *window;
};
