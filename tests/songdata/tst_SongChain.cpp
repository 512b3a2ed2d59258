#include "Song.h"

#include "SongFiles.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <id3v2tag.h>

class TestSongChain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void loadingAsksTheStoresInOrder_data();
    void loadingAsksTheStoresInOrder();
    void savingAsksTheStoresInOrder();
    void savingAnswersForTheMusicFile();
    void removingAsksTheStoresInOrder();
    void emptySlotsArePassedOver();
    void withoutAChainNothingIsLoadedOrSaved();
    void cachedTellsOfTheConstruction();
    void everyStoreSeesTheVersionThatIsWritten();
    void aFailedSaveKeepsTheVersion();
    void aRecordThatWasNeverLoadedIsNotSaved();
    void aRecordThatWasLoadedOnceIsSaved();
    void removingNothingFails();

private:
    void record(std::initializer_list<SongStoreSlot> answeringTrue);
    QDir files() const { return QDir(directory->path()); }

    std::unique_ptr<QTemporaryDir> directory;
    QStringList calls;
};

void TestSongChain::init()
{
    directory = std::make_unique<QTemporaryDir>();
    calls.clear();
    createSongStores();
}

void TestSongChain::cleanup()
{
    destroySongStores();
}

void TestSongChain::record(std::initializer_list<SongStoreSlot> answeringTrue)
{
    const QStringList names{u"database"_qs, u"null"_qs, u"cache"_qs, u"tags"_qs};
    for (int slot = 0; slot < SongStoreSlotCount; ++slot) {
        const bool answer = std::count(answeringTrue.begin(), answeringTrue.end(), slot) > 0;
        songStores()->slot.at(static_cast<size_t>(slot))
            = std::make_unique<RecordingStore>(names.at(slot), answer, calls);
    }
}

void TestSongChain::loadingAsksTheStoresInOrder_data()
{
    QTest::addColumn<int>("deliverer");
    QTest::addColumn<QStringList>("expected");
    QTest::addColumn<bool>("loaded");
    QTest::addColumn<bool>("cached");

    QTest::newRow("cache") << int(SongStoreCacheSlot)
                           << QStringList{u"load null"_qs, u"load cache"_qs} << true << true;
    QTest::newRow("tags") << int(SongStoreTagsSlot)
                          << QStringList{u"load null"_qs, u"load cache"_qs, u"load tags"_qs,
                                         u"save null"_qs, u"save cache"_qs, u"load database"_qs}
                          << true << false;
    QTest::newRow("nobody") << -1 << QStringList{u"load null"_qs, u"load cache"_qs, u"load tags"_qs}
                            << false << false;
}

void TestSongChain::loadingAsksTheStoresInOrder()
{
    QFETCH(int, deliverer);
    if (deliverer < 0)
        record({});
    else
        record({static_cast<SongStoreSlot>(deliverer)});
    Song song(SongFiles::tone(files()), false);
    QTEST(calls, "expected");
    calls.clear();
    bool cached = false;
    QTEST(song.load(&cached), "loaded");
    QTEST(cached, "cached");
    QTEST(calls, "expected");
    QTEST(song.reload(), "loaded");
}

void TestSongChain::savingAsksTheStoresInOrder()
{
    record({SongStoreTagsSlot});
    Song song(SongFiles::tone(files()), false);
    calls.clear();
    QVERIFY(song.save());
    const QStringList expected{u"save null"_qs, u"save cache"_qs, u"save database"_qs,
                               u"save tags"_qs};
    QCOMPARE(calls, expected);
}

void TestSongChain::savingAnswersForTheMusicFile()
{
    record({SongStoreDatabaseSlot, SongStoreNullSlot, SongStoreCacheSlot});
    const QString path = SongFiles::tone(files());
    Song song(path, false);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs
                                                           + QRegularExpression::escape(path)));
    QVERIFY(!song.save());
}

void TestSongChain::removingAsksTheStoresInOrder()
{
    record({});
    Song song(SongFiles::tone(files()), false);
    calls.clear();
    QVERIFY(song.removeFromDisk());
    const QStringList expected{u"remove null"_qs, u"remove cache"_qs, u"remove database"_qs,
                               u"remove tags"_qs};
    QCOMPARE(calls, expected);
}

void TestSongChain::emptySlotsArePassedOver()
{
    for (auto &store : songStores()->slot)
        store.reset();
    Song song(SongFiles::tone(files()), false);
    QVERIFY(!song.reload());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());
    QVERIFY(song.removeFromDisk());
}

void TestSongChain::withoutAChainNothingIsLoadedOrSaved()
{
    destroySongStores();
    QVERIFY(!songStores());
    Song song(SongFiles::tone(files()), false);
    QCOMPARE(song.getRating(), -1);
    QVERIFY(!song.reload());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());
}

void TestSongChain::cachedTellsOfTheConstruction()
{
    const QString path = SongFiles::tone(files());
    record({SongStoreCacheSlot});
    Song song(path, false);
    QVERIFY(song.isCached());
    record({SongStoreTagsSlot});
    QVERIFY(song.reload());
    QVERIFY(song.isCached());
    QVERIFY(!Song(path, false).isCached());
}

namespace {

class VersionStore : public SongStore
{
public:
    explicit VersionStore(QList<int> &list)
        : versions(list)
    { }
    bool load(Song &, const QFileInfo &) override { return true; }
    bool save(Song &song) override
    {
        versions.append(song.getVersionTag());
        return false;
    }
    bool remove(const Song &) override { return true; }

private:
    QList<int> &versions;
};

} // namespace

// The cache keeps what save() gives it; its positions are corrected already.
void TestSongChain::everyStoreSeesTheVersionThatIsWritten()
{
    QList<int> versions;
    songStores()->slot[SongStoreCacheSlot] = std::make_unique<VersionStore>(versions);
    Song song(SongFiles::tone(files()), false);
    QCOMPARE(song.getVersionTag(), 0);
    QVERIFY(song.save());
    QCOMPARE(versions, QList<int>{2});
    QCOMPARE(song.getVersionTag(), 2);
}

void TestSongChain::aFailedSaveKeepsTheVersion()
{
    QList<int> versions;
    songStores()->slot[SongStoreTagsSlot] = std::make_unique<VersionStore>(versions);
    Song song(SongFiles::tone(files()), false);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!song.save());
    QCOMPARE(versions, QList<int>{2});
    QCOMPARE(song.getVersionTag(), 0);
}

// The file came, or could be read, only after the record was made.
void TestSongChain::aRecordThatWasNeverLoadedIsNotSaved()
{
    const QString path = files().filePath(u"song.mp3"_qs);
    Song song(path, false);
    SongFiles::tone(files());
    SongFiles::edit(path, [](TagLib::ID3v2::Tag &tag) { tag.setTitle("title"); });
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    calls.clear();
    songStores()->slot[SongStoreCacheSlot]
        = std::make_unique<RecordingStore>(u"cache"_qs, false, calls);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs
                                                           + QRegularExpression::escape(path)));
    QVERIFY(!song.save());
    QCOMPARE(calls, QStringList());
    file.seek(0);
    QCOMPARE(file.readAll(), before);

    QVERIFY(song.reload());
    QCOMPARE(song.getTitle(), u"title"_qs);
    QVERIFY(song.save());
}

void TestSongChain::aRecordThatWasLoadedOnceIsSaved()
{
    Song song(SongFiles::tone(files()), false);
    const QString away = song.getFilename() + u".away"_qs;
    QVERIFY(QFile::rename(song.getFilename(), away));
    QVERIFY(!song.reload());
    QVERIFY(QFile::rename(away, song.getFilename()));
    song.setTitle(u"new"_qs);
    QVERIFY(song.save());
    QCOMPARE(Song(song.getFilename(), false).getTitle(), u"new"_qs);
}

void TestSongChain::removingNothingFails()
{
    record({});
    Song song(files().filePath(u"nothing.mp3"_qs), false);
    calls.clear();
    QVERIFY(!song.removeFromDisk());
    QCOMPARE(calls, QStringList());
}

TARVELO_TEST_MAIN(TestSongChain, QGuiApplication)
#include "tst_SongChain.moc"
