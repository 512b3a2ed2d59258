#include "PlatformFiles.h"
#include "Song.h"

#include "CacheBytes.h"
#include "Settings.h"
#include "SongFiles.h"
#include "SongStoreCache.h"
#include "TestMain.h"

#include <QGuiApplication>

namespace {

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

void setAnHourBack(const QString &path)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(Platform::setFileTime(file, QDateTime::currentDateTime().addSecs(-3600)));
}

} // namespace

// A cache file that was not written to its end, and what a save makes of it.
class TestSongCacheDamage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { destroySongStores(); }

    void aFileCutAnywhereHarmsNoSong();
    void zerosAtTheEndHarmNoSong();
    void addedEventsJoinThoseOfTheFile();
    void whatWasDeletedStaysDeleted();
    void whatWasChangedIsThereOnce();
    void whatWasMendedByHandIsThereOnce();
    void anotherDocumentIsKept();
    void aDamagedRecordIsNotSavedWithoutItsFile();

private:
    QDir files() const { return QDir(directory->path()); }
    QString cacheFile() const;
    // The cache file from the beginning to behind this text.
    QByteArray cutBehind(const QString &text) const;
    void restore(const QByteArray &cache) const;

    std::unique_ptr<QTemporaryDir> directory;
    QString song;
    QByteArray music;
    QByteArray whole;
    QStringList expected;
};

// Music file and cache file hold what a Record does.
void TestSongCacheDamage::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(files().mkpath(u"cache"_qs));
    Settings::setValue(Settings::Key::CacheDir, files().filePath(u"cache"_qs));
    createSongStores();
    song = SongFiles::tone(files());
    setAnHourBack(song);
    put(cacheFile(), Record().bytes());
    Song full(song, false);
    QVERIFY(full.isCached());
    QVERIFY(full.save());
    setAnHourBack(song);
    expected = SongFiles::fieldsOf(Song(song, false));
    music = content(song);
    whole = content(cacheFile());
    QVERIFY(Song(song, false).isCached());
}

QString TestSongCacheDamage::cacheFile() const
{
    return files().filePath(u"cache/"_qs + SongStoreCache::fileNameFor(song));
}

QByteArray TestSongCacheDamage::cutBehind(const QString &text) const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << text;
    const qsizetype at = whole.indexOf(bytes);
    return at < 0 ? QByteArray() : whole.left(at + bytes.size());
}

void TestSongCacheDamage::restore(const QByteArray &cache) const
{
    put(song, music);
    setAnHourBack(song);
    put(cacheFile(), cache);
}

void TestSongCacheDamage::aFileCutAnywhereHarmsNoSong()
{
    for (qsizetype length = 0; length < whole.size(); ++length) {
        restore(whole.left(length));
        Song cut(song, false);
        QCOMPARE(cut.isCached(), length >= 8);
        QCOMPARE(cut.isIncomplete(), length >= 8);
        if (length % 7 != 0)
            continue;
        QVERIFY(cut.save());
        QVERIFY(!cut.isIncomplete());
        QCOMPARE(SongFiles::fieldsOf(cut), expected);
        QCOMPARE(SongFiles::fieldsOf(Song(song, false)), expected);
    }
}

void TestSongCacheDamage::zerosAtTheEndHarmNoSong()
{
    for (qsizetype start = 8; start < whole.size(); ++start) {
        restore(whole.left(start) + QByteArray(whole.size() - start, '\0'));
        Song damaged(song, false);
        QVERIFY(damaged.isCached());
        QVERIFY(damaged.save());
        QVERIFY2(SongFiles::fieldsOf(damaged) == expected, qPrintable(QString::number(start)));
        QCOMPARE(SongFiles::fieldsOf(Song(song, false)), expected);
    }
}

void TestSongCacheDamage::addedEventsJoinThoseOfTheFile()
{
    restore(whole.left(60));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    cut.getDanceEvents().addPlay(3);
    cut.setTitle(u"new"_qs);
    QVERIFY(cut.save());
    const Song again(song, false);
    QCOMPARE(again.getDanceEvents().count(), 2);
    QCOMPARE(again.getDanceEvents().at(0)->getName(), u"n"_qs);
    QCOMPARE(again.getTitle(), u"new"_qs);
    QCOMPARE(again.getPositions().count(), 2);
}

void TestSongCacheDamage::whatWasDeletedStaysDeleted()
{
    restore(whole.left(whole.size() - 1));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    cut.setComment(QString());
    cut.setRating(0);
    cut.getPositions().removeAt(0);
    cut.getCuesheet().clear();
    cut.getDanceEvents().clear();
    cut.getCountDowns().removeAt(0);
    QVERIFY(cut.save());
    const Song again(song, false);
    QCOMPARE(again.getComment(), QString());
    QCOMPARE(again.getRating(), 0);
    QCOMPARE(again.getPositions().count(), 1);
    QCOMPARE(again.getPositions().at(0), Record().positions.at(1));
    QVERIFY(!again.hasChoreography());
    QCOMPARE(again.getDanceEvents().count(), 0);
    QCOMPARE(again.getCountDowns().count(), 0);
    QCOMPARE(again.getTitle(), u"title"_qs);
    QCOMPARE(again.getIswcId(), u"T-000"_qs);
}

void TestSongCacheDamage::whatWasChangedIsThereOnce()
{
    restore(whole.left(whole.size() - 1));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    cut.getPositions().at(0).addTime(100);
    cut.getDanceEvents().at(0)->setName(u"other"_qs);
    cut.getCountDowns().at(0)->setIgnition(9500);
    QVERIFY(cut.save());
    const Song again(song, false);
    QCOMPARE(again.getPositions().count(), 2);
    QCOMPARE(again.getPositions().at(0).getTime(), -200);
    QCOMPARE(again.getDanceEvents().count(), 1);
    QCOMPARE(again.getDanceEvents().at(0)->getName(), u"other"_qs);
    QCOMPARE(again.getCountDowns().count(), 1);
    QCOMPARE(again.getCountDowns().at(0)->getIgnition(), 9500);
}

// Of the first position the time is damaged; the second is lost, and somebody enters it again.
void TestSongCacheDamage::whatWasMendedByHandIsThereOnce()
{
    restore(cutBehind(u"Triple\nStep"_qs) + QByteArray(4, '\xff'));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    QCOMPARE(cut.getPositions().count(), 1);
    cut.getPositions().insert(1, Record().positions.at(1));
    cut.getPositions().insert(2, Position(7000, u"C"_qs, u"Rock"_qs));
    QVERIFY(cut.save());
    const Song again(song, false);
    QCOMPARE(again.getPositions().count(), 3);
    QCOMPARE(again.getPositions().at(0), Record().positions.at(0));
    QCOMPARE(again.getPositions().at(1), Record().positions.at(1));
}

void TestSongCacheDamage::anotherDocumentIsKept()
{
    restore(whole.left(whole.size() - 1));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    cut.getCuesheet().set("%PDF-1.4 x");
    QVERIFY(cut.save());
    QCOMPARE(Song(song, false).getCuesheetData(), QByteArray("%PDF-1.4 x"));
}

void TestSongCacheDamage::aDamagedRecordIsNotSavedWithoutItsFile()
{
    restore(whole.left(60));
    Song cut(song, false);
    QVERIFY(cut.isIncomplete());
    QVERIFY(QFile::rename(song, song + u".away"_qs));
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!cut.save());
    QVERIFY(cut.isIncomplete());
    QCOMPARE(content(cacheFile()), whole.left(60));
}

TARVELO_TEST_MAIN(TestSongCacheDamage, QGuiApplication)
#include "tst_SongCacheDamage.moc"
