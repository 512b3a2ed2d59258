#pragma once

#include "Song.h"

#include <QHash>
#include <QObject>
#include <QStringList>

class QDir;

// The library: every song found under the music directory, by file name. A member of the
// application object; lives as long as the program, on the GUI thread.
class SongManager : public QObject
{
    Q_OBJECT

public:
    explicit SongManager(QObject *parent = nullptr);

    // The song with this path, or an empty pointer.
    SongPtr getSong(const QString &filename) const;
    const QHash<QString, SongPtr> &getSongs() const { return songs; }
    // Loads the file as a song and tells the lists, unless the library holds it already. Always
    // true: a file that can't be read is a song with defaults.
    bool addSong(const QString &filename);

public Q_SLOTS:
    // Reads the music directory anew, blocking until the last file is read.
    void loadSongList();
    void loadAllLists();

Q_SIGNALS:
    // The number of files that the coming scan will read.
    void notifySongCount(int count);
    // File number x of the scan (from 1) has been read; name without directory.
    void notifySongScanned(int x, QString f, bool cached);
    // The library's songs have changed: whoever shows them fetches them again.
    void notifyListsChanged();

private:
    enum class ScanPass { Count, Load };

    SongPtr insertSong(const QString &filename);
    // The number of music files in and below the directories, which are told relative to parent
    // if there is one. A directory that is one of its own ancestors (canonical paths) is left out,
    // and to each at most eight links are followed: directories that link one another have more
    // paths than a scan could ever walk.
    int scanDirectories(const QStringList &directories, const QDir *parent,
                        const QStringList &ancestors, ScanPass pass);
    void loadFiles(const QDir &directory, const QStringList &files);
    void updateAllLists();

    QHash<QString, SongPtr> songs;
    QString cacheDir;
    QString musicDir;
    int scanCounter = 0;
    // By the canonical path of the directory; in one pass.
    QHash<QString, int> linksFollowed;
};
