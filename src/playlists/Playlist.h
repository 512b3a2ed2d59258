#pragma once

#include "SongLibrary.h"

#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QStringList>

// Whatever a song table can show: the library, a playlist file, the working list. An operation
// that has no meaning for a list does nothing or answers false. On the GUI thread alone.
class Playlist : public QObject
{
    Q_OBJECT

public:
    // The library outlives the list.
    explicit Playlist(SongLibrary *songManager, QObject *parent = nullptr);

    int count() const { return static_cast<int>(shown.size()); }
    SongLibrary *songManager() const { return library; }
    // What the table shows, as of the last refresh(). Entries without a song of the library have
    // one of their own here, marked as a missing file; equal entries share it.
    const QList<SongPtr> &songs() const { return shown; }

    virtual QString name() const = 0;
    // The file; of a list without one the name that a save dialog proposes; empty for the library.
    virtual QString fullPath() const = 0;
    // True for a list without a file.
    virtual bool isNew() const = 0;
    virtual bool isMaster() const = 0;
    // True when something has changed since the last load, save or revert.
    virtual bool isModified() const = 0;
    // Reads the entries from a file, which the list stands for from now on. Always false, also
    // when it was read. refresh() is the caller's.
    virtual bool load(const QString &path) = 0;
    // Drops the changes: a new list is emptied, another one read again. False where something had
    // to be read again.
    virtual bool revert() = 0;
    // Both false, with nothing changed, when the file could not be written.
    virtual bool saveAs(const QString &path) = 0;
    virtual bool save() = 0;
    // Deletes the list's file; the list itself stays as it is.
    virtual bool remove() = 0;
    // For the library, remove means the song's file; the flag says whether it goes from all
    // playlists too. A playlist loses the entry alone. False when there is no such entry.
    virtual bool removeEntry(const QString &path, bool flag) = 0;
    virtual bool removeEntryAt(int index, bool flag) = 0;
    // A song's file was deleted, or got another path. Saves a playlist file that held it at once.
    virtual void removeSong(const QString &path) = 0;
    virtual void renameSong(const QString &oldPath, const QString &newPath) = 0;
    virtual bool add(const QString &path) = 0;
    // Before the entry at index, or behind the last one; false for any other index.
    virtual bool insert(const QString &path, int index) = 0;
    // The same for many, in their order: the list is built anew once. False when one was refused.
    virtual bool addAll(const QStringList &paths);
    virtual bool insertAll(const QStringList &paths, int index);
    // The moves do nothing when the entry, the block or its target lie outside the list. A block
    // of count entries begins at index.
    virtual void moveTo(int from, int to) = 0;
    virtual void moveUp(int index, int count) = 0;
    virtual void moveDown(int index, int count) = 0;
    // Builds songs() anew.
    virtual void refresh() = 0;

protected:
    QList<SongPtr> shown;

private:
    SongLibrary *library;
};

using PlaylistPtr = QSharedPointer<Playlist>;
