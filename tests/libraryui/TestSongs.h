#pragma once

#include "Settings.h"
#include "SongListTableModel.h"
#include "SongManager.h"

#include <QTemporaryDir>

// A library whose songs are files that nobody could play, one a letter, and playlists of them.
class TestSongs
{
public:
    TestSongs() { Settings::setValue(Settings::Key::MusicDir, music.path()); }

    SongPtr song(const QString &name)
    {
        const QString path = music.filePath(name);
        manager.addSong(path);
        return manager.getSong(path);
    }
    // Titled as they are called.
    void library(const QString &letters)
    {
        for (const QChar letter : letters)
            song(letter)->setTitle(letter);
        manager.updateAllLists();
    }
    // A file in the playlist directory, known to the manager.
    PlaylistPtr playlist(const QString &name, const QString &letters)
    {
        Settings::setValue(Settings::Key::PlaylistDir, lists.path());
        const PlaylistPtr list = manager.newPlaylist(lists.filePath(name));
        for (const QChar letter : letters)
            list->add(song(letter)->getFilename());
        list->save();
        manager.updateAllLists();
        return list;
    }
    static QString letters(const Playlist &list)
    {
        QString names;
        for (const SongPtr &entry : list.songs())
            names.append(letter(entry));
        return names;
    }
    static QString letter(const SongPtr &song)
    {
        return song ? QFileInfo(song->getFilename()).fileName() : QString();
    }

    QTemporaryDir music;
    QTemporaryDir lists;
    SongManager manager;
};
