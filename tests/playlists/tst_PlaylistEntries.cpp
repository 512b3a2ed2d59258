#include "PlaylistFile.h"

#include "TestLibrary.h"
#include "TestMain.h"

#include <QElapsedTimer>
#include <QGuiApplication>

#include <limits>

using namespace Qt::StringLiterals;

// What a playlist does to its entries, without a file.
class TestPlaylistEntries : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsSongsOfTheLibrary();
    void missingFilesStay();
    void aSongOutlivesItsLibrary();
    void anOldSongGoesWithARefresh();
    void adding();
    void inserting_data();
    void inserting();
    void insertingMany_data();
    void insertingMany();
    void manyAreCheap();
    void removesTheFirstOfEqualEntries();
    void removesByIndex_data();
    void removesByIndex();
    void movingOne_data();
    void movingOne();
    void movingUp_data();
    void movingUp();
    void movingDown_data();
    void movingDown();
    void aDeletedSongGoesFromAllPlaces();
    void aRenamedSongStays();
    void everyPartOfAnEntryIsRenamed();
    void aWorkingListIsNotSavedUnasked();
    void revertingEmptiesANewList();

private:
    void fill(const QString &names);
    QString names() const;
    void clean();

    std::unique_ptr<TestLibrary> library;
    std::unique_ptr<PlaylistFile> list;
};

void TestPlaylistEntries::init()
{
    library = std::make_unique<TestLibrary>();
    list = std::make_unique<PlaylistFile>(library.get());
}

// One entry a letter.
void TestPlaylistEntries::fill(const QString &names)
{
    for (const QChar name : names)
        QVERIFY(list->add(u"/m/"_s + name));
}

QString TestPlaylistEntries::names() const
{
    QString names;
    for (const SongPtr &song : list->songs())
        names += song->getFilename().last(1);
    return names;
}

// What a save under a name does to the flag, without the name.
void TestPlaylistEntries::clean()
{
    QVERIFY(list->saveAs(QDir::current().filePath(u"list.m3u8"_s)));
    QVERIFY(!list->isModified());
}

void TestPlaylistEntries::showsSongsOfTheLibrary()
{
    const SongPtr song = library->put(u"/m/a"_s);
    fill(u"aba"_s);
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->songs().at(0), song);
    QCOMPARE(list->songs().at(2), song);
    QVERIFY(!list->isMaster());
    QCOMPARE(list->songManager(), library.get());
}

void TestPlaylistEntries::missingFilesStay()
{
    fill(u"ab"_s);
    QCOMPARE(names(), u"ab"_s);
    QVERIFY(list->songs().at(0)->isMissingFile());
    QCOMPARE(list->songs().at(0)->getFilename(), u"/m/a"_s);
    QVERIFY(library->getSongs().isEmpty());
}

void TestPlaylistEntries::aSongOutlivesItsLibrary()
{
    const SongPtr song = library->put(u"/m/a"_s);
    fill(u"a"_s);
    library->songs.clear();
    QCOMPARE(list->songs().at(0), song);
}

void TestPlaylistEntries::anOldSongGoesWithARefresh()
{
    library->put(u"/m/a"_s);
    fill(u"ab"_s);
    library->songs.clear();
    const SongPtr late = library->put(u"/m/b"_s);
    list->refresh();
    QVERIFY(list->songs().at(0)->isMissingFile());
    QCOMPARE(list->songs().at(1), late);
}

void TestPlaylistEntries::adding()
{
    QVERIFY(!list->isModified());
    fill(u"a"_s);
    QVERIFY(list->isModified());
    fill(u"ba"_s);
    QCOMPARE(names(), u"aba"_s);
    QCOMPARE(library->calls, QStringList());
}

void TestPlaylistEntries::inserting_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("result");
    QTest::newRow("first") << 0 << u"xabc"_s;
    QTest::newRow("between") << 2 << u"abxc"_s;
    QTest::newRow("last") << 3 << u"abcx"_s;
    QTest::newRow("before the list") << -1 << u"abc"_s;
    QTest::newRow("behind the list") << 4 << u"abc"_s;
    QTest::newRow("far away") << std::numeric_limits<int>::max() << u"abc"_s;
}

void TestPlaylistEntries::inserting()
{
    QFETCH(int, index);
    QFETCH(QString, result);
    fill(u"abc"_s);
    clean();
    const bool changes = result.size() > 3;
    QCOMPARE(list->insert(u"/m/x"_s, index), changes);
    QCOMPARE(names(), result);
    QCOMPARE(list->isModified(), changes);
}

void TestPlaylistEntries::insertingMany_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("paths");
    const QStringList some{u"/m/x"_s, u"/m/y"_s, u"/m/x"_s};
    for (const int index : {-2, -1, 0, 1, 3, 4})
        QTest::addRow("%d", index) << index << some;
    QTest::newRow("none") << 1 << QStringList();
}

// As one after the other, from the last to the first.
void TestPlaylistEntries::insertingMany()
{
    QFETCH(int, index);
    QFETCH(QStringList, paths);
    library->put(u"/m/x"_s);
    PlaylistFile single(library.get());
    for (const QChar letter : u"abc"_s)
        single.add(u"/m/"_s + letter);
    fill(u"abc"_s);
    clean();
    bool expected = true;
    for (auto path = paths.crbegin(); path != paths.crend(); ++path)
        expected = single.insert(*path, index) && expected;
    QCOMPARE(list->insertAll(paths, index), expected);
    QStringList wanted;
    for (const SongPtr &song : single.songs())
        wanted.append(song->getFilename());
    QStringList found;
    for (const SongPtr &song : list->songs())
        found.append(song->getFilename());
    QCOMPARE(found, wanted);
    QCOMPARE(list->isModified(), expected && !paths.isEmpty());
}

// One by one this takes a minute.
void TestPlaylistEntries::manyAreCheap()
{
    QStringList paths;
    for (int number = 0; number < 10'000; ++number) {
        paths.append(u"/m/%1.mp3"_s.arg(number));
        library->put(paths.constLast());
    }
    QElapsedTimer clock;
    clock.start();
    QVERIFY(list->addAll(paths));
    QVERIFY2(clock.elapsed() < 2000, qPrintable(QString::number(clock.elapsed())));
    QCOMPARE(list->count(), 10'000);
    QCOMPARE(list->songs().constLast(), library->getSong(paths.constLast()));
}

void TestPlaylistEntries::removesTheFirstOfEqualEntries()
{
    fill(u"abaA"_s);
    clean();
    QVERIFY(list->removeEntry(u"/m/a"_s, false));
    QCOMPARE(names(), u"baA"_s);
    QVERIFY(list->isModified());
    QVERIFY(list->removeEntry(u"/m/A"_s, true));
    QCOMPARE(names(), u"ba"_s);
    clean();
    QVERIFY(!list->removeEntry(u"/m/z"_s, false));
    QVERIFY(!list->isModified());
    QCOMPARE(library->calls, QStringList());
}

void TestPlaylistEntries::removesByIndex_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("result");
    QTest::newRow("first") << 0 << u"ba"_s;
    QTest::newRow("last") << 2 << u"ab"_s;
    QTest::newRow("before the list") << -1 << u"aba"_s;
    QTest::newRow("behind the list") << 3 << u"aba"_s;
}

void TestPlaylistEntries::removesByIndex()
{
    QFETCH(int, index);
    QFETCH(QString, result);
    fill(u"aba"_s);
    clean();
    QCOMPARE(list->removeEntryAt(index, false), result.size() < 3);
    QCOMPARE(names(), result);
    QCOMPARE(list->isModified(), result.size() < 3);
}

void TestPlaylistEntries::movingOne_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("result");
    QTest::newRow("down") << 0 << 2 << u"bcad"_s;
    QTest::newRow("up") << 3 << 1 << u"adbc"_s;
    QTest::newRow("nowhere") << 1 << 1 << u"abcd"_s;
    QTest::newRow("from before the list") << -1 << 1 << QString();
    QTest::newRow("from behind the list") << 4 << 1 << QString();
    QTest::newRow("to before the list") << 1 << -1 << QString();
    QTest::newRow("to behind the list") << 1 << 4 << QString();
}

void TestPlaylistEntries::movingOne()
{
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, result);
    fill(u"abcd"_s);
    clean();
    list->moveTo(from, to);
    QCOMPARE(names(), result.isNull() ? u"abcd"_s : result);
    QCOMPARE(list->isModified(), !result.isNull());
}

// Without a result the move does nothing at all.
void TestPlaylistEntries::movingUp_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("result");
    QTest::newRow("one") << 2 << 1 << u"acbd"_s;
    QTest::newRow("block") << 1 << 2 << u"bcad"_s;
    QTest::newRow("all behind the first") << 1 << 3 << u"bcda"_s;
    QTest::newRow("last") << 3 << 1 << u"abdc"_s;
    QTest::newRow("none") << 1 << 0 << u"abcd"_s;
    QTest::newRow("less than none") << 1 << -1 << u"abcd"_s;
    QTest::newRow("first") << 0 << 1 << QString();
    QTest::newRow("before the list") << -1 << 1 << QString();
    QTest::newRow("behind the list") << 4 << 1 << QString();
    QTest::newRow("beyond the end") << 2 << 3 << QString();
    QTest::newRow("far beyond") << 1 << std::numeric_limits<int>::max() << QString();
    QTest::newRow("far before") << std::numeric_limits<int>::min() << 1 << QString();
    QTest::newRow("far less than none") << 1 << std::numeric_limits<int>::min() << u"abcd"_s;
}

void TestPlaylistEntries::movingUp()
{
    QFETCH(int, index);
    QFETCH(int, count);
    QFETCH(QString, result);
    fill(u"abcd"_s);
    clean();
    list->moveUp(index, count);
    QCOMPARE(names(), result.isNull() ? u"abcd"_s : result);
    QCOMPARE(list->isModified(), !result.isNull());
}

void TestPlaylistEntries::movingDown_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("result");
    QTest::newRow("one") << 1 << 1 << u"acbd"_s;
    QTest::newRow("first") << 0 << 1 << u"bacd"_s;
    QTest::newRow("block") << 1 << 2 << u"adbc"_s;
    QTest::newRow("all before the last") << 0 << 3 << u"dabc"_s;
    QTest::newRow("none") << 2 << 0 << u"abcd"_s;
    QTest::newRow("less than none") << 0 << -1 << u"abcd"_s;
    QTest::newRow("last") << 3 << 1 << QString();
    QTest::newRow("last, none") << 3 << 0 << QString();
    QTest::newRow("before the list") << -1 << 1 << QString();
    QTest::newRow("block with the last") << 2 << 2 << QString();
    QTest::newRow("beyond the end") << 1 << 4 << QString();
    QTest::newRow("far beyond") << 0 << std::numeric_limits<int>::max() << QString();
    QTest::newRow("far behind") << std::numeric_limits<int>::max() << 1 << QString();
    QTest::newRow("far less than none") << 0 << std::numeric_limits<int>::min() << u"abcd"_s;
}

void TestPlaylistEntries::movingDown()
{
    QFETCH(int, index);
    QFETCH(int, count);
    QFETCH(QString, result);
    fill(u"abcd"_s);
    clean();
    list->moveDown(index, count);
    QCOMPARE(names(), result.isNull() ? u"abcd"_s : result);
    QCOMPARE(list->isModified(), !result.isNull());
}

void TestPlaylistEntries::aDeletedSongGoesFromAllPlaces()
{
    fill(u"abaA"_s);
    list->removeSong(u"/m/a"_s);
    QCOMPARE(names(), u"bA"_s);
    list->removeSong(u"/m/z"_s);
    QCOMPARE(names(), u"bA"_s);
}

void TestPlaylistEntries::aRenamedSongStays()
{
    fill(u"abaA"_s);
    list->renameSong(u"/m/a"_s, u"/n/c"_s);
    QCOMPARE(names(), u"cbcA"_s);
    QCOMPARE(list->songs().at(0)->getFilename(), u"/n/c"_s);
    list->renameSong(u"/m/z"_s, u"/m/y"_s);
    QCOMPARE(names(), u"cbcA"_s);
}

void TestPlaylistEntries::everyPartOfAnEntryIsRenamed()
{
    for (const QString &entry : {u"/m/a"_s, u"/m/a/b"_s, u"/M/a"_s})
        list->add(entry);
    list->renameSong(u"/m/a"_s, u"/n"_s);
    QCOMPARE(list->songs().at(0)->getFilename(), u"/n"_s);
    QCOMPARE(list->songs().at(1)->getFilename(), u"/n/b"_s);
    QCOMPARE(list->songs().at(2)->getFilename(), u"/M/a"_s);
}

void TestPlaylistEntries::aWorkingListIsNotSavedUnasked()
{
    fill(u"ab"_s);
    list->removeSong(u"/m/a"_s);
    list->renameSong(u"/m/b"_s, u"/m/c"_s);
    QCOMPARE(names(), u"c"_s);
    QVERIFY(list->isNew());
    QVERIFY(list->isModified());
}

void TestPlaylistEntries::revertingEmptiesANewList()
{
    fill(u"ab"_s);
    QVERIFY(list->revert());
    QCOMPARE(list->count(), 0);
    QVERIFY(!list->isModified());
    QVERIFY(list->revert());
}

TARVELO_TEST_MAIN(TestPlaylistEntries, QGuiApplication)
#include "tst_PlaylistEntries.moc"
