#include "PlayerFixture.h"
#include "Recorder.h"
#include "Settings.h"
#include "SongAudioData.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QThread>

using namespace Qt::StringLiterals;

// The output has nothing to play for a moment, and that is not the end of the song.
class TestPlayerHiccup : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aBusyWindowIsNoEnd_data();
    void aBusyWindowIsNoEnd();
    void aSlowDecoderIsNoEnd();

private:
    bool decodeBeyond(int ms);

    std::unique_ptr<Recorder> recorder;
};

void TestPlayerHiccup::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerHiccup::init()
{
    begin();
    Settings::setValue(Settings::Key::RegisterPlay, 1);
    recorder = std::make_unique<Recorder>();
    QVERIFY(recorder->start());
}

void TestPlayerHiccup::cleanup()
{
    end();
    recorder.reset();
    Settings::remove(Settings::Key::RegisterPlay);
}

void TestPlayerHiccup::aBusyWindowIsNoEnd_data()
{
    QTest::addColumn<int>("from");

    QTest::newRow("before the play is registered") << 800;
    QTest::newRow("after that") << 2400;
}

// For longer than the output has sound.
void TestPlayerHiccup::aBusyWindowIsNoEnd()
{
    QFETCH(int, from);
    player->setSong(song);
    player->start();
    QVERIFY(playBeyond(from));
    log->take();
    QThread::msleep(1000);
    const int then = player->getPlaytime();
    QVERIFY(playBeyond(then + 2600));
    QVERIFY(player->isPlaying());
    recorder->catchUp();
    const double gap = recorder->longestSilence(recorder->firstSound(), recorder->samples().size());
    QVERIFY2(gap > 200, "there was no hiccup");
    const qsizetype all = recorder->samples().size();
    QVERIFY(recorder->longestSilence(all - Recorder::rate, all) < 150);
    // Nobody is told of an end, so nobody starts the next song.
    const QStringList states = log->takeStates();
    QVERIFY2(!states.contains(u"silent"_s) && !states.contains(u"playing"_s),
             qPrintable(states.join(u", "_s)));
    QVERIFY(std::is_sorted(log->times.cbegin(), log->times.cend()));
    QCOMPARE(song->getDanceEvents().count(), 1);
}

// In the event loop itself: QTest's waits sleep between its rounds, and the decoder holds no more
// than four buffers.
bool TestPlayerHiccup::decodeBeyond(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(30000, &loop, [&loop] { loop.exit(1); });
    connect(player.get(), &Player::notifyPlayTimeChanged, &loop, [&loop, ms](int time) {
        if (time > ms)
            loop.exit();
    });
    return loop.exec() == 0;
}

// The time stands until the decoder has come as far as the start.
void TestPlayerHiccup::aSlowDecoderIsNoEnd()
{
    constexpr int begin = 580000;
    const SongPtr endless = newSong(600);
    player->setSong(endless);
    const double asked = Recorder::now();
    player->startFromPlaytime(begin);
    QVERIFY(player->isPlaying());
    passTicks();
    QVERIFY(endless->getAudioData()->isGrowing());
    QVERIFY2(player->getPlaytime() <= begin, qPrintable(QString::number(player->getPlaytime())));
    QVERIFY(decodeBeyond(begin + 2500));
    recorder->catchUp();
    const qsizetype first = recorder->firstSound();
    QVERIFY2(recorder->timeOf(first) - asked > 500, "the decoder was fast enough");
    QVERIFY(recorder->longestSilence(first, recorder->lastSound()) < 150);
    QCOMPARE(log->takeStates(), QStringList{u"playing"_s});
    QCOMPARE(endless->getDanceEvents().count(), 1);
    player->stop();
    QCOMPARE(endless->getDanceEvents().count(), 1);
}

TARVELO_TEST_MAIN(TestPlayerHiccup, QCoreApplication)
#include "tst_playerhiccup.moc"
