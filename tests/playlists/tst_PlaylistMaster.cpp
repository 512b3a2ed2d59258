#include "PlaylistMaster.h"

#include "TestLibrary.h"
#include "TestMain.h"

#include <QGuiApplication>

using namespace Qt::StringLiterals;

class TestPlaylistMaster : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void isTheLibrary();
    void showsTheSongsOfTheLastRefresh();
    void hasNoFile();
    void ignoresMoves();
    void ignoresChangesOfFiles();
    void addsToTheLibrary();
    void removesFromTheLibrary();
    void removesByIndex();

private:
    std::unique_ptr<TestLibrary> library;
    std::unique_ptr<PlaylistMaster> master;
};

void TestPlaylistMaster::init()
{
    library = std::make_unique<TestLibrary>();
    master = std::make_unique<PlaylistMaster>(library.get());
    for (const QString &path : {u"/m/a.mp3"_s, u"/m/b.mp3"_s, u"/m/c.mp3"_s})
        library->put(path);
    master->refresh();
}

void TestPlaylistMaster::isTheLibrary()
{
    QCOMPARE(master->name(), u"<Musikbibliothek>"_s);
    QVERIFY(master->isMaster());
    QCOMPARE(master->songManager(), library.get());
}

void TestPlaylistMaster::showsTheSongsOfTheLastRefresh()
{
    QCOMPARE(master->count(), 3);
    QCOMPARE(master->songs(), library->songs.values());
    library->put(u"/m/d.mp3"_s);
    QCOMPARE(master->count(), 3);
    master->refresh();
    QCOMPARE(master->songs(), library->songs.values());
}

void TestPlaylistMaster::hasNoFile()
{
    QCOMPARE(master->fullPath(), QString());
    QVERIFY(!master->isNew());
    QVERIFY(!master->isModified());
    QVERIFY(!master->load(u"/m/a.m3u8"_s));
    QVERIFY(!master->revert());
    QVERIFY(!master->saveAs(QDir::current().filePath(u"a.m3u8"_s)));
    QVERIFY(!QFile::exists(u"a.m3u8"_s));
    QVERIFY(!master->save());
    QVERIFY(!master->remove());
    QCOMPARE(master->count(), 3);
}

void TestPlaylistMaster::ignoresMoves()
{
    const QList<SongPtr> before = master->songs();
    master->moveTo(0, 2);
    master->moveUp(1, 2);
    master->moveDown(0, 2);
    QCOMPARE(master->songs(), before);
    QVERIFY(!master->isModified());
}

void TestPlaylistMaster::ignoresChangesOfFiles()
{
    master->removeSong(u"/m/a.mp3"_s);
    master->renameSong(u"/m/a.mp3"_s, u"/m/z.mp3"_s);
    QCOMPARE(master->count(), 3);
    QCOMPARE(library->calls, QStringList());
}

void TestPlaylistMaster::addsToTheLibrary()
{
    QVERIFY(master->add(u"/m/d.mp3"_s));
    QVERIFY(master->insert(u"/m/e.mp3"_s, -5));
    const QStringList calls{u"add /m/d.mp3"_s, u"add /m/e.mp3"_s};
    QCOMPARE(library->calls, calls);
}

void TestPlaylistMaster::removesFromTheLibrary()
{
    QVERIFY(master->removeEntry(u"/m/a.mp3"_s, true));
    QVERIFY(master->removeEntry(u"/m/b.mp3"_s, false));
    QVERIFY(!master->removeEntry(u"/m/b.mp3"_s, false));
    const QStringList calls{u"remove everywhere /m/a.mp3"_s, u"remove /m/b.mp3"_s,
                            u"remove /m/b.mp3"_s};
    QCOMPARE(library->calls, calls);
}

void TestPlaylistMaster::removesByIndex()
{
    const QString last = master->songs().at(2)->getFilename();
    QVERIFY(master->removeEntryAt(2, true));
    QCOMPARE(library->calls, QStringList(u"remove everywhere "_s + last));
    for (const int index : {-1, 3})
        QVERIFY(!master->removeEntryAt(index, true));
    QCOMPARE(library->calls.size(), 1);
}

TARVELO_TEST_MAIN(TestPlaylistMaster, QGuiApplication)
#include "tst_PlaylistMaster.moc"
