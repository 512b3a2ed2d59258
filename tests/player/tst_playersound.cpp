#include "PlayerFixture.h"
#include "Recorder.h"
#include "Samples.h"
#include "Settings.h"
#include "SongStore.h"
#include "TestMain.h"
#include "Waves.h"

#include <QCoreApplication>
#include <QSignalSpy>
#include <QThread>

#include <algorithm>
#include <cmath>
#include <memory>

using namespace Qt::StringLiterals;
using Waves::centsFrom;
using Waves::render;
using Waves::sine;

namespace {

constexpr int rate = Waves::rate;
// What is heard needs this long at most to reach the recorder.
constexpr double recorderMs = 40;
// The session's sound server has no rights of its own: on a busy machine it gets a turn too late
// now and then, and what can't be told from that is measured anew.
constexpr int attempts = 3;

} // namespace

// What the listener hears, recorded behind the output.
class TestPlayerSound : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void musicStartsSoon();
    void busyWindowLeavesNoGap_data();
    void busyWindowLeavesNoGap();
    void tempoKeepsThePitch();
    void startsAtTheRightPlace_data();
    void startsAtTheRightPlace();
    void resumesWhereItPaused();
    void stopIsSilentAtOnce();
    void partsFollowTheBeat_data();
    void partsFollowTheBeat();
    void endIsToldWhenAllWasHeard();
    void registrationLeavesNoGap();
    void volumeBelongsToTheOutput();

private:
    SongPtr tone(double seconds);
    SongPtr clicks(int beats);
    QList<double> lateParts(int beats);
    int peakOf(const SongPtr &song);
    SongPtr encoded(const QString &name, const QList<qint16> &samples);
    bool playBeyond(int ms);

    QTemporaryDir directory;
    std::unique_ptr<Recorder> recorder;
    std::unique_ptr<Player> player;
};

void TestPlayerSound::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerSound::init()
{
    player = std::make_unique<Player>();
    recorder = std::make_unique<Recorder>();
    QVERIFY(recorder->start());
}

void TestPlayerSound::cleanup()
{
    player.reset();
    recorder.reset();
}

SongPtr TestPlayerSound::tone(double seconds)
{
    const QString file = directory.filePath(u"tone%1.mp3"_qs.arg(seconds));
    if (!Samples::writeTone(file, {.seconds = seconds}))
        return {};
    const SongPtr song(new Song(file, false));
    song->setFrequency(rate);
    song->setChannels(2);
    return song;
}

SongPtr TestPlayerSound::encoded(const QString &name, const QList<qint16> &samples)
{
    const QString wave = directory.filePath(name + u".wav"_qs);
    const QString file = directory.filePath(name + u".mp3"_qs);
    if (!Samples::writeWave(wave, samples) || !Samples::encode(wave, file))
        return {};
    const SongPtr song(new Song(file, false));
    song->setFrequency(rate);
    song->setChannels(2);
    return song;
}

bool TestPlayerSound::playBeyond(int ms)
{
    return QTest::qWaitFor([this, ms] { return player->getPlaytime() > ms; }, 30000);
}

void TestPlayerSound::musicStartsSoon()
{
    const SongPtr song = tone(5);
    for (const char *which : {"first", "second", "third"}) {
        player->setSong(SongPtr());
        const double set = Recorder::now();
        player->setSong(song);
        const double asked = Recorder::now();
        player->start();
        const double returned = Recorder::now();
        QVERIFY(playBeyond(500));
        player->stop();
        recorder->catchUp();
        const double heard
            = recorder->timeOf(recorder->firstSound(recorder->frameAt(asked))) - asked;
        fprintf(stdout, "FIGURE %s start: set song %.0f ms, start() %.0f ms, heard after %.0f ms\n",
                which, asked - set, returned - asked, heard);
        QVERIFY2(heard > 0 && heard < 500, qPrintable(QString::number(heard)));
    }
}

void TestPlayerSound::busyWindowLeavesNoGap_data()
{
    QTest::addColumn<int>("starts");

    QTest::newRow("first start") << 1;
    QTest::newRow("seventh start") << 7;
}

// No start may have less sound on its way than the one before.
void TestPlayerSound::busyWindowLeavesNoGap()
{
    QFETCH(int, starts);
    player->setSong(tone(6));
    for (int start = 1; start < starts; ++start) {
        player->start();
        QVERIFY(playBeyond(100));
        player->stop();
    }
    QTest::qWait(200);
    recorder->catchUp();
    const qsizetype from = recorder->samples().size();
    player->start();
    QVERIFY(playBeyond(500));
    for (int i = 0; i < 8; ++i) {
        QThread::msleep(100);
        QVERIFY(playBeyond(player->getPlaytime() + 300));
    }
    QVERIFY(player->isPlaying());
    recorder->catchUp();
    player->stop();
    const double gap = recorder->longestSilence(recorder->firstSound(from), recorder->lastSound());
    fprintf(stdout, "FIGURE %s: longest silence %.1f ms\n", QTest::currentDataTag(), gap);
    QVERIFY2(gap < 20, qPrintable(QString::number(gap)));
}

void TestPlayerSound::tempoKeepsThePitch()
{
    player->setSong(tone(30));
    player->start();
    for (const int percent : {0, 20, -20, 40, -40}) {
        player->setTempo(percent);
        QVERIFY(playBeyond(player->getPlaytime() + 500));
        double cents = 100;
        double gap = 100;
        const auto isGood = [&] { return qAbs(cents) < 8 && gap < 20; };
        for (int attempt = 0; attempt < attempts && !isGood(); ++attempt) {
            recorder->catchUp();
            const double begin = Recorder::now();
            QVERIFY(playBeyond(player->getPlaytime() + 1000));
            recorder->catchUp();
            const qsizetype from = recorder->frameAt(begin);
            const qsizetype to = recorder->frameAt(Recorder::now() - 2 * recorderMs);
            const double hertz = recorder->frequency(from, to);
            cents = centsFrom(440, hertz);
            gap = recorder->longestSilence(from, to);
            fprintf(stdout, "FIGURE tempo %+d%%: %.2f Hz, %+.1f cents\n", percent, hertz, cents);
        }
        QVERIFY2(qAbs(cents) < 8, qPrintable(QString::number(cents)));
        QVERIFY2(gap < 20, qPrintable(QString::number(gap)));
    }
}

void TestPlayerSound::startsAtTheRightPlace_data()
{
    QTest::addColumn<int>("ms");

    for (const int ms : {500, 3000, 3500, 7750})
        QTest::addRow("%d ms", ms) << ms;
}

// Each second of the song has a tone of its own: 300 Hz, 400 Hz …
void TestPlayerSound::startsAtTheRightPlace()
{
    QFETCH(int, ms);
    player->setSong(encoded(
        u"seconds"_qs, render(10, [](double t) { return sine(300 + 100 * std::floor(t), t); })));
    player->startFromPlaytime(ms);
    QVERIFY(playBeyond(ms + 1500));
    recorder->catchUp();
    const int second = ms / 1000;
    const qsizetype begin = recorder->firstSound();
    QVERIFY(begin >= 0);
    const double first = recorder->frequency(begin + rate / 20, begin + rate / 5);
    QVERIFY2(qAbs(first - (300 + 100 * second)) < 10, qPrintable(QString::number(first)));

    qsizetype change = begin + rate / 20;
    const qsizetype window = rate / 50;
    while (change + window < recorder->samples().size()
           && recorder->frequency(change, change + window) < 350 + 100 * second)
        change += window / 4;
    const double lasted = double(change + window / 2 - begin) * 1000 / rate;
    const double expected = (second + 1) * 1000 - ms;
    fprintf(stdout, "FIGURE from %d ms: the next second comes %.0f ms late\n", ms,
            lasted - expected);
    QVERIFY2(qAbs(lasted - expected) < 60, qPrintable(QString::number(lasted)));
}

void TestPlayerSound::resumesWhereItPaused()
{
    player->setSong(encoded(
        u"pause"_qs, render(10, [](double t) { return sine(300 + 100 * std::floor(t), t); })));
    player->start();
    QVERIFY(playBeyond(4500));
    player->pause();
    const int held = player->getPlaytime();
    recorder->catchUp();
    const double resumed = Recorder::now();
    player->resume();
    QVERIFY(playBeyond(held + 300));
    recorder->catchUp();
    const qsizetype begin = recorder->firstSound(recorder->frameAt(resumed));
    const double hertz = recorder->frequency(begin + rate / 50, begin + rate / 7);
    QVERIFY2(qAbs(hertz - (300 + 100 * (held / 1000))) < 10, qPrintable(QString::number(hertz)));
}

void TestPlayerSound::stopIsSilentAtOnce()
{
    player->setSong(tone(5));
    player->start();
    QVERIFY(playBeyond(500));
    player->stop();
    const double stopped = Recorder::now();
    QTest::qWait(300);
    recorder->catchUp();
    const double after = recorder->timeOf(recorder->lastSound()) - stopped;
    fprintf(stdout, "FIGURE heard %.0f ms beyond the stop\n", after);
    QVERIFY2(after < 100, qPrintable(QString::number(after)));
}

void TestPlayerSound::partsFollowTheBeat_data()
{
    QTest::addColumn<int>("percent");

    for (const int percent : {0, 20, -20})
        QTest::addRow("%+d%%", percent) << percent;
}

// A part begins at each beat of a song that clicks every half second.
SongPtr TestPlayerSound::clicks(int beats)
{
    const SongPtr song = encoded(u"clicks"_qs, render(beats / 2 + 1, [](double t) {
                                     const double since = t - std::floor(t * 2) / 2;
                                     return t >= 0.5 && since < 0.03 ? sine(1000, since) : 0.0;
                                 }));
    for (int beat = 1; song && beat <= beats; ++beat)
        song->getPositions().insert(beat - 1, Position(beat * 500, u"Beat"_qs, QString()));
    return song;
}

// How long after each beat its part is told, in milliseconds, the least first; empty when one is
// missing.
QList<double> TestPlayerSound::lateParts(int beats)
{
    recorder = std::make_unique<Recorder>();
    QList<double> told;
    const auto listening
        = connect(player.get(), &Player::notifyActivePartChanged, this, [&told](int part) {
              if (part >= 0)
                  told.append(Recorder::now());
          });
    const bool records = recorder->start();
    player->start();
    const bool played = records && playBeyond(beats * 500 + 100);
    recorder->catchUp();
    disconnect(listening);
    player->stop();
    const QList<qsizetype> heard = recorder->onsets(200);
    if (!played || told.size() != beats || heard.size() != beats)
        return {};
    QList<double> late;
    for (int beat = 0; beat < beats; ++beat)
        late.append(told.at(beat) - recorder->timeOf(heard.at(beat)));
    std::sort(late.begin(), late.end());
    return late;
}

void TestPlayerSound::partsFollowTheBeat()
{
    QFETCH(int, percent);
    constexpr int beats = 24;
    player->setSong(clicks(beats));
    player->setTempo(percent);
    bool inStep = false;
    for (int attempt = 0; attempt < attempts && !inStep; ++attempt) {
        const QList<double> late = lateParts(beats);
        if (late.isEmpty())
            continue;
        const double median = late.at(beats / 2);
        fprintf(stdout, "FIGURE tempo %+d%%: parts %.0f ms after the beat (%.0f to %.0f)\n",
                percent, median, late.first(), late.last());
        inStep = qAbs(median) < 80 && late.first() > -100 && late.last() < 150;
    }
    QVERIFY(inStep);
}

void TestPlayerSound::endIsToldWhenAllWasHeard()
{
    player->setSong(tone(2));
    QSignalSpy ended(player.get(), &Player::notifyIsPlayingChanged);
    player->start();
    double told = 0;
    connect(player.get(), &Player::notifyIsPlayingChanged, this, [&] {
        told = Recorder::now();
        player->setSong(SongPtr());
    });
    QTRY_COMPARE(ended.count(), 2);
    QTest::qWait(300);
    recorder->catchUp();
    const double after = recorder->timeOf(recorder->lastSound()) - told;
    const double heard
        = double(recorder->lastSound() - recorder->firstSound()) * 1000 / Recorder::rate;
    fprintf(stdout, "FIGURE end told %.0f ms after the last sound, %.0f of 2000 ms heard\n", -after,
            heard);
    QVERIFY2(qAbs(after) < 150, qPrintable(QString::number(after)));
    QVERIFY2(heard > 1900, qPrintable(QString::number(heard)));
}

// The file has no tag yet: the whole of it is written anew.
void TestPlayerSound::registrationLeavesNoGap()
{
    createSongStores();
    Settings::setValue(Settings::Key::RegisterPlay, 1);
    const SongPtr song = tone(9);
    player->setSong(song);
    player->start();
    QTRY_COMPARE_WITH_TIMEOUT(song->getDanceEvents().count(), 1, 6000);
    QVERIFY(playBeyond(player->getPlaytime() + 1000));
    recorder->catchUp();
    player->stop();
    Settings::remove(Settings::Key::RegisterPlay);
    destroySongStores();
    const double gap = recorder->longestSilence(recorder->firstSound(), recorder->lastSound());
    QVERIFY2(gap < 20, qPrintable(QString::number(gap)));
    QCOMPARE(Song(song->getFilename(), false).getDanceEvents().count(), 0);
    createSongStores();
    QCOMPARE(Song(song->getFilename(), false).getDanceEvents().count(), 1);
    destroySongStores();
}

// How loud it is, from its beginning: the usual peak of 20 ms, as a busy machine's recorder slips
// now and then.
int TestPlayerSound::peakOf(const SongPtr &song)
{
    player->setSong(song);
    QTest::qWait(200);
    recorder->catchUp();
    const qsizetype from = recorder->samples().size();
    player->start();
    if (!playBeyond(700))
        return -1;
    recorder->catchUp();
    QList<int> peaks;
    constexpr int step = rate / 50;
    for (qsizetype i = recorder->firstSound(from); i >= 0 && i < recorder->samples().size();
         i += step)
        peaks.append(Waves::peak(recorder->samples().mid(i, step)));
    std::sort(peaks.begin(), peaks.end());
    return peaks.isEmpty() ? -1 : peaks.at(peaks.size() / 2);
}

// A song's volume goes to the output that is there; one that is opened later has its own.
void TestPlayerSound::volumeBelongsToTheOutput()
{
    const auto ofVolume = [this](double volume, double seconds) {
        const SongPtr song = tone(seconds);
        song->setVolume(volume);
        return song;
    };
    const int whole = peakOf(ofVolume(0.25, 3));
    const auto isFactor = [whole](int peak, double factor) {
        fprintf(stdout, "FIGURE heard at %.3f, wanted %.3f\n", double(peak) / whole, factor);
        return qAbs(double(peak) / whole - factor) < 0.02;
    };
    QVERIFY(whole > 2000);
    QVERIFY(isFactor(peakOf(ofVolume(0.5, 4)), 0.5));
    QVERIFY(isFactor(peakOf(ofVolume(0.1, 5)), 0.1));
    QVERIFY(isFactor(peakOf(ofVolume(2.0, 3)), 1.0));

    // Another format needs another output.
    const QString file = directory.filePath(u"other.mp3"_qs);
    QVERIFY(Samples::writeTone(file, {.seconds = 3, .rate = 22050}));
    const SongPtr other(new Song(file, false));
    other->setFrequency(22050);
    other->setChannels(2);
    other->setVolume(0.5);
    QVERIFY(isFactor(peakOf(other), 1.0));
}

TARVELO_TEST_MAIN(TestPlayerSound, QCoreApplication)
#include "tst_playersound.moc"
