#include "PlatformFiles.h"
#include "Song.h"

#include "Settings.h"
#include "SongFiles.h"
#include "SongStoreCache.h"
#include "TestMain.h"

#include <QGuiApplication>

#include <id3v2tag.h>

class TestCuesheet : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { destroySongStores(); }

    void noBytesAreNoDocument();
    void theExchangeFormIsBase64();
    void theFrameIsAlwaysWritten();
    void capitalsAreReadAndReplaced();
    void tracksOfADiscStay();
    void theBytesStayInTheFiles();
    void zerosInTheCacheReachNoTag();
    void anotherCacheFileIsNotMisread();
    void copiesReadTheSameBytes();
    void copiesOutliveASave_data();
    void copiesOutliveASave();
    void copiesOutliveManySaves();
    void copiesOutliveTheFile();
    void aSaveFailsWithoutTheBytes();

private:
    QDir files() const { return QDir(directory->path()); }
    QString cacheFile() const;
    void makeSong(const QByteArray &document);
    void replaceInCache(const QByteArray &before, const QByteArray &after) const;
    void setFrame(const QByteArray &document) const;

    std::unique_ptr<QTemporaryDir> directory;
    QString song;
};

void TestCuesheet::init()
{
    directory = std::make_unique<QTemporaryDir>();
    QVERIFY(files().mkdir(u"cache"_qs));
    Settings::setValue(Settings::Key::CacheDir, files().filePath(u"cache"_qs));
    createSongStores();
    song = SongFiles::tone(files());
}

QString TestCuesheet::cacheFile() const
{
    return files().filePath(u"cache/"_qs + SongStoreCache::fileNameFor(song));
}

// With a valid cache file.
void TestCuesheet::makeSong(const QByteArray &document)
{
    Song made(song, false);
    made.getCuesheet().set(document);
    QVERIFY(made.save());
    QFile file(song);
    QVERIFY(file.open(QIODevice::ReadWrite));
    Platform::setFileTime(file, QDateTime::currentDateTime().addSecs(-3600));
    file.close();
    QVERIFY(!Song(song, false).isCached());
    // Whole milliseconds, which replaceInCache can give it back.
    QFile cache(cacheFile());
    QVERIFY(cache.open(QIODevice::ReadWrite));
    Platform::setFileTime(cache, QDateTime::currentDateTime());
}

// The file keeps its time.
void TestCuesheet::replaceInCache(const QByteArray &before, const QByteArray &after) const
{
    QFile file(cacheFile());
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QDateTime time = file.fileTime(QFileDevice::FileModificationTime);
    const qsizetype at = file.readAll().indexOf(before);
    QVERIFY(at > 0);
    file.seek(at);
    file.write(after);
    file.flush();
    QVERIFY(Platform::setFileTime(file, time));
}

void TestCuesheet::setFrame(const QByteArray &document) const
{
    SongFiles::edit(song, [&](TagLib::ID3v2::Tag &tag) {
        tag.removeFrames("TXXX");
        SongFiles::addUserText(tag, "Cuesheet", document.toBase64().constData());
    });
}

void TestCuesheet::noBytesAreNoDocument()
{
    Cuesheet cuesheet;
    QVERIFY(!cuesheet.isPresent());
    cuesheet.set("%PDF");
    QVERIFY(cuesheet.isPresent());
    cuesheet.set(QByteArray(""));
    QVERIFY(!cuesheet.isPresent());
    QVERIFY(!cuesheet.isChanged());
}

void TestCuesheet::theExchangeFormIsBase64()
{
    Cuesheet cuesheet;
    QJsonObject object;
    cuesheet.toJson(object);
    QVERIFY(object.isEmpty());
    cuesheet.fromJson(QJsonObject{{u"cuesheet"_qs, 7}});
    QVERIFY(!cuesheet.isChanged());
    cuesheet.fromJson(QJsonObject{{u"cuesheet"_qs, u"JVBERg=="_qs}});
    QVERIFY(cuesheet.isChanged());
    QCOMPARE(cuesheet.data(), QByteArray("%PDF"));
    cuesheet.toJson(object);
    QCOMPARE(object.value(u"cuesheet").toString(), u"JVBERg=="_qs);
}

void TestCuesheet::theFrameIsAlwaysWritten()
{
    makeSong(QByteArray());
    // The other reader passes over user texts that are empty.
    QFile file(song);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("Cuesheet"));
    file.close();
    makeSong("%PDF");
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song), u"Cuesheet"_qs),
             QStringList{u"JVBERg=="_qs});
}

void TestCuesheet::capitalsAreReadAndReplaced()
{
    SongFiles::edit(
        song, [](TagLib::ID3v2::Tag &tag) { SongFiles::addUserText(tag, "CUESHEET", "JVBERg=="); });
    Song loaded(song, false);
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF"));
    QVERIFY(loaded.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song), u"CUESHEET"_qs), QStringList());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song), u"Cuesheet"_qs),
             QStringList{u"JVBERg=="_qs});
}

void TestCuesheet::tracksOfADiscStay()
{
    SongFiles::edit(song, [](TagLib::ID3v2::Tag &tag) {
        SongFiles::addUserText(tag, "CUESHEET", "FILE \"a.wav\" WAVE");
    });
    Song loaded(song, false);
    QVERIFY(!loaded.hasChoreography());
    QVERIFY(loaded.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song), u"CUESHEET"_qs),
             QStringList{u"FILE \"a.wav\" WAVE"_qs});
}

// Changed bytes of the same files show where they are read, and that nobody held them.
void TestCuesheet::theBytesStayInTheFiles()
{
    makeSong("%PDF-old");
    const Song loaded(song, false);
    QVERIFY(loaded.isCached() && loaded.hasChoreography());
    replaceInCache("%PDF-old", "%PDF-new");
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF-old"));
    setFrame("%PDF-tag");
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF-tag"));
    setFrame("%PDF-longer");
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF-new"));
    QVERIFY(QFile::remove(cacheFile()));
    QCOMPARE(loaded.getCuesheetData(), QByteArray());
}

// As after a power cut: of the same length and time, and zeros within.
void TestCuesheet::zerosInTheCacheReachNoTag()
{
    makeSong("%PDF-old");
    Song loaded(song, false);
    QVERIFY(loaded.isCached() && !loaded.isIncomplete());
    replaceInCache("%PDF-old", QByteArray("%PDF\0\0\0\0", 8));
    loaded.setTitle(u"new"_qs);
    QVERIFY(loaded.save());
    QCOMPARE(SongFiles::userTexts(SongFiles::dump(song), u"Cuesheet"_qs),
             QStringList{QString::fromLatin1(QByteArray("%PDF-old").toBase64())});
}

void TestCuesheet::anotherCacheFileIsNotMisread()
{
    makeSong("%PDF-old");
    const Song loaded(song, false);
    QVERIFY(loaded.isCached());
    setFrame("%PDF-longer");
    QFile file(cacheFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(4000, 'x'));
    file.close();
    QCOMPARE(loaded.getCuesheetData(), QByteArray());
}

void TestCuesheet::copiesReadTheSameBytes()
{
    makeSong("%PDF-old");
    Song loaded(song, false);
    const Cuesheet copy = loaded.getCuesheet();
    loaded.getCuesheet().set("other");
    QCOMPARE(copy.data(), QByteArray("%PDF-old"));
    QCOMPARE(loaded.getCuesheetData(), QByteArray("other"));
}

void TestCuesheet::copiesOutliveASave_data()
{
    QTest::addColumn<QByteArray>("next");
    QTest::addColumn<bool>("cached");
    for (const bool cached : {true, false}) {
        const QByteArray from = cached ? "cache, " : "tag, ";
        QTest::newRow((from + "another length").constData()) << QByteArray("other") << cached;
        QTest::newRow((from + "the same length").constData()) << QByteArray("%PDF-new") << cached;
        QTest::newRow((from + "none").constData()) << QByteArray() << cached;
    }
}

void TestCuesheet::copiesOutliveASave()
{
    QFETCH(QByteArray, next);
    QFETCH(bool, cached);
    makeSong("%PDF-old");
    if (!cached)
        QVERIFY(QFile::remove(cacheFile()));
    Song loaded(song, false);
    QCOMPARE(loaded.isCached(), cached);
    const Cuesheet copy = loaded.getCuesheet();
    loaded.getCuesheet().set(next);
    QVERIFY(loaded.save());
    QCOMPARE(copy.data(), QByteArray("%PDF-old"));
    QCOMPARE(loaded.getCuesheetData(), next);
}

// As undo and redo would do it.
void TestCuesheet::copiesOutliveManySaves()
{
    makeSong("%PDF-1");
    Song loaded(song, false);
    const Cuesheet first = loaded.getCuesheet();
    loaded.getCuesheet().set("%PDF-2");
    QVERIFY(loaded.save());
    const Cuesheet second = loaded.getCuesheet();
    QVERIFY(loaded.reload());
    const Cuesheet reloaded = loaded.getCuesheet();
    loaded.getCuesheet() = first;
    QVERIFY(loaded.save());
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF-1"));
    QCOMPARE(second.data(), QByteArray("%PDF-2"));
    QCOMPARE(reloaded.data(), QByteArray("%PDF-2"));
    loaded.getCuesheet() = second;
    QVERIFY(loaded.save());
    QCOMPARE(loaded.getCuesheetData(), QByteArray("%PDF-2"));
    QCOMPARE(first.data(), QByteArray("%PDF-1"));
}

void TestCuesheet::copiesOutliveTheFile()
{
    makeSong("%PDF-old");
    Song loaded(song, false);
    const Cuesheet copy = loaded.getCuesheet();
    QVERIFY(loaded.removeFromDisk());
    QVERIFY(!QFile::exists(song) && !QFile::exists(cacheFile()));
    QCOMPARE(copy.data(), QByteArray("%PDF-old"));
}

void TestCuesheet::aSaveFailsWithoutTheBytes()
{
    makeSong("%PDF-old");
    Song loaded(song, false);
    SongFiles::edit(song, [](TagLib::ID3v2::Tag &tag) { tag.removeFrames("TXXX"); });
    QVERIFY(QFile::remove(cacheFile()));
    QVERIFY(loaded.hasChoreography());
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs));
    QVERIFY(!loaded.save());
    QVERIFY(!QFile::exists(cacheFile()));
    QVERIFY(SongFiles::userTexts(SongFiles::dump(song), u"Cuesheet"_qs).isEmpty());
}

TARVELO_TEST_MAIN(TestCuesheet, QGuiApplication)
#include "tst_Cuesheet.moc"
