#include "SongFileActions.h"

#include "FileDialogs.h"
#include "FileTools.h"
#include "MessageBoxes.h"
#include "ProgressDisplay.h"
#include "Settings.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "SongStoreCache.h"

#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMimeData>
#include <QUrl>

using namespace Qt::StringLiterals;
using Settings::Key;

struct SongFileActions::Operation
{
    const char *title; // of the dialog for one file
    const char *oneFailed;
    const char *progress;
    const char *someFailed;
    const char *done;
    bool (SongListTableModel::*one)(const QString &destination, const SongPtr &song);
    SongPtr (SongListTableModel::*many)(const QString &directory, const QList<SongPtr> &list,
                                        const std::function<void()> &step);
};

const SongFileActions::Operation SongFileActions::copying{
    QT_TR_NOOP("Datei kopieren nach"),
    QT_TR_NOOP("Das Kopieren der Datei <br>%1<br>nach<br>%2<br>hat nicht "
               "funktioniert!<br><br>Mögliche Ursachen:<ul><li>Die Datei ist von einem anderen "
               "Programm geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es ist "
               "kein Speicher mehr frei</li><li>Es gibt keine Schreibberechtigung</li></ul>"),
    QT_TR_NOOP("Kopiere Dateien ..."),
    QT_TR_NOOP("Das Kopieren der Datei<br>%1<br>nach<br>%2<br>hat nicht "
               "funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert den "
               "Kopiervorgang</li><li>Die Datei existiert bereits im Zielordner</li><li>Es ist "
               "kein Speicher mehr frei</li><li>Es gibt keine "
               "Schreibberechtigung</li><li>Mieses Karma</li></ul>"),
    QT_TR_NOOP("%1 Dateien erfolgreich kopiert."),
    &SongListTableModel::copySong,
    &SongListTableModel::copySongs};

const SongFileActions::Operation SongFileActions::moving{
    QT_TR_NOOP("Datei verschieben nach"),
    QT_TR_NOOP("Das Verschieben der Datei <br>%1<br>nach<br>%2<br>hat nicht "
               "funktioniert!<br><br>Mögliche Ursachen:<ul><li>Die Datei ist von einem anderen "
               "Programm geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es "
               "gibt keine Schreibberechtigung</li></ul>"),
    QT_TR_NOOP("Verschiebe Dateien ..."),
    QT_TR_NOOP("Das Verschieben der Datei<br>%1<br>nach<br>%2<br>hat nicht "
               "funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert den "
               "Kopiervorgang</li><li>Die Datei ist von einem anderen Programm "
               "geöffnet</li><li>Die Datei existiert bereits im Zielordner</li><li>Es gibt keine "
               "Schreibberechtigung</li><li>Mieses Karma</li></ul>"),
    QT_TR_NOOP("%1 Dateien erfolgreich verschoben."),
    &SongListTableModel::moveSong,
    &SongListTableModel::moveSongs};

namespace {

QString startDirectory()
{
    const QString last = Settings::value(Key::MoveCopyDirDest).toString();
    return QDir(last.isEmpty() ? Settings::musicDir() : last).absolutePath();
}

QString nameOf(const Song &song)
{
    return QFileInfo(song.getFilename()).fileName();
}

QString withSuffix(const QString &path)
{
    return QFileInfo(path).suffix().isEmpty() ? path + u".mp3"_s : path;
}

} // namespace

SongFileActions::SongFileActions(SongManager *songManager, SongListPanel *library,
                                 SongListPanel *playlist, QWidget *window)
    : manager(songManager)
    , right(library)
    , left(playlist)
    , parentWindow(window)
{
    manager->setImportTalk(this);
}

SongFileActions::~SongFileActions()
{
    manager->setImportTalk(nullptr);
}

void SongFileActions::copySongFile(const SongListPanel &list, const SongPtr &current)
{
    run(copying, list, current);
}

void SongFileActions::moveSongFile(const SongListPanel &list, const SongPtr &current)
{
    run(moving, list, current);
}

void SongFileActions::run(const Operation &operation, const SongListPanel &list,
                          const SongPtr &current)
{
    const QList<SongPtr> songs = list.selection().songs();
    if (!current || songs.isEmpty())
        showInfo(tr("Keine Musikdatei ausgewählt."));
    else if (songs.size() == 1)
        runOne(operation, list, songs.constFirst());
    else
        runMany(operation, list, songs);
}

void SongFileActions::runOne(const Operation &operation, const SongListPanel &list,
                             const SongPtr &song)
{
    const QString proposal = startDirectory() + u'/' + nameOf(*song);
    const QString chosen
        = chooseSaveFile(parentWindow, tr(operation.title), proposal, tr("Audio Datei (*.mp3)"));
    if (chosen.isEmpty())
        return;
    const QString target = withSuffix(QFileInfo(chosen).absoluteFilePath());
    if (!(list.model()->*operation.one)(target, song))
        showError(tr(operation.oneFailed)
                      .arg(fileNameAsHtml(song->getFilename()), fileNameAsHtml(target)));
    Settings::setValue(Key::MoveCopyDirDest, QFileInfo(target).absolutePath());
}

void SongFileActions::runMany(const Operation &operation, const SongListPanel &list,
                              const QList<SongPtr> &songs)
{
    const QString target
        = chooseDirectory(parentWindow, tr("Zielverzeichnis auswählen"), startDirectory());
    if (target.isEmpty())
        return;
    const auto count = static_cast<int>(songs.size());
    ProgressDisplay progress(parentWindow, count, false, false);
    progress.setText(tr(operation.progress));
    progress.show();
    const SongPtr failed
        = (list.model()->*operation.many)(target, songs, [&] { progress.updateProgress(); });
    if (failed)
        showError(tr(operation.someFailed)
                      .arg(fileNameAsHtml(failed->getFilename()), fileNameAsHtml(target)));
    progress.setText(tr("Aufräumen ..."));
    Settings::setValue(Key::MoveCopyDirDest, QDir(target).absolutePath());
    progress.hide();
    if (!failed)
        showInfo(tr(operation.done).arg(count));
}

void SongFileActions::removeSongFiles(const SongListPanel &list)
{
    const QList<SongPtr> songs = list.selection().songs();
    if (songs.isEmpty())
        return;
    const QString question
        = songs.size() == 1
              ? tr("Willst Du die ausgewählte Datei<br>%1<br>wirklich löschen?")
                    .arg(fileNameAsHtml(songs.constFirst()->getFilename()))
              : tr("Willst Du die %1 ausgewählten Dateien wirklich löschen?").arg(songs.size());
    if (!askYesNo(question))
        return;
    const SongPtr failed = right->model()->removeSongs(songs);
    if (failed)
        showError(tr("Die Datei<br><br>%1<br><br>konnte nicht gelöscht werden!<br><br>Mögliche "
                     "Ursachen:<br><ul><li>Der Virenscanner blockiert den "
                     "Kopiervorgang</li><li>Die Datei ist von einem anderen Programm "
                     "geöffnet</li><li>Die Datei wurde zwischenzeitlich entfernt</li></ul>")
                      .arg(fileNameAsHtml(failed->getFilename())));
}

void SongFileActions::importSongFiles()
{
    if (Settings::musicDir().isEmpty()) {
        tellNoMusicDirectory();
        return;
    }
    const QStringList files
        = chooseOpenFiles(parentWindow, tr("Songs importieren"),
                          Settings::value(Key::SongFileImportDir).toString(), u"*.mp3"_s);
    if (files.isEmpty())
        return;
    right->model()->importSongs(files);
    Settings::setValue(Key::SongFileImportDir, QFileInfo(files.constFirst()).absolutePath());
}

void SongFileActions::tellNoMusicDirectory()
{
    showInfo(tr("Das Musikverzeichnis muss vorher festgelegt werden."));
    Q_EMIT musicDirWanted();
}

void SongFileActions::tellDirectoryFailed(const QString &directory)
{
    showError(tr("Beim Anlegen des Verzeichnisses %1 ist ein Fehler aufgetreten. Die Operation "
                 "wird abgebrochen.")
                  .arg(fileNameAsHtml(directory)));
    showError(tr("Es wurde keine Datei kopiert!"));
}

void SongFileActions::importBegins(int files)
{
    if (files < 2)
        return;
    importProgress = new ProgressDisplay(parentWindow, files, false, false);
    importProgress->setText(tr("Kopiere Dateien ..."));
    importProgress->show();
}

void SongFileActions::importStepped()
{
    if (importProgress)
        importProgress->updateProgress();
}

bool SongFileActions::askAfterFailure(const QString &source, const QString &target)
{
    return askYesNo(tr("Das Kopieren von<br>%1<br> nach <br>%2<br>hat nicht "
                       "funktioniert!<br><br>Mögliche Ursachen:<ul><li>Der Virenscanner blockiert "
                       "den Kopiervorgang</li><li>Die Datei existiert bereits im "
                       "Zielordner</li><li>Kein freier Speicher mehr</li></ul><br><br>Fortfahren?")
                        .arg(fileNameAsHtml(source), fileNameAsHtml(target)));
}

void SongFileActions::importEnds(int count, const QString &directory)
{
    delete importProgress;
    const QString place = fileNameAsHtml(directory);
    if (count == 0)
        showError(tr("Es wurde keine Datei kopiert!"));
    else if (count == 1)
        showInfo(tr("Es wurde eine Datei in das Unterverzeichnis '%1' kopiert.").arg(place));
    else
        showInfo(tr("Es wurden %1 Dateien in das Unterverzeichnis '%2' kopiert.")
                     .arg(QString::number(count), place));
}

void SongFileActions::copyFileToBuffer(const SongPtr &current)
{
    if (!current) {
        showInfo(tr("Keine Musikdatei ausgewählt."));
        return;
    }
    auto *data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(current->getFilename())});
    QGuiApplication::clipboard()->setMimeData(data);
    showInfo(tr("Die Datei ist in die Windows Zwischenablage kopiert worden und kann jetzt z.B. "
                "auf den Desktop oder in ein beliebiges Verzeichnis eingefügt werden."));
}

void SongFileActions::setWriteProtection(const SongListPanel &list)
{
    const QList<SongPtr> songs = list.selection().songs();
    for (const SongPtr &song : songs)
        song->setWriteProtection();
    tellSongsChanged(songs);
}

void SongFileActions::removeWriteProtection(const SongListPanel &list)
{
    const QList<SongPtr> songs = list.selection().songs();
    for (const SongPtr &song : songs)
        song->removeWriteProtection();
    tellSongsChanged(songs);
}

// A list sorted or filtered by the mark takes up the change too.
void SongFileActions::tellSongsChanged(const QList<SongPtr> &songs)
{
    for (const SongListPanel *panel : {right, left}) {
        panel->model()->tellSongsChanged(songs);
        panel->filter()->applyFilters();
    }
}

void SongFileActions::removeFileCache(const SongListPanel &list)
{
    const QString directory = Settings::cacheDir() + u'/';
    for (const SongPtr &song : list.selection().songs()) {
        const QString &file = song->getFilename();
        if (!QFile::remove(directory + SongStoreCache::fileNameFor(file)))
            showError(tr("Der Cache für die Datei<br>%1<br>konnte nicht bereinigt werden oder "
                         "wurde bereits gelöscht!")
                          .arg(fileNameAsHtml(file)));
    }
}
