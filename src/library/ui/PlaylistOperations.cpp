#include "PlaylistOperations.h"

#include "FileDialogs.h"
#include "FileTools.h"
#include "MessageBoxes.h"
#include "SameFile.h"
#include "Settings.h"
#include "SongManager.h"

#include <QFileInfo>
#include <QtDebug>

namespace {

bool hasListSuffix(const QString &file)
{
    const QStringList suffixes{QStringLiteral("m3u8"), QStringLiteral("m3u"),
                               QStringLiteral("pls")};
    return suffixes.contains(QFileInfo(file).suffix(), Qt::CaseInsensitive);
}

} // namespace

PlaylistOperations::PlaylistOperations(SongManager *songManager, QWidget *parent)
    : manager(songManager)
    , window(parent)
{ }

bool PlaylistOperations::promptSave(const PlaylistPtr &list) const
{
    if (!list || !list->isModified())
        return true;
    const auto answer = askYesNoCancel(tr("Die Playlist<br>'%1'<br>wurde geändert.<br>Speichern?")
                                           .arg(fileNameAsHtml(list->name())));
    if (answer == QMessageBox::Yes)
        return save(list, false);
    return answer != QMessageBox::Cancel;
}

bool PlaylistOperations::save(const PlaylistPtr &list, bool askName) const
{
    if (!list || list->isMaster())
        return false;
    bool saved = false;
    if (!askName && !list->isNew()) {
        saved = manager->savePlaylist(list);
    } else {
        const QString target = chooseTarget(list);
        if (target.isEmpty())
            return false;
        saved = manager->savePlaylistAs(list, target);
    }
    if (!saved)
        qWarning() << "Save Playlist failed:" << list->fullPath();
    return saved;
}

QString PlaylistOperations::chooseTarget(const PlaylistPtr &list) const
{
    const QString chosen = chooseSaveFile(window, tr("Playlist speichern"), list->fullPath(),
                                          tr("Playlists (*.m3u8 *.m3u *.pls)"));
    if (chosen.isEmpty() || hasListSuffix(chosen))
        return chosen;
    // Under any other name the next start would not find it.
    const QString target = chosen + QStringLiteral(".m3u8");
    const bool free
        = !QFileInfo::exists(target)
          || askYesNo(tr("Die Playlist<br>'%1'<br>gibt es schon. Willst Du sie überschreiben?")
                          .arg(fileNameAsHtml(QFileInfo(target).fileName())));
    return free ? target : QString();
}

PlaylistPtr PlaylistOperations::open(const PlaylistPtr &current) const
{
    const QString file = chooseOpenFile(window, tr("Playlist öffnen"), Settings::playlistDir(),
                                        tr("Playlist (*.m3u8 *.m3u *.pls)"));
    if (file.isEmpty() || !promptSave(current) || !promptSaveOf(file, current))
        return {};
    if (current->isModified())
        current->revert();
    return manager->newPlaylist(file);
}

// A list of this file that is known already goes, with all that was not saved.
bool PlaylistOperations::promptSaveOf(const QString &file, const PlaylistPtr &asked) const
{
    const auto count = static_cast<int>(manager->getPlaylistNames().size());
    for (int index = 0; index < count; ++index) {
        const PlaylistPtr list = manager->getPlaylist(index);
        if (list != asked && !list->isNew() && list->isModified()
            && isSameFile(list->fullPath(), file))
            return promptSave(list);
    }
    return true;
}

bool PlaylistOperations::remove(const PlaylistPtr &list) const
{
    const QString name = fileNameAsHtml(list->name());
    if (!askYesNo(tr("Willst Du die Playlist<br>'%1'<br>wirklich löschen?").arg(name)))
        return false;
    const bool removed = manager->removePlaylist(list);
    if (!removed)
        showError(tr("Fehler: Die Playlist<br>'%1'<br>konnte nicht gelöscht werden!").arg(name));
    return removed;
}
