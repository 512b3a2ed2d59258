#include "SongListFilter.h"

#include "../playlists/TestLibrary.h"
#include "LevelKey.h"
#include "Settings.h"
#include "SongListTableModel.h"
#include "SongManager.h"
#include "TestMain.h"

#include <QAbstractItemModelTester>
#include <QElapsedTimer>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

// The order of what a view shows of a song table.
class TestSongListFilter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void levelsByDifficulty();
    void orders_data();
    void orders();
    void lengthsBeyondAnHour();
    void datesByTheirTime();
    void theFilterRowStaysOnTop_data();
    void theFilterRowStaysOnTop();
    void theFilterRowHasAPlaceInTheOrder();
    void aPlaylistKeepsItsOrder();
    void aSongThatChangesFindsItsPlace();
    void totalLength();
    void songsAreFound();
    void tenThousandSongsSortAtOnce_data();
    void tenThousandSongsSortAtOnce();

private:
    SongPtr song(const QString &name);
    QString names() const;
    QStringList column(int number) const;

    QTemporaryDir music;
    std::unique_ptr<SongManager> manager;
    std::unique_ptr<SongListTableModel> model;
    std::unique_ptr<SongListFilter> filter;
};

void TestSongListFilter::init()
{
    QLocale::setDefault(QLocale(u"de_DE"_s));
    Settings::setValue(Settings::Key::MusicDir, music.path());
    manager = std::make_unique<SongManager>();
    model = std::make_unique<SongListTableModel>(manager.get());
    model->setPlaylist(manager->getMasterList());
    filter = std::make_unique<SongListFilter>(model.get(), true);
    new QAbstractItemModelTester(
        filter.get(), QAbstractItemModelTester::FailureReportingMode::QtTest, filter.get());
}

void TestSongListFilter::cleanup()
{
    filter.reset();
    model.reset();
    manager.reset();
}

SongPtr TestSongListFilter::song(const QString &name)
{
    const QString path = music.filePath(name);
    manager->addSong(path);
    return manager->getSong(path);
}

QStringList TestSongListFilter::column(int number) const
{
    QStringList texts;
    for (int row = 1; row < filter->rowCount(); ++row)
        texts.append(filter->index(row, number).data().toString());
    return texts;
}

QString TestSongListFilter::names() const
{
    QString all;
    for (int row = 1; row < filter->rowCount(); ++row)
        all.append(QFileInfo(filter->song(row)->getFilename()).fileName());
    return all;
}

void TestSongListFilter::levelsByDifficulty()
{
    const QStringList levels{u"Warmup"_s,       u"Intro"_s,
                             u"Beginner"_s,     u"Basic"_s,
                             u"easy"_s,         u"Easy-Intermediate"_s,
                             u"Intermediate"_s, u"High Intermediate"_s,
                             u"Advanced"_s};
    for (int number = 0; number < levels.size(); ++number)
        QCOMPARE(levelKey(levels.at(number)), u" %1%2"_s.arg(number + 1).arg(levels.at(number)));
    QCOMPARE(levelKey(u"Intermediate-Advanced"_s), u" 8Intermediate-Advanced"_s);
    QCOMPARE(levelKey(u"INTERMEDIATE+"_s), u" 8INTERMEDIATE+"_s);
    QCOMPARE(levelKey(u"Expert"_s), u"Expert"_s);
    QCOMPARE(levelKey({}), QString());
}

void TestSongListFilter::orders_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariantList>("values"); // in ascending order
    const auto row
        = [](const char *name, int column, const char *property, const QVariantList &values) {
              QTest::newRow(name) << column << QByteArray(property) << values;
          };
    row("titles", TitleColumn, "title",
        {u"Äpfel"_s, u"apple"_s, u"apple pie"_s, u"Banjo"_s, u"cotton"_s, u"Zebra"_s});
    row("titles with signs", TitleColumn, "title", {u"(I"_s, u"1999"_s, u"Élan"_s, u"Elanor"_s});
    row("levels", LevelColumn, "level",
        {QString(), u"Warmup"_s, u"Basic"_s, u"Easy"_s, u"Easy-Intermediate"_s, u"Intermediate"_s,
         u"High Intermediate"_s, u"Advanced"_s, u"A1"_s, u"Expert"_s});
    row("beats", BpmColumn, "bpm", {u"0"_s, u"60"_s, u"99"_s, u"120"_s});
    row("years", YearColumn, "year", {QString(), u"1999"_s, u"2016"_s});
    row("tempos", LastTempoColumn, "tempo", {-10.0, -9.5, 0.0, 0.5, 5.0, 11.0});
    row("marks", SelectedColumn, "selected", {false, true});
    row("stars", RatingColumn, "rating_stars", {0, 1, 3, 5});
    row("tracks", TrackNumberColumn, "tracknum", {QString(), u"2"_s, u"10"_s});
    row("versions", PositionsVersionColumn, "version_pos", {0, 2, 10});
}

void TestSongListFilter::orders()
{
    QFETCH(int, column);
    QFETCH(QByteArray, property);
    QFETCH(QVariantList, values);
    QStringList ascending;
    for (int number = 0; number < values.size(); ++number) {
        const SongPtr one = song(QString::number((number * 7 + 3) % 100));
        QVERIFY(one->setProperty(property.constData(), values.at(number)));
        ascending.append(one->getFilename());
    }
    const auto files = [this] {
        QStringList all;
        for (int row = 1; row < filter->rowCount(); ++row)
            all.append(filter->song(row)->getFilename());
        return all;
    };
    filter->sort(column, Qt::AscendingOrder);
    QCOMPARE(files(), ascending);
    std::reverse(ascending.begin(), ascending.end());
    filter->sort(column, Qt::DescendingOrder);
    QCOMPARE(files(), ascending);
}

void TestSongListFilter::lengthsBeyondAnHour()
{
    const QList<int> lengths{0, 59, 125, 1500, 3725, 36000};
    for (const int seconds : {3725, 125, 36000, 59, 1500, 0})
        song(QString::number(seconds))->setPlayLength(seconds);
    filter->sort(LengthColumn);
    QCOMPARE(column(LengthColumn), (QStringList{QString(), u"0:59"_s, u"2:05"_s, u"25:00"_s,
                                                u"1:02:05"_s, u"10:00:00"_s}));
}

void TestSongListFilter::datesByTheirTime()
{
    const QDateTime noon(QDate(2024, 10, 27), QTime(0, 30), Qt::UTC);
    song(u"c"_s)->setModified(noon.addSecs(3600)); // local time turns back here
    song(u"a"_s);
    song(u"d"_s)->setModified(noon.addDays(1));
    song(u"b"_s)->setModified(noon);
    filter->sort(FileDateColumn);
    QCOMPARE(names(), u"abcd"_s);
    filter->sort(FileDateColumn, Qt::DescendingOrder);
    QCOMPARE(names(), u"dcba"_s);
}

void TestSongListFilter::theFilterRowStaysOnTop_data()
{
    QTest::addColumn<int>("column");
    for (int column = 0; column < SongColumnCount; ++column)
        QTest::newRow(songColumn(column)->heading) << column;
}

void TestSongListFilter::theFilterRowStaysOnTop()
{
    QFETCH(int, column);
    for (const QString &name : {u"b"_s, u"a"_s, u"c"_s})
        song(name)->setBpm(u"120"_s);
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        filter->sort(column, order);
        QCOMPARE(filter->index(0, 0).data(Qt::UserRole), QVariant(-1));
        model->setFilterText(u"zzz"_s, column);
        QCOMPARE(filter->index(0, 0).data(Qt::UserRole), QVariant(-1));
        song(u"more %1"_s.arg(order));
        QCOMPARE(filter->index(0, 0).data(Qt::UserRole), QVariant(-1));
        filter->invalidate();
        QCOMPARE(filter->index(0, 0).data(Qt::UserRole), QVariant(-1));
    }
}

// A sort may compare any two rows, and both ways round.
void TestSongListFilter::theFilterRowHasAPlaceInTheOrder()
{
    struct Filter : SongListFilter
    {
        using SongListFilter::lessThan;
        using SongListFilter::SongListFilter;
    } sorted(model.get(), true);
    song(u"a"_s);
    const QModelIndex row = model->index(0, TitleColumn);
    const QModelIndex other = model->index(1, TitleColumn);
    sorted.sort(TitleColumn, Qt::AscendingOrder);
    QVERIFY(sorted.lessThan(row, other));
    QVERIFY(!sorted.lessThan(other, row));
    sorted.sort(TitleColumn, Qt::DescendingOrder);
    QVERIFY(!sorted.lessThan(row, other));
    QVERIFY(sorted.lessThan(other, row));
    QVERIFY(!sorted.lessThan(row, row));
}

void TestSongListFilter::aPlaylistKeepsItsOrder()
{
    filter->sort(TitleColumn);
    const PlaylistPtr list(new PlaylistFile(manager.get()));
    for (const QString &name : {u"b"_s, u"c"_s, u"a"_s})
        list->add(song(name)->getFilename());
    QCOMPARE(names(), u"abc"_s);
    filter->sort(-1);
    model->setPlaylist(list);
    QCOMPARE(names(), u"bca"_s);
    filter->sort(TitleColumn);
    QCOMPARE(names(), u"bca"_s);
    model->moveRowsUp(3, 1);
    QCOMPARE(names(), u"bac"_s);
    model->setPlaylist(manager->getMasterList());
    filter->sort(TitleColumn, Qt::DescendingOrder);
    QCOMPARE(names(), u"cba"_s);
}

void TestSongListFilter::aSongThatChangesFindsItsPlace()
{
    for (const QString &name : {u"a"_s, u"b"_s, u"c"_s})
        song(name)->setBpm(u"100"_s);
    song(u"b"_s)->setBpm(u"90"_s);
    filter->sort(BpmColumn);
    QCOMPARE(names().front(), u'b');
    song(u"c"_s)->setBpm(u"80"_s);
    filter->invalidate();
    QCOMPARE(names().front(), u'c');
    song(u"a"_s)->setBpm(u"70"_s);
    model->refresh();
    QCOMPARE(names(), u"acb"_s);
}

void TestSongListFilter::totalLength()
{
    QCOMPARE(filter->totalPlaylength(), 0);
    song(u"a"_s)->setPlayLength(100);
    song(u"b"_s)->setPlayLength(25);
    QCOMPARE(filter->totalPlaylength(), 125);
    model->setPlaylist({});
    QCOMPARE(filter->totalPlaylength(), 0);
}

void TestSongListFilter::songsAreFound()
{
    const SongPtr a = song(u"a"_s);
    const SongPtr b = song(u"b"_s);
    filter->sort(TitleColumn, Qt::DescendingOrder);
    QCOMPARE(filter->song(1), b);
    QCOMPARE(filter->rowOf(a), 2);
    QCOMPARE(filter->rowOf({}), -1);
    QCOMPARE(filter->rowOf(SongPtr(new Song(music.filePath(u"a"_s), false))), -1);
    for (const int row : {-1, 0, 3})
        QVERIFY(!filter->song(row));
}

void TestSongListFilter::tenThousandSongsSortAtOnce_data()
{
    QTest::addColumn<int>("column");
    for (const int column : {TitleColumn, LevelColumn, BpmColumn, FileDateColumn, LastTempoColumn,
                             EventCountColumn, DirectoryColumn})
        QTest::newRow(songColumn(column)->heading) << column;
}

void TestSongListFilter::tenThousandSongsSortAtOnce()
{
    QFETCH(int, column);
    TestLibrary library;
    for (int number = 0; number < 10000; ++number) {
        const SongPtr one = library.put(music.filePath(u"%1/%2"_s.arg(number % 50).arg(number)));
        one->setTitle(u"Song %1"_s.arg(number * 7919 % 10000));
        one->setTempo(number * 31 % 40 - 20);
        one->setModified(
            QDateTime::fromSecsSinceEpoch(1600000000 + number * 7919 % 10000, Qt::UTC));
    }
    const PlaylistPtr list(new PlaylistMaster(&library));
    list->refresh();
    model->setPlaylist(list);
    SongListFilter sorted(model.get(), true);
    QElapsedTimer timer;
    timer.start();
    sorted.sort(column, Qt::DescendingOrder);
    // A tenth of it on a quiet machine.
    QVERIFY2(timer.elapsed() < 1500, qPrintable(QString::number(timer.elapsed())));
    qDebug() << timer.elapsed() << "ms";
    QCOMPARE(sorted.rowCount(), 10001);
    QCOMPARE(sorted.index(0, 0).data(Qt::UserRole), QVariant(-1));
    model->setPlaylist({});
}

TARVELO_TEST_MAIN(TestSongListFilter, QGuiApplication)
#include "tst_SongListFilter.moc"
