#include "PlayerFixture.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

// Start, pause, resume, stop, parts and times.
class TestPlayer : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void withoutASongNothingPlays();
    void startTellsTheTimeInSteps();
    void stopGoesToTheBeginning();
    void pauseKeepsTheTime();
    void stopInAPause();
    void resumeWithoutAPauseStarts();
    void startWhilePlayingBeginsAnew();
    void partAtZeroComesWithTheTime();
    void partsComeInOrder();
    void startsFromAPart_data();
    void startsFromAPart();
    void startsFromATime_data();
    void startsFromATime();
    void partIsToldAgain();
    void partsAreGoneWhenItStops();
    void stopRightAfterStart();
    void playerMayGoWhilePlaying();
};

void TestPlayer::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayer::init()
{
    begin();
}

void TestPlayer::cleanup()
{
    end();
}

void TestPlayer::withoutASongNothingPlays()
{
    player->start();
    player->startFromPart(0);
    player->startFromPlaytime(1000);
    player->resume();
    passTicks();
    QVERIFY(!player->isPlaying());
    QCOMPARE(player->getPlaytime(), 0);
    QCOMPARE(player->getPlaytimeTotal(), 0);
    player->pause();
    player->stop();
    QVERIFY(!log->takeStates().contains(u"playing"_qs));
    player->setSong(SongPtr());
    QVERIFY(!player->isPlaying());
}

void TestPlayer::startTellsTheTimeInSteps()
{
    player->setSong(song);
    QCOMPARE(player->getPlaytimeTotal(), 10000);
    QVERIFY(log->take().isEmpty());
    player->start();
    QVERIFY(player->isPlaying());
    QCOMPARE(log->take(), QStringList{u"playing"_qs});
    QVERIFY(playBeyond(1500));
    QVERIFY(log->times.size() >= 10 && log->times.size() <= 16);
    for (int i = 1; i < log->times.size(); ++i)
        QVERIFY(log->times.at(i) / 100 > log->times.at(i - 1) / 100);
}

void TestPlayer::stopGoesToTheBeginning()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    log->take();
    player->stop();
    QCOMPARE(log->take(), (QStringList{u"silent"_qs, u"part -1"_qs, u"time 0"_qs}));
    QVERIFY(!player->isPlaying());
    QCOMPARE(player->getPlaytime(), 0);
    passTicks();
    QVERIFY(log->take().isEmpty());
}

void TestPlayer::pauseKeepsTheTime()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    log->take();
    player->pause();
    const int held = player->getPlaytime();
    QVERIFY(held > 1200);
    QCOMPARE(log->take(), QStringList{u"silent"_qs});
    passTicks();
    QCOMPARE(player->getPlaytime(), held);
    QVERIFY(log->take().isEmpty());

    player->resume();
    QCOMPARE(log->take(), QStringList{u"playing"_qs});
    QCOMPARE(player->getPlaytime(), held);
    QVERIFY(playBeyond(held + 300));
    QVERIFY(player->getPlaytime() < held + 600);
    player->pause();
    QVERIFY(player->getPlaytime() > held + 300);
}

void TestPlayer::stopInAPause()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    player->pause();
    log->take();
    player->stop();
    QCOMPARE(log->take(), (QStringList{u"part -1"_qs, u"time 0"_qs}));
    player->resume();
    QVERIFY(player->isPlaying());
    QVERIFY(player->getPlaytime() < 100);
}

void TestPlayer::resumeWithoutAPauseStarts()
{
    player->setSong(song);
    player->resume();
    QVERIFY(player->isPlaying());
    QVERIFY(playBeyond(100));
    log->take();
    player->resume();
    QVERIFY(log->take().isEmpty());
}

void TestPlayer::startWhilePlayingBeginsAnew()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    log->take();
    player->start();
    QCOMPARE(log->take(), (QStringList{u"silent"_qs, u"part -1"_qs, u"time 0"_qs, u"playing"_qs}));
    QVERIFY(playBeyond(100));
    QVERIFY(player->getPlaytime() < 1000);
}

void TestPlayer::partAtZeroComesWithTheTime()
{
    player->setSong(song);
    QSignalSpy part(player.get(), &Player::notifyActivePartChanged);
    player->start();
    QCOMPARE(part.count(), 0);
    player->refreshActivePart();
    QCOMPARE(part.takeFirst().first().toInt(), -1);
    QVERIFY(part.wait(2000));
    QCOMPARE(part.first().first().toInt(), 0);
    QVERIFY(player->getPlaytime() > 0);
    QVERIFY(player->getPlaytime() < 300);
}

void TestPlayer::partsComeInOrder()
{
    player->setSong(song);
    player->start();
    QList<int> at;
    connect(player.get(), &Player::notifyActivePartChanged, this,
            [&] { at.append(player->getPlaytime()); });
    QVERIFY(playBeyond(2700));
    QCOMPARE(log->takeStates(),
             (QStringList{u"playing"_qs, u"part 0"_qs, u"part 1"_qs, u"part 2"_qs}));
    QCOMPARE(at.size(), 3);
    QVERIFY(at.at(1) > 1000 && at.at(1) < 1150);
    QVERIFY(at.at(2) > 2500 && at.at(2) < 2650);
}

void TestPlayer::startsFromAPart_data()
{
    QTest::addColumn<int>("part");
    QTest::addColumn<int>("from");

    QTest::newRow("first") << 0 << 0;
    QTest::newRow("second") << 1 << 1000;
    QTest::newRow("third") << 2 << 2500;
    QTest::newRow("behind the last") << 3 << 0;
    QTest::newRow("none") << -1 << 0;
}

void TestPlayer::startsFromAPart()
{
    QFETCH(int, part);
    QFETCH(int, from);
    player->setSong(song);
    for (int round = 0; round < 2; ++round) {
        player->startFromPart(part);
        QVERIFY(player->isPlaying());
        QTRY_VERIFY(player->getPlaytime() > from && player->getPlaytime() < from + 400);
        QVERIFY(playBeyond(from + 500));
    }
    QTRY_VERIFY(log->has(u"part %1"_qs.arg(from > 0 ? part : 0)));
}

void TestPlayer::startsFromATime_data()
{
    QTest::addColumn<int>("ms");
    QTest::addColumn<int>("from");

    QTest::newRow("beginning") << 0 << 0;
    QTest::newRow("within") << 4321 << 4321;
    QTest::newRow("before the beginning") << -1 << 0;
}

void TestPlayer::startsFromATime()
{
    QFETCH(int, ms);
    QFETCH(int, from);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(600));
    player->startFromPlaytime(ms);
    QVERIFY(player->isPlaying());
    QTRY_VERIFY(player->getPlaytime() > from && player->getPlaytime() < from + 400);
}

void TestPlayer::partIsToldAgain()
{
    player->setSong(song);
    player->startFromPart(1);
    QTRY_VERIFY(log->has(u"part 1"_qs));
    log->take();
    player->refreshActivePart();
    QVERIFY(log->take().contains(u"part 1"_qs));
    player->pause();
    log->take();
    player->refreshActivePart();
    QCOMPARE(log->take(), QStringList{u"part -1"_qs});
}

void TestPlayer::partsAreGoneWhenItStops()
{
    song->getPositions().at(0).setTime(-200);
    player->setSong(song);
    player->startFromPart(0);
    QTRY_VERIFY(log->has(u"part 0"_qs));
    QVERIFY(player->getPlaytime() < 400);
    QVERIFY(playBeyond(200));
    log->take();
    player->stop();
    QCOMPARE(log->takeStates(), (QStringList{u"silent"_qs, u"time 0"_qs, u"part -1"_qs}));
}

void TestPlayer::stopRightAfterStart()
{
    player->setSong(song);
    for (int i = 0; i < 20; ++i) {
        player->start();
        player->stop();
        player->startFromPart(1);
        player->pause();
        player->resume();
        player->stop();
    }
    QVERIFY(!player->isPlaying());
    log->take();
    passTicks();
    QVERIFY(log->take().isEmpty());
    QCOMPARE(player->getPlaytime(), 0);
}

void TestPlayer::playerMayGoWhilePlaying()
{
    for (const int wait : {0, 30, 300}) {
        Player brief;
        brief.setSong(newSong(5));
        brief.start();
        QTest::qWait(wait);
        QVERIFY(brief.isPlaying());
    }
}

TARVELO_TEST_MAIN(TestPlayer, QCoreApplication)
#include "tst_player.moc"
