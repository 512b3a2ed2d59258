#include "LogCapture.h"
#include "Player.h"
#include "PlayerLog.h"
#include "Samples.h"
#include "TestMain.h"

#include <QAudioDevice>
#include <QCoreApplication>
#include <QMediaDevices>

using namespace Qt::StringLiterals;

// A machine without any sound: the test's own main shuts out what server there is.
class TestPlayerNoOutput : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startGivesUp();
};

void TestPlayerNoOutput::startGivesUp()
{
    LogCapture lines;
    QVERIFY(QMediaDevices::defaultAudioOutput().isNull());
    QTemporaryDir directory;
    const QString file = directory.filePath(u"tone.mp3"_qs);
    QVERIFY(Samples::writeTone(file));
    const SongPtr song(new Song(file, false));
    song->setFrequency(44100);
    song->setChannels(2);

    Player player;
    PlayerLog log(player);
    player.setSong(song);
    player.startFromPlaytime(500);
    QVERIFY(!player.isPlaying());
    QCOMPARE(log.take(), (QStringList{u"playing"_qs, u"silent"_qs}));
    QCOMPARE(lines.count(u"critical: Selected audio format not supported by backend"_qs), 1);
    player.pause();
    player.resume();
    QVERIFY(!player.isPlaying());
    player.stop();
    QCOMPARE(player.getPlaytime(), 0);
}

int main(int argc, char *argv[])
{
    qputenv("PULSE_SERVER", "unix:/nowhere/at/all");
    TestHome home;
    QCoreApplication application(argc, argv);
    TestPlayerNoOutput test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_playernooutput.moc"
