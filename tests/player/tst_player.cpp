#include "LogCapture.h"
#include "PlayerFixture.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString decodes = u"debug: Decode Audio Data"_qs;
const QString refused
    = u"critical: Selected audio format not supported by backend, cannot play audio."_qs;

} // namespace

class TestPlayer : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void withoutASongNothingPlays();
    void aNewSongRenewsItsCountDowns();
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
    void songEnds();
    void songEndsWhileItStillDecoded();
    void songTooShortToHearEnds();
    void clampsTheTempo_data();
    void clampsTheTempo();
    void songBringsItsTempo_data();
    void songBringsItsTempo();
    void tempoMovesTheTime();
    void sameSongGoesOn();
    void nextSongStopsTheFirst();
    void nextSongMayComeWhileDecoding();
    void songMayStartWhileDecoding();
    void formatMayChangeFromSongToSong();
    void unplayableSongIsRefused_data();
    void unplayableSongIsRefused();
    void aFileOfTooHighASampleRateIsRefused();
    void volumeAndPitchDisturbNothing();
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

void TestPlayer::aNewSongRenewsItsCountDowns()
{
    song->setBpm(u"120"_qs);
    CountDownItem *item = song->getCountDowns().addNew();
    item->setIgnition(10000);
    item->setCountStart(9);
    QCOMPARE(item->getStartTime(), 0);
    player->setSong(song);
    QCOMPARE(item->getStartTime(), 5500);
    song->setBpm(u"60"_qs);
    player->setSong(song);
    QCOMPARE(item->getStartTime(), 1000);
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

void TestPlayer::songEnds()
{
    player->setSong(song);
    player->startFromPlaytime(8500);
    QVERIFY(playBeyond(9000));
    QVERIFY(player->isPlaying());
    log->take();
    QTRY_VERIFY(!player->isPlaying());
    const QList<int> times = log->times;
    QVERIFY2(times.at(times.size() - 2) >= 9600, "the song ended early");
    QCOMPARE(times.last(), 0);
    QCOMPARE(log->takeStates(), (QStringList{u"silent"_qs, u"part -1"_qs, u"time 0"_qs}));
    QCOMPARE(player->getPlaytime(), 0);

    player->start();
    QVERIFY(playBeyond(300));
}

// A pull at once after the head may find nothing yet.
void TestPlayer::songEndsWhileItStillDecoded()
{
    const SongPtr brief = newSong(1.5);
    player->setSong(brief);
    player->start();
    QVERIFY(playBeyond(1000));
    QTRY_VERIFY(!player->isPlaying());
    QCOMPARE(log->takeStates(), (QStringList{u"playing"_qs, u"silent"_qs, u"time 0"_qs}));
}

void TestPlayer::songTooShortToHearEnds()
{
    const SongPtr click = newSong(0.05, u"flac"_qs);
    player->setSong(click);
    player->start();
    QTRY_VERIFY(!player->isPlaying());
    QCOMPARE(log->take(), (QStringList{u"playing"_qs, u"silent"_qs}));
}

void TestPlayer::clampsTheTempo_data()
{
    QTest::addColumn<double>("percent");
    QTest::addColumn<double>("kept");

    QTest::newRow("none") << 0.0 << 0.0;
    QTest::newRow("slower") << -25.0 << -25.0;
    QTest::newRow("slowest") << -40.0 << -40.0;
    QTest::newRow("too slow") << -41.0 << -40.0;
    QTest::newRow("fastest") << 40.0 << 40.0;
    QTest::newRow("too fast") << 100.0 << 40.0;
    QTest::newRow("no number") << qQNaN() << 0.0;
    QTest::newRow("endless") << qInf() << 0.0;
}

void TestPlayer::clampsTheTempo()
{
    QFETCH(double, percent);
    QFETCH(double, kept);
    player->setTempo(percent);
    QVERIFY(qAbs(player->getTempo() - kept) < 1e-9);
}

void TestPlayer::songBringsItsTempo_data()
{
    clampsTheTempo_data();
}

void TestPlayer::songBringsItsTempo()
{
    QFETCH(double, percent);
    QFETCH(double, kept);
    song->setTempo(percent);
    player->setTempo(7);
    player->setSong(song);
    QVERIFY(qAbs(player->getTempo() - kept) < 1e-9);
}

void TestPlayer::tempoMovesTheTime()
{
    player->setSong(song);
    player->setTempo(40);
    player->start();
    QVERIFY(playBeyond(300));
    QElapsedTimer clock;
    clock.start();
    const int begin = player->getPlaytime();
    QVERIFY(playBeyond(begin + 2100));
    const double ratio = (player->getPlaytime() - begin) / static_cast<double>(clock.elapsed());
    QVERIFY2(ratio > 1.3 && ratio < 1.5, qPrintable(QString::number(ratio)));
}

void TestPlayer::sameSongGoesOn()
{
    LogCapture lines;
    player->setSong(song);
    QCOMPARE(lines.count(decodes), 1);
    player->start();
    QVERIFY(playBeyond(300));
    log->take();
    player->setSong(song);
    QVERIFY(player->isPlaying());
    QCOMPARE(lines.count(decodes), 1);
    QVERIFY(log->takeStates().isEmpty());
}

void TestPlayer::nextSongStopsTheFirst()
{
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(1200));
    log->take();
    const SongPtr next = newSong(5);
    player->setSong(next);
    QCOMPARE(log->takeStates(), (QStringList{u"silent"_qs, u"part -1"_qs, u"time 0"_qs}));
    QVERIFY(!player->isPlaying());
    QVERIFY(!song->getAudioData());
    QVERIFY(next->getAudioData());
    QCOMPARE(player->getPlaytimeTotal(), 5000);
    player->start();
    QVERIFY(playBeyond(200));
}

void TestPlayer::nextSongMayComeWhileDecoding()
{
    const SongPtr next = newSong(5);
    QTimer::singleShot(0, this, [&] { player->setSong(next); });
    player->setSong(song);
    QTRY_COMPARE(player->getPlaytimeTotal(), 5000);
    QVERIFY(!song->getAudioData());
    player->start();
    QVERIFY(playBeyond(200));
}

void TestPlayer::songMayStartWhileDecoding()
{
    const SongPtr shorter = newSong(0.3);
    QTimer::singleShot(20, this, [&] { player->start(); });
    player->setSong(shorter);
    QTRY_VERIFY(log->has(u"silent"_qs));
    QVERIFY(!player->isPlaying());
}

void TestPlayer::formatMayChangeFromSongToSong()
{
    for (const int channels : {2, 1, 2}) {
        for (const int rate : {44100, 22050}) {
            player->setSong(newSong(3, u"mp3"_qs, rate, channels));
            player->start();
            QVERIFY(playBeyond(200));
        }
    }
}

void TestPlayer::unplayableSongIsRefused_data()
{
    QTest::addColumn<bool>("missing");
    QTest::addColumn<int>("frequency");
    QTest::addColumn<int>("channels");
    QTest::addColumn<bool>("afterAnother");

    for (const bool after : {false, true}) {
        const char *when = after ? "after another" : "first";
        QTest::addRow("no file, %s", when) << true << 0 << 0 << after;
        QTest::addRow("no channels, %s", when) << false << 44100 << 0 << after;
        QTest::addRow("no sample rate, %s", when) << false << 0 << 2 << after;
        QTest::addRow("too high a sample rate, %s", when) << false << 384000 << 2 << after;
        QTest::addRow("too many channels, %s", when) << false << 44100 << 17 << after;
    }
}

void TestPlayer::unplayableSongIsRefused()
{
    QFETCH(bool, missing);
    QFETCH(int, frequency);
    QFETCH(int, channels);
    QFETCH(bool, afterAnother);
    if (afterAnother) {
        player->setSong(song);
        player->start();
        QVERIFY(playBeyond(200));
    }
    const SongPtr bad(new Song(directory.filePath(u"unplayable.mp3"_qs), missing));
    bad->setFrequency(frequency);
    bad->setChannels(channels);

    LogCapture lines;
    player->setSong(bad);
    QCOMPARE(lines.count(decodes), missing ? 0 : 1);
    log->take();
    player->start();
    QVERIFY(!player->isPlaying());
    QCOMPARE(lines.count(refused), 1);
    QCOMPARE(log->take(), (QStringList{u"playing"_qs, u"silent"_qs}));

    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(200));
}

void TestPlayer::aFileOfTooHighASampleRateIsRefused()
{
    const SongPtr high = newSong(1, u"flac"_qs, 384000);
    LogCapture lines;
    player->setSong(high);
    player->start();
    QVERIFY(!player->isPlaying());
    QCOMPARE(lines.count(refused), 1);
}

void TestPlayer::volumeAndPitchDisturbNothing()
{
    player->setSong(song);
    Q_EMIT player->requestSetVolume(5.0);
    Q_EMIT player->requestSetPitch(-99.0);
    player->start();
    QVERIFY(playBeyond(200));
    Q_EMIT player->requestSetVolume(0.5);
    Q_EMIT player->requestSetPitch(99.0);
    QVERIFY(playBeyond(500));
    QCOMPARE(log->takeStates(), (QStringList{u"playing"_qs, u"part 0"_qs}));
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
