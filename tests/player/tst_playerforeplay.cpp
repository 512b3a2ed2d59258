#include "LogCapture.h"
#include "PlayerFixture.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

// The lead-in of songs whose first countdown begins at once, and what the display of countdowns
// hears.
class TestPlayerForeplay : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void countsUpToTheMusic();
    void isLeftOutWhereThereIsTime_data();
    void isLeftOutWhereThereIsTime();
    void followsTheTempo_data();
    void followsTheTempo();
    void followsAChangeOfTempo();
    void isLateByNothing();
    void endsWithPause();
    void endsWithStop();
    void endsWithAnotherSong();
    void beginsAnewWithAStart();
    void resumeChangesNothing();
    void comesBeforeAPartBeforeTheSong();
    void isLeftByAPart();
    void tellsEachNumberOnce();
    void countDownsGoOffWithAStop();
    void theFirstActiveCountDownIsShown();
    void countDownsNeedABpm();

private:
    // Of the song's: its first number is due at this time, at half a second a beat.
    CountDownItem *addCountDown(int startTime, int from = 1, int to = 3);
    double paceOfForeplay();
};

void TestPlayerForeplay::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerForeplay::init()
{
    begin();
    song->setBpm(u"120"_s);
}

void TestPlayerForeplay::cleanup()
{
    end();
}

CountDownItem *TestPlayerForeplay::addCountDown(int startTime, int from, int to)
{
    constexpr int beat = 500;
    CountDownItem *item = song->getCountDowns().addNew();
    item->setEnabled(true);
    item->setCountStart(from);
    item->setCountEnd(to);
    item->setIgnition(startTime + qAbs(to - from) * beat);
    return item;
}

void TestPlayerForeplay::countsUpToTheMusic()
{
    addCountDown(300);
    player->setSong(song);
    player->start();
    QCOMPARE(player->getPlaytime(), -200);
    QVERIFY(player->isPlaying());
    QVERIFY(playBeyond(400));
    QCOMPARE(log->takeStates().mid(0, 3), (QStringList{u"playing"_s, u"count 1"_s, u"part 0"_s}));
    // -200 was never told; it begins a step of its own, and -99 to 99 is one.
    QVERIFY(log->times.at(0) > -200 && log->times.at(0) < -100);
    QVERIFY(log->times.at(1) > -100 && log->times.at(1) < 0);
    QVERIFY(log->times.at(2) >= 100);
}

void TestPlayerForeplay::isLeftOutWhereThereIsTime_data()
{
    QTest::addColumn<int>("startTime");
    QTest::addColumn<bool>("enabled");
    QTest::newRow("just in time") << 500 << true;
    QTest::newRow("later") << 3000 << true;
    QTest::newRow("disabled") << 300 << false;
}

void TestPlayerForeplay::isLeftOutWhereThereIsTime()
{
    QFETCH(int, startTime);
    QFETCH(bool, enabled);
    addCountDown(startTime)->setEnabled(enabled);
    // Nobody has set this one's time yet.
    song->getCountDowns().addNew()->setEnabled(true);
    player->setSong(song);
    player->start();
    QCOMPARE(player->getPlaytime(), 0);
    QVERIFY(playBeyond(100));
    QVERIFY(log->times.at(0) > 0);
}

// Song time for real time, in the foreplay.
double TestPlayerForeplay::paceOfForeplay()
{
    QElapsedTimer clock;
    clock.start();
    double begin = -1;
    double end = -1;
    int first = 0;
    int last = 0;
    const auto listen = connect(player.get(), &Player::notifyPlayTimeChanged, this, [&](int time) {
        end = double(clock.nsecsElapsed()) / 1e6;
        last = time;
        if (begin < 0) {
            begin = end;
            first = last;
        }
    });
    if (!QTest::qWaitFor([&] { return last > -100 && begin >= 0; }, 10000))
        return 0;
    disconnect(listen);
    return (last - first) / (end - begin);
}

void TestPlayerForeplay::followsTheTempo_data()
{
    QTest::addColumn<int>("percent");
    for (const int percent : {0, 20, -20, 40, -40})
        QTest::addRow("%+d %%", percent) << percent;
}

void TestPlayerForeplay::followsTheTempo()
{
    QFETCH(int, percent);
    addCountDown(-800);
    song->setTempo(percent);
    player->setSong(song);
    player->start();
    QCOMPARE(player->getPlaytime(), -1300);
    const double pace = paceOfForeplay();
    const double wanted = 1.0 + percent / 100.0;
    QVERIFY2(qAbs(pace / wanted - 1.0) < 0.03, qPrintable(QString::number(pace)));
    QVERIFY(playBeyond(100));
}

void TestPlayerForeplay::followsAChangeOfTempo()
{
    addCountDown(-1500);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-1600));
    player->setTempo(-40);
    const double pace = paceOfForeplay();
    QVERIFY2(qAbs(pace / 0.6 - 1.0) < 0.03, qPrintable(QString::number(pace)));
}

// The window is busy for longer than the foreplay takes.
void TestPlayerForeplay::isLateByNothing()
{
    addCountDown(0);
    player->setSong(song);
    player->start();
    QCOMPARE(player->getPlaytime(), -500);
    QThread::msleep(600);
    QTRY_VERIFY_WITH_TIMEOUT(player->getPlaytime() > 0, 450);
}

void TestPlayerForeplay::endsWithPause()
{
    addCountDown(300);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-150));
    log->take();
    player->pause();
    QCOMPARE(player->getPlaytime(), 0);
    QVERIFY(!player->isPlaying());
    QCOMPARE(log->takeStates().constFirst(), u"silent"_s);
    passTicks();
    QCOMPARE(player->getPlaytime(), 0);
    player->resume();
    QCOMPARE(player->getPlaytime(), 0);
    QVERIFY(playBeyond(200));
}

void TestPlayerForeplay::endsWithStop()
{
    addCountDown(-1000);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-1400));
    QVERIFY(log->has(u"count 1"_s));
    log->take();
    player->stop();
    QCOMPARE(log->take(), (QStringList{u"silent"_s, u"time 0"_s, u"count off"_s}));
    passTicks();
    QVERIFY(log->take().isEmpty());
    QCOMPARE(player->getPlaytime(), 0);
}

void TestPlayerForeplay::endsWithAnotherSong()
{
    addCountDown(-1000);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-1400));
    player->setSong(newSong(6));
    QVERIFY(!player->isPlaying());
    passTicks();
    QCOMPARE(player->getPlaytime(), 0);
}

void TestPlayerForeplay::beginsAnewWithAStart()
{
    addCountDown(-500);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-700));
    player->start();
    QCOMPARE(player->getPlaytime(), -1000);
    QVERIFY(playBeyond(100));
}

void TestPlayerForeplay::resumeChangesNothing()
{
    addCountDown(-500);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-700));
    log->take();
    player->resume();
    QVERIFY(log->take().isEmpty());
    QVERIFY(player->getPlaytime() < 0);
    QVERIFY(playBeyond(100));
}

void TestPlayerForeplay::comesBeforeAPartBeforeTheSong()
{
    song->getPositions().insert(0, Position(-300, u"Count"_s, QString()));
    addCountDown(300);
    player->setSong(song);
    player->startFromPart(0);
    QCOMPARE(player->getPlaytime(), -200);
    QVERIFY(playBeyond(100));
    player->startFromPlaytime(-300);
    QCOMPARE(player->getPlaytime(), -200);
    QVERIFY(playBeyond(100));
}

void TestPlayerForeplay::isLeftByAPart()
{
    addCountDown(300);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(-150));
    player->startFromPart(1);
    QVERIFY(playBeyond(1100));
    QVERIFY(player->getPlaytime() < 1600);
}

void TestPlayerForeplay::tellsEachNumberOnce()
{
    addCountDown(300, 11, 13);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(2500));
    QStringList told = log->take();
    told.removeIf([](const QString &text) { return !text.startsWith(u"count"); });
    QCOMPARE(told, (QStringList{u"count 11"_s, u"count 12"_s, u"count 13"_s, u"count off"_s}));
}

void TestPlayerForeplay::countDownsGoOffWithAStop()
{
    addCountDown(3000);
    player->setSong(song);
    player->startFromPlaytime(2900);
    QVERIFY(playBeyond(3200));
    QVERIFY(log->has(u"count 1"_s));
    log->take();
    player->stop();
    QCOMPARE(log->take(), (QStringList{u"silent"_s, u"part -1"_s, u"time 0"_s, u"count off"_s}));
}

void TestPlayerForeplay::theFirstActiveCountDownIsShown()
{
    addCountDown(1000, 11, 13);
    addCountDown(1000, 21, 23);
    player->setSong(song);
    player->startFromPlaytime(900);
    QVERIFY(playBeyond(1700));
    QVERIFY(log->has(u"count 11"_s) && log->has(u"count 12"_s));
    QVERIFY(!log->has(u"count 21"_s));
}

// Its first number would be due with its last one.
void TestPlayerForeplay::countDownsNeedABpm()
{
    song->setBpm(u"0"_s);
    addCountDown(-700);
    player->setSong(song);
    player->start();
    QCOMPARE(player->getPlaytime(), -200);
    QVERIFY(playBeyond(300));
    QVERIFY(!log->has(u"count 1"_s));
}

TARVELO_TEST_MAIN(TestPlayerForeplay, QCoreApplication)
#include "tst_playerforeplay.moc"
