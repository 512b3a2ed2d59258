// How long finding songs takes with ten thousand of them: a key press in the search field, a filter
// of any column, a sort, the table on the screen, a long playlist.

#include "Bench.h"

#include <FilterSource.h>
#include <FilterTexts.h>
#include <FrozenTableView.h>
#include <PlaylistFile.h>
#include <PlaylistMaster.h>
#include <SearchText.h>
#include <Settings.h>
#include <SongListFilter.h>
#include <SongListFilterHandler.h>
#include <SongListPanel.h>
#include <SongListTableModel.h>
#include <SongManager.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int rounds = 9;
constexpr int playlistEntries = 5000;
constexpr int positionsOfSong = 24;
constexpr int eventsOfSong = 6;

const QStringList words{u"rocky"_s, u"top"_s,      u"Über"_s,  u"Fluss"_s,  u"double"_s,
                        u"fancy"_s, u"basic"_s,    u"step"_s,  u"triple"_s, u"turn"_s,
                        u"Élan"_s,  u"mountain"_s, u"chug"_s,  u"slur"_s,   u"cotton"_s,
                        u"eyed"_s,  u"Joe"_s,      u"train"_s, u"river"_s,  u"(down)"_s};

QString word(int number)
{
    return words.at(number % words.size());
}

// Songs without files, as full as those of a caller who has written up all dances.
class RecordLibrary : public SongLibrary
{
public:
    explicit RecordLibrary(int count)
    {
        for (int number = 0; number < count; ++number)
            insert(number, static_cast<int>(number * 7919LL % count));
    }
    SongPtr getSong(const QString &filename) const override { return songs.value(filename); }
    const QHash<QString, SongPtr> &getSongs() const override { return songs; }
    bool addSong(const QString &) override { return false; }
    bool removeSong(const QString &, bool) override { return false; }

private:
    void insert(int number, int mixed)
    {
        const QString path
            = u"/music/Clogging/%1/Song %2 %3.mp3"_s.arg(number % 100).arg(number).arg(word(mixed));
        const SongPtr song(new Song(path, false));
        describe(*song, mixed);
        for (int count = 0; count < positionsOfSong; ++count)
            song->getPositions().insert(
                count, Position(count * 4000, u"Part A"_s,
                                u"%1 %2, %3"_s.arg(word(mixed + count), word(mixed + 3 * count),
                                                   word(mixed * 7 + count))));
        for (int count = 0; count < eventsOfSong; ++count)
            song->getDanceEvents().append(std::make_shared<DanceEvent>(
                u"Training"_s, u"%1 %2"_s.arg(word(count + mixed)).arg(count), u"0"_s,
                QDateTime::fromSecsSinceEpoch(1700000000 + 86400LL * (mixed % 900 + count),
                                              Qt::UTC)));
        songs.insert(path, song);
    }
    static void describe(Song &song, int mixed)
    {
        song.setTitle(u"%1 den %2 %3"_s.arg(word(mixed), word(mixed / 7)).arg(mixed));
        song.setArtist(u"Artist %1"_s.arg(mixed % 700));
        song.setLevel(mixed % 2 == 0 ? u"Easy"_s : u"Intermediate-Advanced"_s);
        song.setBpm(QString::number(80 + mixed % 60));
        song.setGenre(mixed % 3 == 0 ? u"Bluegrass"_s : u"Pop"_s);
        song.setYear(QString::number(1950 + mixed % 75));
        song.setComment(u"%1, %2 - %3"_s.arg(word(mixed + 1), word(mixed + 5), word(mixed + 9)));
        song.setChoreographer(u"Choreographer %1"_s.arg(mixed % 90));
        song.setAlbum(u"Album %1"_s.arg(mixed % 900));
        song.setRatingStars(mixed % 6);
        song.setTempo(mixed % 20 - 10);
        song.setModified(QDateTime::fromSecsSinceEpoch(1700000000 + mixed * 5000LL, Qt::UTC));
    }

    QHash<QString, SongPtr> songs;
};

struct SearchField : FilterSource
{
    QString searchText() const override { return text; }
    TempoBorders tempoBorders() const override { return {85, 98, 112, 125}; }
    bool isStartingUp() const override { return false; }

    QString text;
};

// What somebody types, letter by letter, and takes away again.
QStringList keyPresses()
{
    QStringList texts;
    for (const QString &whole : {u"fancy double"_s, u"über fluss"_s, u"\"rocky top\" joe"_s,
                                 u"20231114T"_s, u"zebra"_s, u"artist 77"_s, u"song 123.mp3"_s})
        for (qsizetype length = 1; length <= whole.size(); ++length) {
            texts.append(whole.left(length));
            if (length == whole.size())
                texts.append(QString());
        }
    return texts;
}

// All that is searched of a song in one piece, as a search without any rules would have it.
QList<QByteArray> preparedTexts(const SongListTableModel &model)
{
    QList<QByteArray> texts;
    for (int row = 1; row < model.rowCount(); ++row) {
        std::string all;
        for (int column = 0; column < SongColumnCount; ++column)
            if (SongListTableModel::isSearchable(column))
                all += searchForm(model.index(row, column).data().toString()) + '\n';
        texts.append(QByteArray::fromStdString(all));
    }
    return texts;
}

double bareSearch(const QList<QByteArray> &texts, const QByteArray &wanted)
{
    qsizetype found = 0;
    const double time = Bench::onceOnProcessor([&] {
        for (const QByteArray &text : texts)
            found += text.indexOf(wanted) >= 0 ? 1 : 0;
    });
    Bench::check(found <= texts.size(), "More songs were found than there are.");
    return time;
}

void reportSearch(SongListPanel &panel, SearchField &field)
{
    const QList<QByteArray> texts = preparedTexts(*panel.model());
    QList<double> times;
    QList<double> ratios;
    for (const QString &text : keyPresses()) {
        field.text = text;
        times.append(Bench::onceOnProcessor([&] { panel.filter()->applyFilters(); }));
        // Painting may be as slow as it likes.
        QCoreApplication::processEvents();
        if (!text.isEmpty())
            ratios.append(times.constLast()
                          / bareSearch(texts, QByteArray::fromStdString(searchForm(text))));
    }
    Bench::check(panel.filter()->rowCount() == panel.model()->rowCount(), "Songs are missing.");
    Bench::report("library.search_ms.p50", Bench::median(times));
    Bench::report("library.search_ms.p95", Bench::percentile95(times));
    Bench::report("library.search.ratio", Bench::median(ratios));
}

QStringList filtersOf(const SongColumnRow &column)
{
    switch (column.column) {
    case BpmColumn:
        return FilterTexts::tempoBands();
    case FileDateColumn:
    case EventDateColumn:
        return FilterTexts::datePresets();
    case RatingColumn:
        return FilterTexts::ratings();
    case YearColumn:
        return {u"1960-1969"_s, u"2016"_s};
    case DirectoryColumn:
        return {u"/Clogging/7"_s};
    case LevelColumn:
        return {u"Easy"_s};
    default:
        break;
    }
    if (column.type == QMetaType::Bool)
        return {u"✓"_s, u"-"_s};
    return {u"1"_s, u"1"_s, u"tr"_s, u"fancy"_s, u"zebra"_s};
}

void reportFilters(SongListPanel &panel)
{
    QList<double> times;
    double longest = 0;
    const char *slowest = "";
    for (const SongColumnRow &column : songColumns()) {
        QStringList filters = filtersOf(column);
        filters.append(QString());
        for (const QString &text : std::as_const(filters)) {
            times.append(Bench::onceOnProcessor([&] {
                panel.model()->setFilterText(text, column.column);
                panel.filter()->applyFilters();
            }));
            QCoreApplication::processEvents();
            if (times.constLast() > longest)
                slowest = column.heading;
            longest = std::max(longest, times.constLast());
        }
    }
    Bench::report("library.filter_ms.p95", Bench::percentile95(times));
    Bench::report("library.filter_ms.max", longest);
    qDebug("The slowest filter is that of %s.", slowest);
}

void reportSort(SongListPanel &panel)
{
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        const auto order = round % 2 == 0 ? Qt::DescendingOrder : Qt::AscendingOrder;
        times.append(
            Bench::onceOnProcessor([&] { panel.table()->sortByColumn(TitleColumn, order); }));
    }
    Bench::report("library.sort_ms", Bench::median(times));
}

void reportPaint(SongListPanel &panel)
{
    QList<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(Bench::onceOnProcessor([&] { panel.table()->viewport()->repaint(); }));
    Bench::report("library.paint_ms", Bench::median(times));
}

void reportRefill(const SongListPanel &panel)
{
    QList<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(Bench::onceOnProcessor([&] { panel.filterRow()->handleModelChanged(); }));
    Bench::report("library.refill_ms", Bench::median(times));
}

// With every song in the library, and shown.
void reportPlaylist(SongListPanel &panel, RecordLibrary &library, const QString &file)
{
    QByteArray text("#EXTM3U\n");
    int written = 0;
    for (auto song = library.getSongs().cbegin();
         song != library.getSongs().cend() && written < playlistEntries; ++song, ++written)
        text += song.key().toUtf8() + '\n';
    QFile out(file);
    Bench::check(out.open(QIODevice::WriteOnly) && out.write(text) == text.size(),
                 "The playlist can't be written.");
    out.close();
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        const PlaylistPtr list(new PlaylistFile(&library));
        times.append(Bench::onceOnProcessor([&] {
            list->load(file);
            list->refresh();
            panel.setList(list);
        }));
        Bench::check(panel.filter()->rowCount() == written + 1, "Entries are missing.");
        QCoreApplication::processEvents();
    }
    Bench::report("library.playlist_load_ms", Bench::median(times));
}

} // namespace

int main(int argc, char *argv[])
{
    const QApplication application(argc, argv);
    QLocale::setDefault(QLocale(u"de_DE"_s));
    // The working directory holds the settings: the user's own stay untouched.
    const QTemporaryDir home;
    QDir::setCurrent(home.path());
    QFile(u"Tarvelo.ini"_s).open(QIODevice::WriteOnly);
    Settings::setValue(Settings::Key::MusicDir, u"/music"_s);
    RecordLibrary library(Bench::count(10000));
    const PlaylistPtr list(new PlaylistMaster(&library));
    list->refresh();
    SongManager manager;
    SearchField field;
    SongListPanel panel(SongListPanel::Side::Right, &manager);
    panel.filter()->setSource(&field);
    panel.setFontSize(20);
    panel.resize(1920, 980);
    panel.show();
    panel.setList(list);
    QCoreApplication::processEvents();
    Bench::report("library.songs", list->count());
    Bench::report("library.first_search_ms", Bench::onceOnProcessor([&] {
                      field.text = u"a"_s;
                      panel.filter()->applyFilters();
                  }));
    field.text.clear();
    panel.filter()->applyFilters();
    reportSearch(panel, field);
    reportFilters(panel);
    reportRefill(panel);
    reportSort(panel);
    reportPaint(panel);
    reportPlaylist(panel, library, home.filePath(u"long.m3u8"_s));
}
