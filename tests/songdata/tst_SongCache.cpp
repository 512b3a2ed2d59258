#include "PlatformFiles.h"
#include "Song.h"

#include "CacheBytes.h"
#include "FileTools.h"
#include "LogCapture.h"
#include "Settings.h"
#include "SongFiles.h"
#include "SongStoreCache.h"
#include "TestMain.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSqlDatabase>

#include <id3v2tag.h>
#include <synchronizedlyricsframe.h>

namespace {

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QDateTime timeOf(const QString &path)
{
    return QFileInfo(path).lastModified();
}

void setTime(const QString &path, const QDateTime &time)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(Platform::setFileTime(file, time));
}

qint64 peakMemoryKb()
{
    for (const QByteArray &line : content(u"/proc/self/status"_qs).split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).simplified().split(' ').first().toLongLong();
    }
    return 0;
}

} // namespace

class TestSongCache : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theNameIsTheHashOfThePath();
    void theFileHoldsTheFieldsInOrder();
    void theFieldsAreReadFromTheFile();
    void onlyANewerFileIsTaken_data();
    void onlyANewerFileIsTaken();
    void anotherFormatIsReplaced_data();
    void anotherFormatIsReplaced();
    void hugeNumbersCostNothing_data();
    void hugeNumbersCostNothing();
    void aReadOnlyDirectoryIsTolerated();
    void withoutADirectoryNothingIsWritten();
    void theMusicDirectoryCanHoldTheCache();
    void anOlderCopyOfTheMusicKeepsTheCache();
    void tagsLiveInTheCacheAlone();
    void aSavedSongIsReadFromItsTagOnce();
    void afterAFailedSaveTheFileCounts_data();
    void afterAFailedSaveTheFileCounts();
    void whatCanNotBeReplacedIsRemoved();
    void whatCanNotBeDatedIsRemoved();
    void aReloadLeavesCountDownsThatNoFileHas_data();
    void aReloadLeavesCountDownsThatNoFileHas();
    void oldPositionsMoveOnce();
    void removingASongRemovesItsFile();
    void leftOversAreWrittenOverAndCleared();
    void theConnectionIsOpen();

private:
    QDir files() const { return QDir(directory->path()); }
    QString cacheFile() const { return cacheDir + u'/' + SongStoreCache::fileNameFor(song); }
    void useCache(const QString &path);
    void putCache(const QByteArray &bytes) const;
    void makeFullSong() const;

    std::unique_ptr<QTemporaryDir> directory;
    QString cacheDir;
    QString song;
};

void TestSongCache::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(files().mkpath(u"cache"_qs));
    useCache(files().filePath(u"cache"_qs));
    song = SongFiles::tone(files());
    setTime(song, QDateTime::currentDateTime().addSecs(-3600));
}

void TestSongCache::cleanup()
{
    destroySongStores();
}

void TestSongCache::useCache(const QString &path)
{
    cacheDir = path;
    Settings::setValue(Settings::Key::CacheDir, path);
    createSongStores();
}

void TestSongCache::putCache(const QByteArray &bytes) const
{
    QFile file(cacheFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

// Its file holds what a Record does, and its time lies an hour back.
void TestSongCache::makeFullSong() const
{
    putCache(Record().bytes());
    Song full(song, false);
    QVERIFY(full.isCached());
    full.setFrequency(0);
    QVERIFY(full.save());
    setTime(song, QDateTime::currentDateTime().addSecs(-3600));
    QFile::remove(cacheFile());
}

void TestSongCache::theNameIsTheHashOfThePath()
{
    // echo -n … | md5sum
    QCOMPARE(SongStoreCache::fileNameFor(u"/music/Grüße.mp3"_qs),
             u"6cb1051de7ce4f7742bdfd6eca962838"_qs);
    const Song loaded(song, false);
    QCOMPARE(QDir(cacheDir).entryList(QDir::Files), QStringList{QFileInfo(cacheFile()).fileName()});
}

void TestSongCache::theFileHoldsTheFieldsInOrder()
{
    makeFullSong();
    const Song loaded(song, false);
    QVERIFY(!loaded.isCached());
    Record expected;
    expected.channels = 2;
    expected.length = loaded.getPlayLength();
    expected.tail[1].clear();
    // The tags keep no null texts.
    expected.tail[1] = QString();
    QCOMPARE(content(cacheFile()).toHex(' '), expected.bytes().toHex(' '));
    QVERIFY(timeOf(cacheFile()) > timeOf(song));
}

void TestSongCache::theFieldsAreReadFromTheFile()
{
    putCache(Record().bytes());
    const Song loaded(song, false);
    QVERIFY(loaded.isCached());
    QCOMPARE(loaded.getAdaptedBy(), u"adapted"_qs);
    QCOMPARE(loaded.getBpm(), u"120"_qs);
    QCOMPARE(loaded.getFrequency(), 44100);
    QCOMPARE(loaded.getLastPitch(), u"1.5"_qs);
    QCOMPARE(loaded.getLastTempo(), u"-2.5"_qs);
    QCOMPARE(loaded.getLastVolume(), u"0.5"_qs);
    QCOMPARE(loaded.getLevel(), u"Advanced"_qs);
    QCOMPARE(loaded.getChannels(), 2);
    QCOMPARE(loaded.getPlayLength(), 71);
    QCOMPARE(loaded.getRating(), 196);
    QCOMPARE(loaded.getTags(), u"tags"_qs);
    QCOMPARE(loaded.getYear(), u"1999"_qs);
    QCOMPARE(loaded.getVersionTag(), 2);
    QCOMPARE(loaded.getPositions().count(), 2);
    QCOMPARE(loaded.getPositions().at(0), Record().positions.at(0));
    QCOMPARE(loaded.getCuesheetData(), Record().document);
    QCOMPARE(loaded.getDanceEvents().toCacheText(), Record().events);
    QCOMPARE(loaded.getCountDowns().toText(), Record().countdowns);
    QCOMPARE(loaded.getIswcId(), u"T-000"_qs);
}

void TestSongCache::onlyANewerFileIsTaken_data()
{
    QTest::addColumn<int>("laterMs");
    QTest::addColumn<bool>("taken");
    QTest::newRow("older") << -1 << false;
    QTest::newRow("equal") << 0 << false;
    QTest::newRow("newer") << 1 << true;
    QTest::newRow("newer by the coarsest step") << 2000 << true;
}

void TestSongCache::onlyANewerFileIsTaken()
{
    QFETCH(int, laterMs);
    putCache(Record().bytes());
    const QDateTime later = timeOf(song).addMSecs(laterMs);
    setTime(cacheFile(), later);
    if (timeOf(cacheFile()).toMSecsSinceEpoch() != later.toMSecsSinceEpoch())
        QSKIP("This file system has no times as fine as that.");
    QTEST(Song(song, false).isCached(), "taken");
    QVERIFY(Song(song, false).isCached());
}

void TestSongCache::anotherFormatIsReplaced_data()
{
    QTest::addColumn<quint32>("magic");
    QTest::addColumn<quint32>("version");
    QTest::newRow("version 14") << 0xAADDBBCCU << 14U;
    QTest::newRow("version 16") << 0xAADDBBCCU << 16U;
    QTest::newRow("magic") << 0xCCBBDDAAU << 15U;
}

void TestSongCache::anotherFormatIsReplaced()
{
    QFETCH(quint32, magic);
    QFETCH(quint32, version);
    Record record;
    record.magic = magic;
    record.version = version;
    putCache(record.bytes());
    const Song first(song, false);
    QVERIFY(!first.isCached());
    QCOMPARE(first.getTitle(), QString());
    QVERIFY(content(cacheFile()).startsWith(QByteArray::fromHex("AADDBBCC0000000F")));
    QVERIFY(Song(song, false).isCached());
}

void TestSongCache::hugeNumbersCostNothing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qint64>("size");
    Record many;
    many.count = 0xFFFFFFFF;
    QTest::newRow("positions") << many.bytes() << qint64(0);
    QByteArray text = Record().bytes();
    text.replace(8, 4, QByteArray::fromHex("7FFFFFFE"));
    QTest::newRow("text") << text << qint64(0);
    Record big;
    QByteArray bytes = big.bytes();
    const qsizetype at = bytes.indexOf(big.document) - 4;
    bytes.replace(at, 4, QByteArray::fromHex("7FFFFFFF"));
    QTest::newRow("document") << bytes << qint64(0);
    QTest::newRow("document that is there") << bytes << (qint64(3) << 30);
}

void TestSongCache::hugeNumbersCostNothing()
{
    QFETCH(QByteArray, bytes);
    QFETCH(qint64, size);
    putCache(bytes);
    if (size > 0)
        if (!QFile::resize(cacheFile(), size))
            QSKIP("This file system has no files with holes.");
    const qint64 before = peakMemoryKb();
    QElapsedTimer timer;
    timer.start();
    const Song loaded(song, false);
    QVERIFY(loaded.isCached());
    QVERIFY(loaded.isIncomplete());
    QVERIFY(timer.elapsed() < 1000);
    QVERIFY(peakMemoryKb() - before < 32768);
}

void TestSongCache::aReadOnlyDirectoryIsTolerated()
{
    QVERIFY(QFile::setPermissions(cacheDir, QFile::ReadOwner | QFile::ExeOwner));
    if (QFileInfo(cacheDir).isWritable())
        QSKIP("To this user no directory is read-only.");
    LogCapture log;
    Song loaded(song, false);
    loaded.setTitle(u"title"_qs);
    QVERIFY(loaded.save());
    QCOMPARE(log.count(QString()), 0);
    QVERIFY(QDir(cacheDir).isEmpty());
    QFile::setPermissions(cacheDir, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void TestSongCache::withoutADirectoryNothingIsWritten()
{
    useCache(QString());
    const QStringList before = QDir::current().entryList();
    Song loaded(song, false);
    QVERIFY(loaded.save());
    QCOMPARE(QDir::current().entryList(), before);
    QVERIFY(!QFile::exists(u'/' + SongStoreCache::fileNameFor(song)));
    QVERIFY(files().entryList(QDir::Files) == QStringList{u"song.mp3"_qs});
    QVERIFY(!Song(song, false).isCached());
}

void TestSongCache::theMusicDirectoryCanHoldTheCache()
{
    useCache(directory->path());
    QVERIFY(!Song(song, false).isCached());
    QVERIFY(QFile::exists(cacheFile()));
    QVERIFY(Song(song, false).isCached());
    removeCacheFiles(cacheDir);
    QCOMPARE(files().entryList(QDir::Files), QStringList{u"song.mp3"_qs});
}

void TestSongCache::anOlderCopyOfTheMusicKeepsTheCache()
{
    putCache(Record().bytes());
    setTime(song, timeOf(song).addDays(-1));
    QCOMPARE(Song(song, false).getTitle(), u"title"_qs);
    QVERIFY(QFile::remove(cacheFile()));
    QCOMPARE(Song(song, false).getTitle(), QString());
}

void TestSongCache::tagsLiveInTheCacheAlone()
{
    putCache(Record().bytes());
    Song loaded(song, false);
    QCOMPARE(loaded.getTags(), u"tags"_qs);
    QVERIFY(loaded.save());
    QCOMPARE(Song(song, false).getTags(), QString());
}

void TestSongCache::aSavedSongIsReadFromItsTagOnce()
{
    QVERIFY(!Song(song, false).isCached());
    Song loaded(song, false);
    QVERIFY(loaded.isCached());
    const QDateTime before = timeOf(song);
    loaded.setTitle(u"new"_qs);
    QVERIFY(loaded.save());
    QVERIFY(timeOf(cacheFile()) <= before);
    QVERIFY(content(cacheFile()).contains(QByteArray::fromHex("00000006006e00650077")));
    setTime(song, before.addSecs(1));
    QVERIFY(!Song(song, false).isCached());
    const Song again(song, false);
    QVERIFY(again.isCached());
    QCOMPARE(again.getTitle(), u"new"_qs);
}

void TestSongCache::afterAFailedSaveTheFileCounts_data()
{
    QTest::addColumn<int>("ageSeconds");
    QTest::newRow("an hour ago") << 3600;
    QTest::newRow("just now") << 0;
    QTest::newRow("tomorrow") << -86400;
    QTest::newRow("1970") << int(QDateTime::currentSecsSinceEpoch());
}

void TestSongCache::afterAFailedSaveTheFileCounts()
{
    QFETCH(int, ageSeconds);
    SongFiles::edit(song, [](TagLib::ID3v2::Tag &tag) {
        auto *frame = new TagLib::ID3v2::SynchronizedLyricsFrame;
        TagLib::ID3v2::SynchronizedLyricsFrame::SynchedTextList texts;
        texts.append(TagLib::ID3v2::SynchronizedLyricsFrame::SynchedText(500, "A\tTriple"));
        frame->setSynchedText(texts);
        tag.addFrame(frame);
    });
    setTime(song, QDateTime::currentDateTime().addSecs(-ageSeconds));
    const QDateTime before = timeOf(song);
    Song loaded(song, false);
    QCOMPARE(loaded.getPositions().at(0).getTime(), -300);
    QStringList calls;
    songStores()->slot[SongStoreTagsSlot]
        = std::make_unique<RecordingStore>(u"tags"_qs, false, calls);
    loaded.setTitle(u"new"_qs);
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!loaded.save());
    QVERIFY(timeOf(cacheFile()) <= before);
    createSongStores();
    for (int start = 0; start < 3; ++start) {
        const Song again(song, false);
        QCOMPARE(again.getTitle(), QString());
        QCOMPARE(again.getPositions().at(0).getTime(), -300);
    }
}

void TestSongCache::whatCanNotBeReplacedIsRemoved()
{
    QVERIFY(!Song(song, false).isCached());
    Song loaded(song, false);
    QVERIFY(loaded.isCached());
    QVERIFY(QDir().mkdir(cacheFile() + u".new"_qs));
    loaded.setTitle(u"new"_qs);
    QVERIFY(loaded.save());
    QVERIFY(!QFile::exists(cacheFile()));
}

// A music file from before all times that this file system knows.
void TestSongCache::whatCanNotBeDatedIsRemoved()
{
    const QDateTime early(QDate(1700, 1, 1), QTime(0, 0), Qt::UTC);
    Song loaded(song, false);
    QVERIFY(QFile::exists(cacheFile()));
    setTime(cacheFile(), early);
    if (timeOf(cacheFile()) <= early)
        QSKIP("This file system holds any time.");
    loaded.setModified(early);
    QVERIFY(loaded.save());
    QVERIFY(!QFile::exists(cacheFile()));
}

void TestSongCache::aReloadLeavesCountDownsThatNoFileHas_data()
{
    QTest::addColumn<bool>("cached");
    QTest::newRow("cache") << true;
    QTest::newRow("tag") << false;
}

void TestSongCache::aReloadLeavesCountDownsThatNoFileHas()
{
    QFETCH(bool, cached);
    Song loaded(song, false);
    loaded.getCountDowns().addNew();
    loaded.getPositions().insert(0, Position(1, u"A"_qs, u"Step"_qs));
    loaded.getDanceEvents().addPlay(0);
    if (!cached)
        QVERIFY(QFile::remove(cacheFile()));
    QVERIFY(loaded.reload());
    QCOMPARE(loaded.getCountDowns().count(), 1);
    QCOMPARE(loaded.getPositions().count(), 0);
    QCOMPARE(loaded.getDanceEvents().count(), 0);
}

void TestSongCache::oldPositionsMoveOnce()
{
    Record record;
    record.tail.last() = u"0"_qs;
    record.positions = {Position(500, u"A"_qs, u"Triple"_qs)};
    record.count = 1;
    putCache(record.bytes());
    QCOMPARE(Song(song, false).getPositions().at(0).getTime(), -300);
    QCOMPARE(Song(song, false).getPositions().at(0).getTime(), -300);
    Song loaded(song, false);
    QVERIFY(loaded.save());
    setTime(song, QDateTime::currentDateTime().addSecs(-3600));
    for (const bool cached : {false, true}) {
        const Song again(song, false);
        QCOMPARE(again.isCached(), cached);
        QCOMPARE(again.getPositions().at(0).getTime(), -300);
        QCOMPARE(again.getVersionTag(), 2);
    }
}

void TestSongCache::removingASongRemovesItsFile()
{
    Song loaded(song, false);
    QVERIFY(QFile::exists(cacheFile()));
    QVERIFY(loaded.removeFromDisk());
    QVERIFY(!QFile::exists(cacheFile()));
}

void TestSongCache::leftOversAreWrittenOverAndCleared()
{
    const QString leftOver = cacheFile() + u".new"_qs;
    QFile file(leftOver);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("half");
    file.close();
    QVERIFY(!Song(song, false).isCached());
    QVERIFY(!QFile::exists(leftOver));
    QVERIFY(Song(song, false).isCached());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    removeCacheFiles(cacheDir);
    QVERIFY(QDir(cacheDir).isEmpty());
}

void TestSongCache::theConnectionIsOpen()
{
    destroySongStores();
    QVERIFY(QDir().mkpath(QDir::tempPath() + u"/Tarvelo"_qs));
    createSongStores();
    const QSqlDatabase database = QSqlDatabase::database();
    QCOMPARE(database.driverName(), u"QSQLITE"_qs);
    QCOMPARE(database.databaseName(), QDir::tempPath() + u"/Tarvelo/cache.db"_qs);
    QVERIFY(database.isOpen());
    QVERIFY(database.tables().isEmpty());
}

TARVELO_TEST_MAIN(TestSongCache, QGuiApplication)
#include "tst_SongCache.moc"
