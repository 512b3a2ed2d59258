// What the buttons of a song list do.

#include "FrozenTableView.h"
#include "ListExport.h"
#include "ListFilesCopy.h"
#include "PlaylistBar.h"
#include "SongListFilter.h"
#include "SongListPanel.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "SongTableColumns.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <numeric>

void SongListPanel::setOther(SongListPanel *panel)
{
    other = panel;
    connect(other, &SongListPanel::selectionChanged, this, &SongListPanel::adaptPlaylistButtons);
    connect(other, &SongListPanel::listChanged, this, &SongListPanel::adaptPlaylistButtons);
    adaptPlaylistButtons();
}

struct SongListPanel::TaskRoute
{
    PlaylistTask task;
    void (*carryOut)(SongListPanel &panel);
};

const SongListPanel::TaskRoute SongListPanel::taskRoutes[] = {
    {PlaylistTask::Open, [](SongListPanel &p) { p.openList(); }},
    {PlaylistTask::Save, [](SongListPanel &p) { p.saveList(false); }},
    {PlaylistTask::SaveAs, [](SongListPanel &p) { p.saveList(true); }},
    {PlaylistTask::Remove, [](SongListPanel &p) { p.removeList(); }},
    {PlaylistTask::CopyText, [](SongListPanel &p) { p.copyText(); }},
    {PlaylistTask::CopyFiles, [](SongListPanel &p) { p.copyFiles(); }},
    {PlaylistTask::AddSongs, [](SongListPanel &p) { p.addSongsOfOther(); }},
    {PlaylistTask::RemoveEntry, [](SongListPanel &p) { p.removeEntry(); }},
    {PlaylistTask::MoveUp, [](SongListPanel &p) { p.moveEntry(-1); }},
    {PlaylistTask::MoveDown, [](SongListPanel &p) { p.moveEntry(1); }},
};

void SongListPanel::carryOut(PlaylistTask task)
{
    const auto *route = std::find_if(std::begin(taskRoutes), std::end(taskRoutes),
                                     [&](const TaskRoute &r) { return r.task == task; });
    if (isEnabled() && route != std::end(taskRoutes))
        route->carryOut(*this);
}

void SongListPanel::openList()
{
    setList(operations.open(list()));
    refreshPlaylistCombos();
}

void SongListPanel::saveList(bool askName)
{
    operations.save(list(), askName);
    refreshPlaylistCombos();
}

void SongListPanel::removeList()
{
    if (list()->isMaster() || !operations.remove(list()))
        return;
    setList(manager->getTempList());
    refreshPlaylistCombos();
}

QList<int> SongListPanel::songRows() const
{
    QList<int> rows(std::max(songFilter->rowCount() - 1, 0));
    std::iota(rows.begin(), rows.end(), 1);
    return rows;
}

void SongListPanel::copyText()
{
    ListExport::copy(ListExport::text(*songFilter, columns->shown(), songRows()));
}

void SongListPanel::exportColumns(const QList<int> &wanted)
{
    const QList<int> chosen = selected.rows();
    ListExport::copy(ListExport::text(*songFilter, wanted, chosen.isEmpty() ? songRows() : chosen));
}

void SongListPanel::exportShownColumns()
{
    exportColumns(columns->shown());
}

void SongListPanel::copyFiles()
{
    QStringList files;
    for (const SongPtr &song : list()->songs())
        files.append(song->getFilename());
    copyListFiles(window(), files);
}

void SongListPanel::addSongsOfOther()
{
    const QList<SongPtr> songs = other ? other->selection().songs() : QList<SongPtr>();
    if (!list()->isMaster() && !songs.isEmpty())
        songModel->addSongs(songs);
}

int SongListPanel::selectedEntry() const
{
    const QList<int> rows = selected.rows();
    return rows.size() == 1 ? songFilter->mapToSource(songFilter->index(rows.constFirst(), 0)).row()
                            : 0;
}

// The library is left alone: there it would be the song's file that goes, and nobody has asked.
void SongListPanel::removeEntry()
{
    if (list()->isMaster() || selected.row() < 1)
        return;
    songFilter->removeRow(selected.row());
    Q_EMIT entryRemoved();
}

void SongListPanel::moveEntry(int step)
{
    const int entry = selectedEntry();
    if (entry < 1)
        return;
    if (step < 0)
        songModel->moveRowsUp(entry, 1);
    else
        songModel->moveRowsDown(entry, 1);
    selected.select(selected.song());
}

// Songs that are put into a playlist must not end its playing on, which goes by the selection.
void SongListPanel::keepSelection()
{
    const PlaylistPtr before = list();
    const SongPtr song = selected.song();
    const int row = selected.row();
    if (!song || !before || before->isMaster())
        return;
    connect(
        songFilter, &QAbstractItemModel::modelReset, this,
        [this, before, song, row] {
            if (list() == before)
                selected.selectNear(song, row);
        },
        Qt::SingleShotConnection);
}
