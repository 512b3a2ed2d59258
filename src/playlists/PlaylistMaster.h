#pragma once

#include "Playlist.h"

// The library as a list, in no order of its own.
class PlaylistMaster : public Playlist
{
    Q_OBJECT

public:
    explicit PlaylistMaster(SongLibrary *songManager, QObject *parent = nullptr);

    QString name() const override;
    QString fullPath() const override { return {}; }
    bool isNew() const override { return false; }
    bool isMaster() const override { return true; }
    bool isModified() const override { return false; }
    bool load(const QString &) override { return false; }
    bool revert() override { return false; }
    bool saveAs(const QString &) override { return false; }
    bool save() override { return false; }
    bool remove() override { return false; }
    bool removeEntry(const QString &path, bool flag) override;
    bool removeEntryAt(int index, bool flag) override;
    void removeSong(const QString &) override { }
    void renameSong(const QString &, const QString &) override { }
    bool add(const QString &path) override;
    bool insert(const QString &path, int index) override;
    void moveTo(int, int) override { }
    void moveUp(int, int) override { }
    void moveDown(int, int) override { }
    void refresh() override;
};
