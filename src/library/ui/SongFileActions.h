#pragma once

#include "Song.h"
#include "SongImportTalk.h"

#include <QList>
#include <QObject>
#include <QPointer>

class ProgressDisplay;
class QWidget;
class SongListPanel;
class SongManager;

// What a user does with the files of the songs that are selected in a list: the questions, the
// progress and the messages around the operations of SongManager. Where an operation blocks, it
// runs the event loop.
class SongFileActions : public QObject, private SongImportTalk
{
    Q_OBJECT

public:
    // library is the list of the right side, playlist that of the left one. All of them outlive
    // this object; dialogs belong to window.
    SongFileActions(SongManager *songManager, SongListPanel *library, SongListPanel *playlist,
                    QWidget *window);
    ~SongFileActions() override;

    // The songs selected in list go to a file or, several, to a directory that the user chooses.
    // current is the current song: without one nothing can be copied or moved.
    void copySongFile(const SongListPanel &list, const SongPtr &current);
    void moveSongFile(const SongListPanel &list, const SongPtr &current);
    // After a question, into the recycle bin and out of all playlists.
    void removeSongFiles(const SongListPanel &list);
    void importSongFiles();
    // The file itself, as file managers have it.
    void copyFileToBuffer(const SongPtr &current);
    void setWriteProtection(const SongListPanel &list);
    void removeWriteProtection(const SongListPanel &list);
    // So that the songs are read from their files at the next start.
    void removeFileCache(const SongListPanel &list);

Q_SIGNALS:
    // Nothing can be imported before there is a music directory.
    void musicDirWanted();

private:
    struct Operation;
    static const Operation copying;
    static const Operation moving;

    void run(const Operation &operation, const SongListPanel &list, const SongPtr &current);
    void runOne(const Operation &operation, const SongListPanel &list, const SongPtr &song);
    void runMany(const Operation &operation, const SongListPanel &list,
                 const QList<SongPtr> &songs);
    void tellSongsChanged(const QList<SongPtr> &songs);

    void tellNoMusicDirectory() override;
    void tellDirectoryFailed(const QString &directory) override;
    void importBegins(int files) override;
    void importStepped() override;
    bool askAfterFailure(const QString &source, const QString &target) override;
    void importEnds(int count, const QString &directory) override;

    SongManager *manager;
    SongListPanel *right;
    SongListPanel *left;
    QWidget *parentWindow;
    // Of an import of several files.
    QPointer<ProgressDisplay> importProgress;
};
