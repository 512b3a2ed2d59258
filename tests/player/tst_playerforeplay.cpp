#include "PlayerFixture.h"
#include "Recorder.h"
#include "Tempos.h"
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
    void countsFromItsVeryBeginning_data();
    void countsFromItsVeryBeginning();
    void theMusicFollowsAtOnce();
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
    double paceFromTheStart();
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

void TestPlayerForeplay::countsFromItsVeryBeginning_data()
{
    Tempos::addRows();
}

// The player's own timer decides how fine it is.
double TestPlayerForeplay::paceFromTheStart()
{
    player->start();
    const double started = Recorder::now();
    const int from = player->getPlaytime();
    double last = started;
    int reached = from;
    while (player->getPlaytime() < 0 && last - started < 5000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (player->getPlaytime() < 0 && player->getPlaytime() != reached) {
            reached = player->getPlaytime();
            last = Recorder::now();
        }
    }
    return (reached - from) / (last - started);
}

// 3 % of 200 ms are no more than a moment of another process.
void TestPlayerForeplay::countsFromItsVeryBeginning()
{
    QFETCH(int, percent);
    constexpr int attempts = 3;
    addCountDown(300);
    song->setTempo(percent);
    player->setSong(song);
    double off = 1;
    for (int attempt = 0; attempt < attempts && off >= 0.03; ++attempt) {
        player->stop();
        off = qAbs(paceFromTheStart() / Tempos::factor(percent) - 1.0);
        fprintf(stdout, "FIGURE %s: the foreplay's pace is off by %.1f %%\n",
                QTest::currentDataTag(), off * 100);
        QVERIFY(player->isPlaying() && player->getPlaytime() == 0);
    }
    QVERIFY2(off < 0.03, qPrintable(QString::number(off)));
    QVERIFY(playBeyond(100));
    player->start();
    QCOMPARE(player->getPlaytime(), -200);
}

// No later after the foreplay than after any other start, and without a gap from then on.
void TestPlayerForeplay::theMusicFollowsAtOnce()
{
    Recorder recorder;
    QVERIFY(recorder.start());
    player->setSong(song);
    const auto heardAfter = [&](double asked) {
        const bool heard = playBeyond(900);
        recorder.catchUp();
        player->stop();
        const qsizetype first = recorder.firstSound(recorder.frameAt(asked));
        const double silence = recorder.longestSilence(first, recorder.lastSound());
        return heard && first >= 0 && silence < 20 ? recorder.timeOf(first) - asked : -1;
    };
    const auto start = [&] {
        player->start();
        return heardAfter(Recorder::now() + qMax(-player->getPlaytime(), 0));
    };
    start();
    QTest::qWait(200);
    const double usual = start();
    addCountDown(300);
    constexpr int attempts = 3;
    double gap = -1;
    for (int i = 0; i < attempts && (gap < 0 || gap > usual + 50); ++i) {
        QTest::qWait(200);
        gap = start();
        fprintf(stdout, "FIGURE heard %.0f ms after a start, %.0f ms after a foreplay\n", usual,
                gap);
    }
    QVERIFY(usual > 0 && gap > 0);
    QVERIFY2(gap < usual + 50, qPrintable(QString::number(gap - usual)));
}

void TestPlayerForeplay::followsTheTempo_data()
{
    Tempos::addRows();
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
