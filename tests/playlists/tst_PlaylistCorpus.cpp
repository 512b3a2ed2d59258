#include "PlaylistText.h"

#include "TestMain.h"

#include <QCoreApplication>
#include <QDirIterator>

using namespace Qt::StringLiterals;

// Playlists that other programs have written.
class TestPlaylistCorpus : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void everyListSurvivesASave();
    void entries_data();
    void entries();

private:
    QString place() const { return corpusDirectory() + u"/playlists/"_s; }
};

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

void TestPlaylistCorpus::initTestCase()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS is not set.");
}

void TestPlaylistCorpus::everyListSurvivesASave()
{
    QDirIterator files(place(), {u"*.m3u"_s, u"*.m3u8"_s, u"*.pls"_s}, QDir::Files,
                       QDirIterator::Subdirectories);
    int lists = 0;
    while (files.hasNext()) {
        const QString file = files.next();
        for (const QString &directory : {u"/music/lists/"_s, u"/"_s}) {
            const QStringList first = PlaylistText::read(contentOf(file), directory);
            const QByteArray saved = PlaylistText::write(first, directory);
            QCOMPARE(PlaylistText::read(saved, directory), first);
            QCOMPARE(PlaylistText::write(PlaylistText::read(saved, directory), directory), saved);
        }
        ++lists;
    }
    qInfo("%d lists", lists);
    QVERIFY(lists >= 15);
}

void TestPlaylistCorpus::entries_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *file, const QStringList &expected) {
        QTest::newRow(file) << QString::fromLatin1(file) << expected;
    };
    row("atldotnet__playlist_fullPath.m3u",
        {u"/l/local.MID"_s, u"/l/$PATH/MP3/empty.mp3"_s, u"/l/$NODISK_PATH/OGG/empty.ogg"_s,
         u"/l/http:/uk3.internet-radio.com:8405/live"_s});
    row("bundle-mopidy/one.m3u", {u"/l/song1.mp3"_s});
    row("bundle-mopidy/one-ext.m3u", {u"/l/song1.mp3"_s});
    row("bundle-mopidy/scanner/playlist.m3u", {u"/l/http:/example.com"_s});
    row("lizzy__playlist-utf16be-bom.m3u",
        {u"/l"_s, u"/l/C:/Music/SampleMusic.mp3"_s, u"/l"_s,
         u"/l/C:/Music/ÀÁÂÃäA Ç ÈÉÊË ÌÍÎÏ N ÒÓÔÕö  ÙÚÛü àáâãäa ç èéêë ìíîï n òóôõöo ùúûü.mp3"_s});
    row("lizzy__playlist-utf8-bom.m3u",
        {u"/l"_s, u"/l/C:/Music/SampleMusic.mp3"_s, u"/l"_s,
         u"/l/C:/Music/ÀÁÂÃäA Ç ÈÉÊË ÌÍÎÏ N ÒÓÔÕö  ÙÚÛü àáâãäa ç èéêë ìíîï n òóôõöo ùúûü.mp3"_s});
    row("lizzy__test01.m3u",
        {u"/l/# This is an absolute filesystem path"_s, u"/l/c:/music/foo.mp3"_s, u"/l"_s,
         u"/l/# This is a relative filesystem path"_s, u"/l/foo/fighters.mp3"_s, u"/l"_s,
         u"/l/# This is a URL"_s, u"/l/http:/foofighters.com/somesong.mp3"_s, u"/l"_s});
    row("lizzy__test02.m3u",
        {u"/l/Alternative/Song.mp3"_s, u"/l/Classical/New_Song.mp3"_s, u"/l/crap.mp3"_s,
         u"/l/F:/more music/foo_bar.mp3"_s, u"/l/http:/www.site.com:8000/listen.pls"_s,
         u"/l/http:/www.site.com/~user/mine.mp3"_s});
    row("lizzy__test06.m3u", {u"/l/# This is a comment"_s, u"/l/music/opeth/white cluster.mp3"_s,
                              u"/l/music/moonlapse vertigo.mp3"_s,
                              u"/l/http:/ccmixter.org/a/song.mp3"_s, u"/l/video/mononoke.avi"_s});
    row("mopidy__empty.m3u", {});
    row("mopidy__encoding.m3u", {u"/l/æøå.mp3"_s});
    row("mopidy__two-ext.m3u", {u"/l/song1.mp3"_s, u"/l/song2.mp3"_s});
    row("totem-pl-parser__O_G_Money_Snoop_Dogg.m3u",
        {u"/l/\t\t#EXTINF:-1,O G Money - Girl Gotta girlfriend Feat. O G Money, Snoop Dogg"_s,
         u"/l/http:/media.ArtistServer.com/tracks/23985/21898/1/1/5e302b19727b666f5825/0/"
         u"O_G_Money_-_Girl_Gotta_girlfriend_Feat_O_G_Money,_Snoop_Dogg.mp3"_s});
    row("totem-pl-parser__relative.m3u", {u"/l/3gpp-file.mp4"_s});
}

void TestPlaylistCorpus::entries()
{
    QFETCH(QString, file);
    QFETCH(QStringList, expected);
    QVERIFY(QFile::exists(place() + file));
    QCOMPARE(PlaylistText::read(contentOf(place() + file), u"/l/"_s), expected);
}

TARVELO_TEST_MAIN(TestPlaylistCorpus, QCoreApplication)
#include "tst_PlaylistCorpus.moc"
