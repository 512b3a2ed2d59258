#include "LogCapture.h"
#include "PlayerFixture.h"
#include "TestMain.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

const QString decodes = u"debug: Decode Audio Data"_qs;
const QString oldSong = u"debug: Set new Song. Old song: "_qs;
const QString resumes = u"debug: Resume Song: "_qs;
const QString refused
    = u"critical: Selected audio format not supported by backend, cannot play audio."_qs;

} // namespace

// What a song brings with it, and what becomes of it when it ends or another one comes.
class TestPlayerSong : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aNewSongRenewsItsCountDowns();
    void everyKindPlays_data();
    void everyKindPlays();
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
    void theLogTellsWhatBecameOfTheOldSong();
    void theLogTellsOfAResume();
    void nextSongMayComeWhileDecoding();
    void aReleasedDecodingIsNotWaitedFor();
    void songMayStartWhileDecoding();
    void formatMayChangeFromSongToSong();
    void unplayableSongIsRefused_data();
    void unplayableSongIsRefused();
    void aFileOfTooHighASampleRateIsRefused();
    void volumeAndPitchDisturbNothing();
};

void TestPlayerSong::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerSong::init()
{
    begin();
}

void TestPlayerSong::cleanup()
{
    end();
}

void TestPlayerSong::aNewSongRenewsItsCountDowns()
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

void TestPlayerSong::everyKindPlays_data()
{
    QTest::addColumn<QString>("suffix");

    for (const char *suffix : {"mp3", "m4a", "flac", "ogg", "wav"})
        QTest::newRow(suffix) << QString::fromLatin1(suffix);
}

void TestPlayerSong::everyKindPlays()
{
    QFETCH(QString, suffix);
    const SongPtr other = newSong(1.5, suffix);
    player->setSong(other);
    player->start();
    QVERIFY(playBeyond(1000));
    QTRY_VERIFY(!player->isPlaying());
    QVERIFY(*std::max_element(log->times.cbegin(), log->times.cend()) < 1900);
    QCOMPARE(log->takeStates(), (QStringList{u"playing"_qs, u"silent"_qs, u"time 0"_qs}));
}

void TestPlayerSong::songEnds()
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
void TestPlayerSong::songEndsWhileItStillDecoded()
{
    const SongPtr brief = newSong(1.5);
    player->setSong(brief);
    player->start();
    QVERIFY(playBeyond(1000));
    QTRY_VERIFY(!player->isPlaying());
    QCOMPARE(log->takeStates(), (QStringList{u"playing"_qs, u"silent"_qs, u"time 0"_qs}));
}

void TestPlayerSong::songTooShortToHearEnds()
{
    const SongPtr click = newSong(0.05, u"flac"_qs);
    player->setSong(click);
    player->start();
    QTRY_VERIFY(!player->isPlaying());
    QCOMPARE(log->take(), (QStringList{u"playing"_qs, u"silent"_qs}));
}

void TestPlayerSong::clampsTheTempo_data()
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

void TestPlayerSong::clampsTheTempo()
{
    QFETCH(double, percent);
    QFETCH(double, kept);
    player->setTempo(percent);
    QVERIFY(qAbs(player->getTempo() - kept) < 1e-9);
}

void TestPlayerSong::songBringsItsTempo_data()
{
    clampsTheTempo_data();
}

void TestPlayerSong::songBringsItsTempo()
{
    QFETCH(double, percent);
    QFETCH(double, kept);
    song->setTempo(percent);
    player->setTempo(7);
    player->setSong(song);
    QVERIFY(qAbs(player->getTempo() - kept) < 1e-9);
}

void TestPlayerSong::tempoMovesTheTime()
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

void TestPlayerSong::sameSongGoesOn()
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

void TestPlayerSong::nextSongStopsTheFirst()
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

void TestPlayerSong::theLogTellsWhatBecameOfTheOldSong()
{
    LogCapture lines;
    player->setSong(song);
    QCOMPARE(lines.count(oldSong), 0);
    player->start();
    QVERIFY(playBeyond(1200));
    const SongPtr next = newSong(5);
    player->setSong(next);
    player->setSong(next);
    QCOMPARE(lines.count(oldSong), 1);
    const QString line = lines.all().filter(oldSong).constFirst();
    QVERIFY2(line.startsWith(oldSong), qPrintable(line));
    QVERIFY2(line.contains(song->getFilename()), qPrintable(line));
    QVERIFY2(
        line.simplified().endsWith(u"generatedEvent= false playtime= 1 toBeWritten After= 90"_qs),
        qPrintable(line));
    player->setSong(SongPtr());
    QCOMPARE(lines.count(oldSong), 2);
    player->setSong(song);
    QCOMPARE(lines.count(oldSong), 2);
}

// Of a resume that changes nothing as well, and of each start.
void TestPlayerSong::theLogTellsOfAResume()
{
    LogCapture lines;
    player->resume();
    QCOMPARE(lines.count(resumes), 0);
    player->setSong(song);
    player->start();
    QCOMPARE(lines.count(resumes), 1);
    QVERIFY(lines.all().filter(resumes).constFirst().contains(song->getFilename()));
    QVERIFY(playBeyond(100));
    player->pause();
    QCOMPARE(lines.count(resumes), 1);
    player->resume();
    player->resume();
    QCOMPARE(lines.count(resumes), 3);
}

void TestPlayerSong::nextSongMayComeWhileDecoding()
{
    const SongPtr next = newSong(5);
    QTimer::singleShot(0, this, [&] { player->setSong(next); });
    player->setSong(song);
    QTRY_COMPARE(player->getPlaytimeTotal(), 5000);
    QVERIFY(!song->getAudioData());
    player->start();
    QVERIFY(playBeyond(200));
}

// A file without a head is waited for as long as any.
void TestPlayerSong::aReleasedDecodingIsNotWaitedFor()
{
    const SongPtr missing(new Song(directory.filePath(u"missing.mp3"_qs), false));
    missing->setFrequency(44100);
    missing->setChannels(2);
    const auto setIt = [&] {
        QElapsedTimer clock;
        clock.start();
        player->setSong(missing);
        return clock.elapsed();
    };
    QVERIFY(setIt() >= 95);
    player->setSong(SongPtr());
    QTimer::singleShot(0, this, [&] { player->setSong(SongPtr()); });
    const qint64 waited = setIt();
    QVERIFY(!missing->getAudioData());
    QVERIFY2(waited < 70, qPrintable(QString::number(waited)));
}

void TestPlayerSong::songMayStartWhileDecoding()
{
    const SongPtr shorter = newSong(0.3);
    QTimer::singleShot(20, this, [&] { player->start(); });
    player->setSong(shorter);
    QTRY_VERIFY(log->has(u"silent"_qs));
    QVERIFY(!player->isPlaying());
}

void TestPlayerSong::formatMayChangeFromSongToSong()
{
    for (const int channels : {2, 1, 2}) {
        for (const int rate : {44100, 22050}) {
            player->setSong(newSong(3, u"mp3"_qs, rate, channels));
            player->start();
            QVERIFY(playBeyond(200));
        }
    }
}

void TestPlayerSong::unplayableSongIsRefused_data()
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

void TestPlayerSong::unplayableSongIsRefused()
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

void TestPlayerSong::aFileOfTooHighASampleRateIsRefused()
{
    const SongPtr high = newSong(1, u"flac"_qs, 384000);
    LogCapture lines;
    player->setSong(high);
    player->start();
    QVERIFY(!player->isPlaying());
    QCOMPARE(lines.count(refused), 1);
}

void TestPlayerSong::volumeAndPitchDisturbNothing()
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

TARVELO_TEST_MAIN(TestPlayerSong, QCoreApplication)
#include "tst_playersong.moc"
