#pragma once

#include "Playlist.h"

#include <QStringList>

// A list of paths, kept in an m3u8 file (see PlaylistText for its rules) or, without a path, in
// memory alone. Entries whose file is missing stay in the list. Only a save writes, and what it
// writes replaces the file whole or not at all.
class PlaylistFile : public Playlist
{
    Q_OBJECT

public:
    explicit PlaylistFile(SongLibrary *songManager, QObject *parent = nullptr);

    QString name() const override;
    QString fullPath() const override;
    bool isNew() const override { return path.isEmpty(); }
    bool isMaster() const override { return false; }
    bool isModified() const override { return modified; }
    // A path without a file gives an empty list that stands for the path. A file that is there, but
    // can't be read or is beyond all measure (16 MiB, 100,000 entries) gives an empty list too.
    bool load(const QString &filename) override;
    bool revert() override;
    // Also false for a list's own file, by whatever path, that could not be read: its entries would
    // be lost.
    bool saveAs(const QString &filename) override;
    bool save() override;
    bool remove() override;
    // Of equal entries the first one.
    bool removeEntry(const QString &path, bool flag) override;
    bool removeEntryAt(int index, bool flag) override;
    // All entries equal to the path. This and renameSong() save the list at once when it has
    // changed now or before, and log a save that fails.
    void removeSong(const QString &path) override;
    // When an entry is equal to oldPath, its text is replaced wherever an entry contains it.
    void renameSong(const QString &oldPath, const QString &newPath) override;
    bool add(const QString &path) override;
    bool insert(const QString &path, int index) override;
    bool addAll(const QStringList &paths) override;
    bool insertAll(const QStringList &paths, int index) override;
    void moveTo(int from, int to) override;
    void moveUp(int index, int count) override;
    void moveDown(int index, int count) override;
    void refresh() override;

private:
    bool isEntry(int index) const { return index >= 0 && index < entries.size(); }
    void entriesChanged();
    void saveUnasked();

    // Full paths with forward slashes.
    QStringList entries;
    QString path;
    bool modified = false;
    // The file of this path is there, or may be, but could not be read whole.
    bool unread = false;
};
