#include "Song.h"
#include "SongFiles.h"
#include "TagBytes.h"
#include "TestMain.h"

#include <QGuiApplication>

using TagBytes::frame;
using TagBytes::tag;

// Files that the tag library doesn't read to the end stay as they are.
class TestTagGuard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void tagsThatWouldLoseSomethingAreNotSaved_data();
    void tagsThatWouldLoseSomethingAreNotSaved();
    void soundTagsAreSaved_data();
    void soundTagsAreSaved();
    void textsInNoKnownEncodingTakeNewOnes();
};

namespace {

const QByteArray artist = frame("TPE1", QByteArray("\0artist", 7));
const QByteArray code = frame("TSRC", QByteArray("\0code", 5));
const QByteArray hole = frame("TIT2", {});
// Version 2.2: three letters and a size of three bytes.
const QByteArray shortArtist("TP1\0\0\7\0artist", 13);
const QByteArray shortHole("TT2\0\0\0", 6);

// A file that holds the tag and music behind it.
QByteArray withMusic(const QByteArray &tag, const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return {};
    const QByteArray whole = tag + file.readAll();
    file.seek(0);
    file.write(whole);
    return whole;
}

QByteArray content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void TestTagGuard::initTestCase()
{
    createSongStores();
}

void TestTagGuard::cleanupTestCase()
{
    destroySongStores();
}

void TestTagGuard::tagsThatWouldLoseSomethingAreNotSaved_data()
{
    QTest::addColumn<QByteArray>("tagBytes");
    const char unsynchronised = char(0x80);
    const QByteArray extension("\0\0\0\6\0\0\0\0\0\0", 10);
    const QByteArray oddText = frame("TIT2", QByteArray("\1T\0i", 4));
    const QByteArray halfMarked("\1eng\xff\xfe"
                                "d\0\0\0T\0",
                                12);

    QTest::newRow("claims more than the file") << tag(3, artist, 0, 0, (256 << 20) - 1);
    QTest::newRow("claims the music") << tag(3, artist, 0, 0, 10000);
    QTest::newRow("claims the music behind padding") << tag(4, artist, 100, 0, 10000);
    QTest::newRow("claims one frame of the music")
        << tag(4, artist, 0, 0, int(artist.size()) + 300);
    QTest::newRow("claims the music, unsynchronised") << tag(3, artist, 0, unsynchronised, 10000);
    QTest::newRow("a second tag claims the music") << tag(4, artist) + tag(4, code, 0, 0, 10000);
    QTest::newRow("behind other bytes, claims the music")
        << QByteArray("junk") + tag(3, artist, 0, 0, 10000);
    QTest::newRow("unknown name") << tag(3, artist + frame("Tsrc", QByteArray("\0code", 5)) + code);
    QTest::newRow("empty frame, unsynchronised") << tag(3, hole + artist, 20, unsynchronised);
    QTest::newRow("empty frame, version 2.2") << tag(2, shortHole + shortArtist);
    QTest::newRow("extended header") << tag(3, extension + artist, 20, 0x40);
    QTest::newRow("frame beyond the end")
        << tag(3, artist + code, 0).replace("\5\0\0\0code", "\x7e\0\0\0code");
    QTest::newRow("encrypted, version 2.3")
        << tag(3, artist + frame("SYLT", QByteArray(20, 'x'), QByteArray("\0\x40", 2)));
    QTest::newRow("encrypted, version 2.4")
        << tag(4, artist + frame("SYLT", QByteArray(20, 'x'), QByteArray("\0\x04", 2)));
    const QByteArray times(20, 'x');
    QTest::newRow("in a group, version 2.3")
        << tag(3, artist + frame("SYLT", times, QByteArray("\0\x20", 2)));
    QTest::newRow("in a group, version 2.4")
        << tag(4, artist + frame("SYLT", times, QByteArray("\0\x40", 2)));
    QTest::newRow("to be dropped, unsynchronised")
        << tag(3, artist + frame("SYLT", times, QByteArray("\x80\0", 2)), 20, char(0x80));
    QTest::newRow("frame behind padding") << tag(3, artist + QByteArray(30, 0) + code);
    QTest::newRow("bytes in the size that can't be")
        << tag(3, artist).replace(6, 4, QByteArray("\0\0\0\xa0", 4));
    QTest::newRow("half a character") << tag(3, oddText + artist);
    QTest::newRow("user text without a mark")
        << tag(3, frame("TXXX", QByteArray("\1d\0\0\0T\0", 7)) + artist);
    QTest::newRow("lyrics without a mark")
        << tag(4, frame("USLT", QByteArray("\1eng\0\0T\0", 8)) + artist);
    QTest::newRow("comment with half its marks") << tag(3, frame("COMM", halfMarked) + artist);
}

void TestTagGuard::tagsThatWouldLoseSomethingAreNotSaved()
{
    QFETCH(QByteArray, tagBytes);
    const QTemporaryDir directory;
    const QString path = SongFiles::tone(QDir(directory.path()));
    const QByteArray before = withMusic(tagBytes, path);
    Song song(path, false);
    song.setTitle(u"new"_qs);
    const QString name = QRegularExpression::escape(path);
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(u"The tag holds more than can be saved:.*"_qs + name));
    QTest::ignoreMessage(QtCriticalMsg, QRegularExpression(u"Save File failed:.*"_qs + name));
    QVERIFY(!song.save());
    QVERIFY(content(path) == before);
}

void TestTagGuard::soundTagsAreSaved_data()
{
    QTest::addColumn<QByteArray>("tagBytes");
    QTest::addColumn<int>("frames");
    const char unsynchronised = char(0x80);
    const QByteArray mark("\1\xff\xfeT\0i\0", 7);

    QTest::newRow("header alone") << tag(3, {}, 0) << 0;
    QTest::newRow("padding alone") << tag(3, {}) << 0;
    QTest::newRow("no padding") << tag(3, artist + code, 0) << 1;
    QTest::newRow("padding") << tag(4, artist + code) << 1;
    QTest::newRow("little padding") << tag(4, artist + code, 3) << 1;
    QTest::newRow("junk") << tag(3, artist + code + QByteArray("no frame, but text of others"))
                          << 1;
    QTest::newRow("junk behind padding")
        << tag(3, artist + code + QByteArray(9, 0) + QByteArray("\xff\xff\xe0\xfb junk")) << 1;
    QTest::newRow("empty frames") << tag(3, hole + artist + hole + code + hole) << 1;
    QTest::newRow("unsynchronised") << tag(3, artist + code, 20, unsynchronised) << 1;
    QTest::newRow("unsynchronised, mark")
        << tag(4, frame("TIT2", QByteArray("\1\xff\0\xfeT\0i\0", 8)) + code, 20, unsynchronised)
        << 1;
    QTest::newRow("version 2.2") << tag(2, shortArtist + QByteArray("TRC\0\0\5\0code", 11)) << 1;
    QTest::newRow("marks") << tag(3, frame("TIT2", mark) + code) << 1;
    QTest::newRow("empty description without a mark")
        << tag(3, frame("COMM", QByteArray("\1eng\0\0\xff\xfeT\0", 10)) + code) << 1;
}

void TestTagGuard::soundTagsAreSaved()
{
    QFETCH(QByteArray, tagBytes);
    const QTemporaryDir directory;
    const QString path = SongFiles::tone(QDir(directory.path()));
    const QByteArray music = content(path);
    withMusic(tagBytes, path);
    Song song(path, false);
    song.setTitle(u"new"_qs);
    QVERIFY(song.save());
    QCOMPARE(Song(path, false).getTitle(), u"new"_qs);
    QTEST(int(SongFiles::frames(SongFiles::dump(path), u"TSRC"_qs).size()), "frames");
    // An ID3v1 tag has come behind the music.
    QVERIFY(content(path).chopped(128).endsWith(music));
}

void TestTagGuard::textsInNoKnownEncodingTakeNewOnes()
{
    const QTemporaryDir directory;
    const QString path = SongFiles::tone(QDir(directory.path()));
    QByteArray frames;
    for (const char *id : {"TPE1", "TALB", "TIT2", "TCON", "TRCK", "TDRC", "TBPM"})
        frames += frame(id, qstrcmp(id, "TPE1") == 0 ? "\377ab" : "\11ab");
    withMusic(tag(4, frames + frame("COMM", QByteArray("\11eng\0a", 6))), path);
    Song song(path, false);
    for (const char *property : {"artist", "album", "comment", "genre", "title"})
        song.setProperty(property, u"Łódź"_qs);
    for (const char *property : {"tracknum", "year", "bpm"})
        song.setProperty(property, u"99"_qs);
    QVERIFY(song.save());
    const Song again(path, false);
    for (const char *property :
         {"artist", "album", "comment", "genre", "title", "tracknum", "year", "bpm"})
        QCOMPARE(again.property(property).toString(), song.property(property).toString());
}

TARVELO_TEST_MAIN(TestTagGuard, QGuiApplication)
#include "tst_TagGuard.moc"
