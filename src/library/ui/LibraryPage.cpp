#include "LibraryPage.h"

#include "SongListPanel.h"

#include <QVBoxLayout>

LibraryPage::LibraryPage(SongManager *songManager, QWidget *parent)
    : QWidget(parent)
    , panel(new SongListPanel(SongListPanel::Side::Right, songManager, this))
{
    setObjectName(QStringLiteral("page1_MusicList"));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(panel);
    connect(panel, &SongListPanel::songActivated, this, &LibraryPage::songActivated);
}

SongPtr LibraryPage::selectedSong() const
{
    return panel->selection().song();
}

QList<SongPtr> LibraryPage::selectedSongs() const
{
    return panel->selection().songs();
}

void LibraryPage::clearSelection()
{
    panel->selection().clear();
}

void LibraryPage::scrollUpMusicList(int n)
{
    panel->selection().scrollUp(n);
}

void LibraryPage::scrollDownMusicList(int n)
{
    panel->selection().scrollDown(n);
}

int LibraryPage::pageStep() const
{
    return panel->selection().pageStep();
}

QByteArray LibraryPage::columnConfig() const
{
    return panel->columnConfig();
}

bool LibraryPage::restoreColumnConfig(const QByteArray &config)
{
    return panel->restoreColumnConfig(config);
}
