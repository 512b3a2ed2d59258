#include "Samples.h"
#include "Settings.h"
#include "Tarvelo.h"
#include "TestMain.h"

#include <QGuiApplication>
#include <QSignalSpy>

class TestTarvelo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void playlistsAreReadAnewWhileTheSongPlaysOn();
};

void TestTarvelo::playlistsAreReadAnewWhileTheSongPlaysOn()
{
    const QDir home = QDir::current();
    QVERIFY(home.mkpath(QStringLiteral("music")) && home.mkpath(QStringLiteral("lists")));
    const QString path = home.filePath(QStringLiteral("music/a.mp3"));
    QVERIFY(Samples::writeTone(path, {2, 440, 44100, 1}));
    Settings::setValue(Settings::Key::MusicDir, home.filePath(QStringLiteral("music")));
    Settings::setValue(Settings::Key::PlaylistDir, home.filePath(QStringLiteral("lists")));
    Tarvelo tarvelo;
    SongManager *manager = tarvelo.getSongManager();
    manager->loadAllLists();
    const SongPtr song = manager->getSong(path);
    tarvelo.getPlayer()->setSong(song);
    QCOMPARE(tarvelo.getPlayer()->getPlaytimeTotal(), 2000);
    QVERIFY(!manager->getPlaylist(2));

    QFile list(home.filePath(QStringLiteral("lists/a.m3u")));
    QVERIFY(list.open(QIODevice::WriteOnly));
    list.write("../music/a.mp3\n");
    list.close();
    const QSignalSpy taken(tarvelo.getPlayer(), &Player::requestSetSong);
    tarvelo.rescanPlaylists();
    QCOMPARE(manager->getPlaylist(2)->songs(), QList<SongPtr>{song});
    QCOMPARE(taken.size(), 0);
    QCOMPARE(tarvelo.getPlayer()->getPlaytimeTotal(), 2000);
    QCOMPARE(manager->getSong(path), song);
}

TARVELO_TEST_MAIN(TestTarvelo, QGuiApplication)
#include "tst_Tarvelo.moc"
