#pragma once

#include "PlaylistFile.h"
#include "PlaylistMaster.h"

#include <QDir>
#include <QHash>
#include <QList>
#include <QObject>
#include <QStringList>

#include <functional>

class SongImportTalk;

// The library: every song found under the music directory, by file name, and the lists that show
// songs. A member of the application object; lives as long as the program, on the GUI thread.
// Lists are shared: who still shows one that the manager has let go of keeps it alive.
class SongManager : public QObject, public SongLibrary
{
    Q_OBJECT

public:
    explicit SongManager(QObject *parent = nullptr);

    SongPtr getSong(const QString &filename) const override;
    const QHash<QString, SongPtr> &getSongs() const override { return songs; }
    // Loads the file as a song and tells the lists, unless the library holds it already. Always
    // true: a file that can't be read is a song with defaults.
    bool addSong(const QString &filename) override;

    // Operations on the music files. No file is ever overwritten, left half or lost, and library
    // and lists tell afterwards what the disk holds. Of several songs the first one that fails ends
    // the work: it is the answer (an empty pointer: all is done), and what was done before it
    // stays. step is called behind each song that is done, and may run the event loop.
    using Step = std::function<void()>;
    // destination is a path. The copy becomes a song of the library. With update the lists follow
    // at once.
    bool copySong(const QString &destination, const SongPtr &song, bool update);
    SongPtr copySongs(const QString &directory, const QList<SongPtr> &list, const Step &step);
    // The song of the library is another one afterwards (Song::present()). With updatePlaylists
    // the entries of all playlists follow the file.
    bool moveSong(const QString &destination, const SongPtr &song, bool updatePlaylists,
                  bool update);
    SongPtr moveSongs(const QString &directory, const QList<SongPtr> &list, bool updatePlaylists,
                      const Step &step);
    // Into the recycle bin. False too for a path that the library doesn't hold.
    bool removeSong(const QString &filename, bool fromPlaylists) override;
    SongPtr removeSongs(const QList<SongPtr> &list, bool fromPlaylists);
    // Copies the files into the directory "Import" of the music directory and takes them into the
    // library; answers how many. A file that fails is asked about.
    int importSongs(const QStringList &files);
    // Who tells the user of an import. Outlived by the manager; without one nothing is told, and a
    // failure ends the import.
    void setImportTalk(SongImportTalk *talk) { importTalk = talk; }

    // Gives the entries of a song that has moved its new path, in every playlist.
    void renameSong(const QString &oldPath, const QString &newPath);

    // All songs of the library; always the same list.
    const QSharedPointer<PlaylistMaster> &getMasterList() const { return masterList; }
    // The working list; another one once this has been saved under a name.
    const QSharedPointer<PlaylistFile> &getTempList() const { return tempList; }
    // 0 the master list, 1 the working list, from 2 on the playlist files in the order of their
    // names; an empty pointer for any other index.
    PlaylistPtr getPlaylist(int index) const;
    // In the same numbering.
    QStringList getPlaylistNames() const;
    // A list for this file, which need not be there. Any other list of the file goes.
    PlaylistPtr newPlaylist(const QString &path);
    // Deletes the playlist's file and lets go of every list of it. False when the file stays.
    bool removePlaylist(const PlaylistPtr &playlist);
    bool savePlaylist(const PlaylistPtr &playlist);
    // Writes the list to the file, for which it stands from now on; the file it came from stays
    // as a list of its own. A list that the manager has let go of is taken in again. A list without
    // a file is the working list: a new one takes its place. Any other list of the overwritten file
    // goes. False, with nothing changed, when the file could not be written.
    bool savePlaylistAs(const PlaylistPtr &playlist, const QString &filename);
    // Has every list build its songs anew and tells those who show one.
    void updateAllLists();

public Q_SLOTS:
    // Reads the music directory anew, blocking until the last file is read.
    void loadSongList();
    // Reads the playlists of the playlist directory anew, not those below it. Changes that were
    // not saved are gone.
    void loadPlaylists();
    // The songs, then the playlists.
    void loadAllLists();

Q_SIGNALS:
    // The number of files that the coming scan will read.
    void notifySongCount(int count);
    // File number x of the scan (from 1) has been read; name without directory.
    void notifySongScanned(int x, QString f, bool cached);
    // The songs of a list have changed: whoever shows one fetches them again.
    void notifyListsChanged();

private:
    struct Folder
    {
        QDir directory;
        QStringList files;
    };

    SongPtr insertSong(const QString &filename);
    // Finds what is in and below the directories, which are told relative to parent if there is
    // one, each before its own directories, and answers the number of music files. A directory that
    // is one of its own ancestors (canonical paths) is left out, and to each at most eight links
    // are followed: directories that link one another have more paths than a scan could ever walk.
    int findFolders(const QStringList &directories, const QDir *parent,
                    const QStringList &ancestors, QList<Folder> &found);
    void loadFiles(const Folder &folder);
    void loadPlaylistFiles(const QString &path);
    PlaylistPtr loadPlaylist(const QString &path);
    // Those of the playlists that stand for this file.
    QList<PlaylistPtr> listsOf(const QString &path) const;
    void dropLists(const QList<PlaylistPtr> &lists);
    void sortPlaylists();
    int importInto(const QString &directory, const QStringList &files);
    bool isImportToGoOn(const QString &source, const QString &target) const;
    void renameInLists(const QString &oldPath, const QString &newPath);
    void removeFromLists(const QString &path);
    // The playlist files and the working list.
    QList<PlaylistPtr> listsBesideMaster() const;

    QHash<QString, SongPtr> songs;
    QString cacheDir;
    QString musicDir;
    QSharedPointer<PlaylistMaster> masterList;
    QSharedPointer<PlaylistFile> tempList;
    QList<PlaylistPtr> playlists;
    SongImportTalk *importTalk = nullptr;
    int scanCounter = 0;
    // By the canonical path of the directory; in one scan.
    QHash<QString, int> linksFollowed;
};
