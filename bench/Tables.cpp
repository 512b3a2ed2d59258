// How long the song tables take with ten thousand songs: a change of the library, a sort, a key.

#include "Bench.h"

#include <FrozenTableView.h>
#include <PlaylistMaster.h>
#include <Settings.h>
#include <SongListFilter.h>
#include <SongListPanel.h>
#include <SongListTableModel.h>
#include <SongManager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 5;

// Songs without files: what a table shows of a song is in its record.
class RecordLibrary : public SongLibrary
{
public:
    explicit RecordLibrary(int count)
    {
        for (int number = 0; number < count; ++number)
            insert(number, count);
    }
    SongPtr getSong(const QString &filename) const override { return songs.value(filename); }
    const QHash<QString, SongPtr> &getSongs() const override { return songs; }
    bool addSong(const QString &) override { return false; }
    bool removeSong(const QString &, bool) override { return false; }

private:
    void insert(int number, int count)
    {
        const QString path = u"/music/%1/Song %2.mp3"_s.arg(number % 100).arg(number);
        const SongPtr song(new Song(path, false));
        const int mixed = static_cast<int>(number * 7919LL % count);
        song->setTitle(u"Über den Fluss %1"_s.arg(mixed));
        song->setArtist(u"Artist %1"_s.arg(mixed % 700));
        song->setLevel(mixed % 2 == 0 ? u"Easy"_s : u"Intermediate-Advanced"_s);
        song->setBpm(QString::number(80 + mixed % 60));
        song->setModified(QDateTime::fromSecsSinceEpoch(1700000000 + mixed, Qt::UTC));
        songs.insert(path, song);
    }

    QHash<QString, SongPtr> songs;
};

void paint(SongListPanel &panel)
{
    panel.repaint();
    QCoreApplication::processEvents();
}

void reportSort(SongListPanel &panel, const char *name, int column)
{
    auto order = Qt::AscendingOrder;
    Bench::report(name, Bench::best(rounds, [&] {
                      order
                          = order == Qt::AscendingOrder ? Qt::DescendingOrder : Qt::AscendingOrder;
                      panel.table()->sortByColumn(column, order);
                  }));
}

void measure(SongListPanel &panel)
{
    Bench::report("tables.reset_ms", Bench::best(rounds, [&] {
                      panel.model()->refresh();
                      paint(panel);
                  }));
    reportSort(panel, "tables.sort.title_ms", TitleColumn);
    reportSort(panel, "tables.sort.level_ms", LevelColumn);
    reportSort(panel, "tables.sort.bpm_ms", BpmColumn);
    reportSort(panel, "tables.sort.date_ms", FileDateColumn);
    Bench::report("tables.invalidate_ms", Bench::best(rounds, [&] {
                      panel.filter()->invalidate();
                      paint(panel);
                  }));
    Bench::report("tables.select_all_ms", Bench::best(rounds, [&] {
                      panel.selection().selectAll();
                      paint(panel);
                      if (panel.selection().songs().size() != panel.list()->count())
                          qFatal("Not all songs are selected.");
                  }));
    panel.selection().goToFirst();
    Bench::report("tables.key_ms", Bench::once([&] {
                                       for (int key = 0; key < 100; ++key) {
                                           panel.selection().scrollDown(1);
                                           paint(panel);
                                       }
                                   }) / 100);
    Bench::report("tables.page_key_ms",
                  Bench::once([&] {
                      for (int key = 0; key < 100; ++key) {
                          panel.selection().scrollDown(panel.selection().pageStep());
                          paint(panel);
                      }
                  }) / 100);
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    // The working directory holds the settings: the user's own stay untouched.
    const QTemporaryDir home;
    QDir::setCurrent(home.path());
    QFile(u"Tarvelo.ini"_s).open(QIODevice::WriteOnly);
    Settings::setValue(Settings::Key::MusicDir, u"/music"_s);
    const int count = Bench::count(10000);
    RecordLibrary library(count);
    const PlaylistPtr list(new PlaylistMaster(&library));
    list->refresh();
    SongManager manager;
    SongListPanel panel(SongListPanel::Side::Right, &manager);
    panel.setFontSize(20);
    panel.resize(1920, 980);
    panel.show();
    panel.setList(list);
    paint(panel);
    Bench::report("tables.songs", count);
    measure(panel);
}
