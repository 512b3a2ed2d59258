#include "PlayerFixture.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

// One part again and again, with all that is odd about it.
class TestPlayerLoop : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aPartGoesRound();
    void theArgumentsAreCrossed();
    void theFirstPartOnlyStarts();
    void theLastPartOfAStandingSongStandsStill();
    void theLastPartOfAPlayingSongRunsOut();
    void aPartOutsideTheListStandsStill();
    void aPauseKeepsTheLoop();
    void aStopEndsTheLoop();
    void aTimeBehindTheLoopJumpsBack();
    void aLoopBegunInTheForeplayIsNone();

private:
    // The times at which it went back.
    QList<int> jumps() const;
};

void TestPlayerLoop::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerLoop::init()
{
    begin();
    player->setSong(song);
}

void TestPlayerLoop::cleanup()
{
    end();
}

QList<int> TestPlayerLoop::jumps() const
{
    QList<int> found;
    for (qsizetype i = 1; i < log->times.size(); ++i)
        if (log->times.at(i) < log->times.at(i - 1))
            found.append(log->times.at(i - 1));
    return found;
}

void TestPlayerLoop::aPartGoesRound()
{
    player->startLoop(1, 1);
    QCOMPARE(player->getLoopStart(), 1);
    QCOMPARE(player->getLoopEnd(), 1);
    QVERIFY(!player->isLooping());
    QTRY_VERIFY_WITH_TIMEOUT(jumps().size() >= 2, 10000);
    QVERIFY(player->isPlaying());
    for (const int time : jumps())
        QVERIFY2(time >= 2300 && time <= 2600, qPrintable(QString::number(time)));
    for (const int time : std::as_const(log->times))
        QVERIFY2(time >= 900 || time == 0, qPrintable(QString::number(time)));
    QCOMPARE(log->takeStates().count(u"part 2"_s), 0);
}

void TestPlayerLoop::theArgumentsAreCrossed()
{
    player->startLoop(1, 0);
    QCOMPARE(player->getLoopStart(), 0);
    QCOMPARE(player->getLoopEnd(), 1);
    QTRY_VERIFY_WITH_TIMEOUT(jumps().size() == 1, 10000);
    QTRY_VERIFY(player->getPlaytime() > 0 && player->getPlaytime() < 900);
}

void TestPlayerLoop::theFirstPartOnlyStarts()
{
    player->startLoop(0, 0);
    QVERIFY(playBeyond(1500));
    QVERIFY(jumps().isEmpty());
}

void TestPlayerLoop::theLastPartOfAStandingSongStandsStill()
{
    player->startLoop(2, 2);
    QCOMPARE(player->getLoopEnd(), 2);
    QTest::qWait(700);
    QVERIFY(player->isPlaying());
    QVERIFY(player->getPlaytime() <= 2500);
    QVERIFY(log->takeStates().count(u"silent"_s) > 3);
    player->stop();
    passTicks();
    QVERIFY(!player->isPlaying());
}

void TestPlayerLoop::theLastPartOfAPlayingSongRunsOut()
{
    song->getPositions().insert(3, Position(9000, u"Last"_s, QString()));
    player->startFromPlaytime(8000);
    QVERIFY(playBeyond(8500));
    player->startLoop(3, 3);
    QVERIFY(QTest::qWaitFor([this] { return !player->isPlaying(); }, 5000));
    passTicks();
    QVERIFY(!player->isPlaying());
    QCOMPARE(player->getPlaytime(), 0);
    // They are cleared by the next start alone.
    QCOMPARE(player->getLoopEnd(), 3);
    player->start();
    QCOMPARE(player->getLoopEnd(), 0);
    QVERIFY(playBeyond(200));
}

void TestPlayerLoop::aPartOutsideTheListStandsStill()
{
    player->startLoop(7, 7);
    QTest::qWait(400);
    QVERIFY(player->isPlaying());
    QCOMPARE(player->getPlaytime(), 0);
}

void TestPlayerLoop::aPauseKeepsTheLoop()
{
    player->startLoop(1, 1);
    QVERIFY(playBeyond(1300));
    player->pause();
    QCOMPARE(player->getLoopEnd(), 1);
    passTicks();
    QVERIFY(!player->isPlaying());
    player->resume();
    QTRY_VERIFY_WITH_TIMEOUT(!jumps().isEmpty(), 10000);
    QVERIFY(jumps().constFirst() >= 2300);
}

void TestPlayerLoop::aStopEndsTheLoop()
{
    player->startLoop(1, 1);
    QVERIFY(playBeyond(1300));
    player->stop();
    QCOMPARE(player->getLoopStart(), 0);
    QCOMPARE(player->getLoopEnd(), 0);
    player->startFromPlaytime(2300);
    QVERIFY(playBeyond(2800));
}

void TestPlayerLoop::aTimeBehindTheLoopJumpsBack()
{
    player->startLoop(1, 1);
    QVERIFY(playBeyond(1200));
    log->take();
    player->startFromPlaytime(5000);
    // The start itself, and the jump.
    QStringList states;
    QTRY_VERIFY_WITH_TIMEOUT((states += log->takeStates()).count(u"silent"_s) == 2, 3000);
    QVERIFY(player->getPlaytime() >= 1000 && player->getPlaytime() < 2500);
}

// The foreplay ends with a stop, and a stop ends every loop, this one too: its part only starts.
void TestPlayerLoop::aLoopBegunInTheForeplayIsNone()
{
    song->setBpm(u"120"_s);
    CountDownItem *item = song->getCountDowns().addNew();
    item->setEnabled(true);
    item->setCountStart(1);
    item->setCountEnd(2);
    item->setIgnition(300);
    player->start();
    QVERIFY(player->getPlaytime() < -500);
    player->startLoop(1, 1);
    QCOMPARE(player->getLoopStart(), 0);
    QCOMPARE(player->getLoopEnd(), 0);
    QVERIFY(player->isPlaying());
    QVERIFY(playBeyond(3000));
    QVERIFY(log->times.constFirst() >= 0);
    QCOMPARE(log->takeStates().count(u"part 2"_s), 1);

    player->startLoop(1, 1);
    QCOMPARE(player->getLoopEnd(), 1);
}

TARVELO_TEST_MAIN(TestPlayerLoop, QCoreApplication)
#include "tst_playerloop.moc"
