#include "TagStream.h"

#include "PlatformFiles.h"
#include "Song.h"
#include "SongFiles.h"
#include "TagBytes.h"
#include "TestMain.h"

#include <QGuiApplication>

using TagBytes::frame;
using TagBytes::tag;

class TestTagStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void soundTagsAreLeftAlone_data();
    void soundTagsAreLeftAlone();
    void framesWithoutContentAreLeftOut_data();
    void framesWithoutContentAreLeftOut();
    void textsWithoutAMarkAreMarked_data();
    void textsWithoutAMarkAreMarked();
    void framesToBeDroppedAreKept_data();
    void framesToBeDroppedAreKept();
    void aFileIsReadAndSavedWhole_data();
    void aFileIsReadAndSavedWhole();
    void loadingWritesNothing();
    void manyPlaysAreSavedInPlace();
};

namespace {

QByteArray mended(const QByteArray &whole)
{
    const TagLib::ByteVector result = mendedId3Tag(
        TagLib::ByteVector(whole.constData(), static_cast<unsigned int>(whole.size())));
    return QByteArray(result.data(), static_cast<qsizetype>(result.size()));
}

const QByteArray artist = frame("TPE1", QByteArray("\0artist", 7));
const QByteArray littleEndian("\x01T\0i\0", 5);
const QByteArray bigEndian("\x01\0T\0i", 5);
const QByteArray marked("\x02\0T\0i", 5);

} // namespace

void TestTagStream::initTestCase()
{
    createSongStores();
}

void TestTagStream::cleanupTestCase()
{
    destroySongStores();
}

void TestTagStream::soundTagsAreLeftAlone_data()
{
    QTest::addColumn<QByteArray>("whole");
    const QByteArray hole = frame("TIT2", {});
    QTest::newRow("no tag") << QByteArray("\xff\xfb\x90\x64", 4);
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("header alone") << tag(3, {}, 0);
    QTest::newRow("padding alone") << tag(3, {});
    QTest::newRow("sound") << tag(3, artist);
    QTest::newRow("version 2.2") << tag(2, hole + artist);
    QTest::newRow("unsynchronised") << tag(3, hole + artist, 20, char(0x80));
    QTest::newRow("extended header") << tag(3, hole + artist, 20, 0x40);
    QTest::newRow("frame beyond the end") << tag(3, artist, 20).left(20);
    QTest::newRow("with a mark") << tag(3, frame("TIT2", QByteArray("\x01\xff\xfeT\0", 5)));
    QTest::newRow("with the other mark") << tag(3, frame("TIT2", QByteArray("\x01\xfe\xff\0T", 5)));
    QTest::newRow("packed") << tag(4, frame("TIT2", littleEndian, QByteArray("\0\x08", 2)));
    QTest::newRow("user text") << tag(3, frame("TXXX", littleEndian));
    QTest::newRow("Latin-1") << tag(3, frame("TIT2", QByteArray("\0Ti", 3)));
    QTest::newRow("half a character") << tag(3, frame("TIT2", QByteArray("\x01T\0i", 4)));
    QTest::newRow("empty text") << tag(3, frame("TIT2", QByteArray("\x01", 1)));
}

void TestTagStream::soundTagsAreLeftAlone()
{
    QFETCH(QByteArray, whole);
    QCOMPARE(mended(whole), QByteArray());
}

void TestTagStream::framesWithoutContentAreLeftOut_data()
{
    QTest::addColumn<char>("version");
    QTest::newRow("2.3") << char(3);
    QTest::newRow("2.4") << char(4);
}

void TestTagStream::framesWithoutContentAreLeftOut()
{
    QFETCH(char, version);
    const QByteArray hole = frame("TIT2", {});
    QCOMPARE(mended(tag(version, hole + artist + hole)), tag(version, artist, 40));
    QCOMPARE(mended(tag(version, artist + hole, 0)), tag(version, artist, 10));
}

void TestTagStream::textsWithoutAMarkAreMarked_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("little-endian") << littleEndian;
    QTest::newRow("big-endian") << bigEndian;
}

void TestTagStream::textsWithoutAMarkAreMarked()
{
    QFETCH(QByteArray, content);
    QCOMPARE(mended(tag(3, frame("TIT2", content) + artist)),
             tag(3, frame("TIT2", marked) + artist));
}

void TestTagStream::framesToBeDroppedAreKept_data()
{
    QTest::addColumn<char>("version");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("2.3") << char(3) << QByteArray("\xe0\0", 2) << QByteArray("\x60\0", 2);
    QTest::newRow("2.4") << char(4) << QByteArray("\x70\0", 2) << QByteArray("\x30\0", 2);
}

void TestTagStream::framesToBeDroppedAreKept()
{
    QFETCH(char, version);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QByteArray title("\0Ti", 3);
    QCOMPARE(mended(tag(version, artist + frame("TIT2", title, before))),
             tag(version, artist + frame("TIT2", title, after)));
}

void TestTagStream::aFileIsReadAndSavedWhole_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<QByteArray>("flags");
    QTest::addColumn<QString>("shown");
    const QByteArray none("\0\0", 2);
    QTest::newRow("no title") << QByteArray() << none << QString();
    QTest::newRow("title without a mark") << littleEndian << none << u"Ti"_qs;
    QTest::newRow("title to be dropped")
        << QByteArray("\0Ti", 3) << QByteArray("\x80\0", 2) << u"Ti"_qs;
}

void TestTagStream::aFileIsReadAndSavedWhole()
{
    QFETCH(QByteArray, title);
    QFETCH(QByteArray, flags);
    QFETCH(QString, shown);
    const QTemporaryDir directory;
    const QString path = SongFiles::tone(QDir(directory.path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const QByteArray audio = file.readAll();
    file.seek(0);
    file.write(tag(3, frame("TIT2", title, flags) + artist + frame("TSRC", QByteArray("\0code", 5)))
               + audio);
    file.close();

    Song song(path, false);
    QCOMPARE(song.getTitle(), shown);
    QCOMPARE(song.getArtist(), u"artist"_qs);
    QVERIFY(song.save());
    const Song again(path, false);
    QCOMPARE(again.getTitle(), shown);
    QCOMPARE(again.getArtist(), u"artist"_qs);
    QCOMPARE(SongFiles::frames(SongFiles::dump(path), u"TSRC"_qs).size(), 1);
    QVERIFY(file.open(QIODevice::ReadOnly));
    // An ID3v1 tag has come behind the audio.
    QCOMPARE(file.readAll().chopped(128).last(audio.size()), audio);
}

void TestTagStream::loadingWritesNothing()
{
    const QTemporaryDir directory;
    const QString path = directory.filePath(u"song.mp3"_qs);
    const QByteArray whole = tag(3, frame("TIT2", {}) + artist) + QByteArray(1000, 'x');
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(whole);
    file.close();
    QCOMPARE(Song(path, false).getArtist(), u"artist"_qs);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), whole);
}

// A copy of the whole song at every other play would cost too much while the music plays.
void TestTagStream::manyPlaysAreSavedInPlace()
{
    const QString path = SongFiles::tone(QDir::current(), u"long.mp3"_qs);
    QFile music(path);
    QVERIFY(music.open(QIODevice::ReadWrite));
    const QByteArray once = music.readAll();
    while (music.size() < 2'000'000)
        music.write(once);
    music.close();
    Song song(path, false);
    int copies = 0;
    for (int play = 0; play < 100; ++play) {
        const auto before = Platform::fileState(path);
        song.getDanceEvents().addPlay(5);
        QVERIFY(song.save());
        copies += Platform::fileState(path)->isSameFile(*before) ? 0 : 1;
    }
    QCOMPARE(copies, 1);
    QCOMPARE(Song(path, false).getDanceEvents().count(), 100);
    const QJsonObject dump = SongFiles::dump(path);
    QCOMPARE(SongFiles::userTexts(dump, u"DanceEvents"_qs).value(0).count(u'\n'), 100);
}

TARVELO_TEST_MAIN(TestTagStream, QGuiApplication)
#include "tst_TagStream.moc"
