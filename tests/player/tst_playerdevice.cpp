#include "PcmSamples.h"
#include "PlayerDevice.h"
#include "Samples.h"
#include "SongAudioData.h"
#include "TestMain.h"

#include <QAudioBuffer>
#include <QCoreApplication>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

constexpr int pull20ms = 44100 / 50 * 4;

SongPtr songOf(const QString &file, int channels = 2)
{
    const SongPtr song(new Song(file, false));
    song->setFrequency(44100);
    song->setChannels(channels);
    return song;
}

SongPtr decodedSong(const QString &file, int channels = 2)
{
    const SongPtr song = songOf(file, channels);
    song->decodeAudio();
    QSignalSpy ended(song->getAudioData().get(), &SongAudioData::decodingEnded);
    if (song->getAudioData()->isGrowing())
        ended.wait(20000);
    return song;
}

qint64 decodedBytes(const Song &song)
{
    qint64 bytes = 0;
    for (int i = 0; i < song.audioBufferCount(); ++i)
        bytes += song.audioBuffer(i)->byteCount();
    return bytes;
}

QByteArray pullAll(PlayerDevice &device, qint64 step = pull20ms)
{
    QByteArray all;
    for (QByteArray part = device.read(step); !part.isEmpty(); part = device.read(step))
        all += part;
    return all;
}

qint16 sampleAt(const QByteArray &pcm, qsizetype index)
{
    return reinterpret_cast<const qint16 *>(pcm.constData())[index];
}

void open(PlayerDevice &device, const SongPtr &song, double tempo = 1.0)
{
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    device.setSong(song, tempo);
}

} // namespace

class TestPlayerDevice : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void tellsTheSizeOfTheSong();
    void everyTempoGoesThroughTheStretcher_data();
    void everyTempoGoesThroughTheStretcher();
    void samplesKeepTheirSize_data();
    void samplesKeepTheirSize();
    void valuesWrapAround_data();
    void valuesWrapAround();
    void pullBelowAFrameTakesNothing();
    void monoFramesHaveTwoBytes();
    void secondPullGetsTheRest();
    void tempoChangeIsHeardAtOnce();
    void seekGoesToTheNextBuffer_data();
    void seekGoesToTheNextBuffer();
    void seekBehindTheEndStaysPut();
    void seekAheadOfTheDecoderWaits();
    void withoutSoundThereIsNothing_data();
    void withoutSoundThereIsNothing();
    void releasedSongFallsSilent();
    void callsTheReaderWhenSoundArrives();
    void writingIsRefused();

private:
    QTemporaryDir directory;
    QString tone;
    QString steps;
    QString ramp;
};

void TestPlayerDevice::initTestCase()
{
    tone = directory.filePath(u"tone.mp3"_qs);
    QVERIFY(Samples::writeTone(tone, {.seconds = 5}));
    // The level tells the time: 50 more every 100 ms.
    steps = directory.filePath(u"steps.wav"_qs);
    QList<qint16> samples;
    for (int frame = 0; frame < 10 * 44100; ++frame)
        samples.insert(samples.size(), 2, static_cast<qint16>(frame / 4410 * 50));
    QVERIFY(Samples::writeWave(steps, samples));
    // One more every ten frames.
    ramp = directory.filePath(u"ramp.wav"_qs);
    samples.clear();
    for (int frame = 0; frame < 10 * 44100; ++frame)
        samples.insert(samples.size(), 2, static_cast<qint16>(frame / 10 - 22050));
    QVERIFY(Samples::writeWave(ramp, samples));
}

void TestPlayerDevice::tellsTheSizeOfTheSong()
{
    const SongPtr song = decodedSong(tone);
    PlayerDevice device;
    QVERIFY(device.isSequential());
    QCOMPARE(device.bytesAvailable(), 0);
    open(device, song);
    QCOMPARE(device.bytesAvailable(), decodedBytes(*song));
    QVERIFY(!pullAll(device).isEmpty());
    QCOMPARE(device.bytesAvailable(), decodedBytes(*song));
}

void TestPlayerDevice::everyTempoGoesThroughTheStretcher_data()
{
    QTest::addColumn<double>("tempo");

    for (const double tempo : {0.6, 0.8, 1.0, 1.2, 1.4})
        QTest::addRow("%.1f", tempo) << tempo;
}

// The stretcher is never flushed: a little of the song's end stays in it, at tempo 1.0 as well.
void TestPlayerDevice::everyTempoGoesThroughTheStretcher()
{
    QFETCH(double, tempo);
    const SongPtr song = decodedSong(tone);
    PlayerDevice device;
    open(device, song, tempo);
    const qint64 whole = decodedBytes(*song);
    const auto played = static_cast<double>(pullAll(device).size()) * tempo;

    QVERIFY2(played < static_cast<double>(whole), qPrintable(QString::number(played)));
    QVERIFY2(played > static_cast<double>(whole) - 0.3 * 44100 * 4,
             qPrintable(QString::number(played)));
    QVERIFY(device.hasEnded());
}

void TestPlayerDevice::samplesKeepTheirSize_data()
{
    QTest::addColumn<int>("level");

    for (const int level : {1, 12345, 32767, -32768, -20000})
        QTest::addRow("%d", level) << level;
}

void TestPlayerDevice::samplesKeepTheirSize()
{
    QFETCH(int, level);
    const QString file = directory.filePath(u"level.wav"_qs);
    QVERIFY(Samples::writeWave(file, QList<qint16>(44100, static_cast<qint16>(level))));
    PlayerDevice device;
    open(device, decodedSong(file));
    const QByteArray pcm = pullAll(device);
    QVERIFY(pcm.size() > 30000);
    for (qsizetype i = 0; i < pcm.size() / 2; ++i)
        QVERIFY2(qAbs(sampleAt(pcm, i) - level) <= 1, qPrintable(QString::number(i)));
}

void TestPlayerDevice::valuesWrapAround_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<qint16>("sample");

    QTest::newRow("cut") << 1.9F << qint16(1);
    QTest::newRow("cut below zero") << -1.9F << qint16(-1);
    QTest::newRow("highest") << 32767.9F << qint16(32767);
    QTest::newRow("lowest") << -32768.9F << qint16(-32768);
    QTest::newRow("just above") << 32768.0F << qint16(-32768);
    QTest::newRow("above") << 40000.7F << qint16(-25536);
    QTest::newRow("below") << -40000.7F << qint16(25536);
}

void TestPlayerDevice::valuesWrapAround()
{
    QFETCH(float, value);
    QFETCH(qint16, sample);
    QCOMPARE(PcmSamples::sampleOf(value), sample);
}

void TestPlayerDevice::pullBelowAFrameTakesNothing()
{
    const SongPtr song = decodedSong(tone);
    PlayerDevice plain;
    open(plain, song);
    const QByteArray expected = plain.read(pull20ms);

    PlayerDevice device;
    open(device, song);
    for (const qint64 tooSmall : {3, 2, 1})
        QVERIFY(device.read(tooSmall).isEmpty());
    QCOMPARE(device.read(pull20ms), expected);
}

void TestPlayerDevice::monoFramesHaveTwoBytes()
{
    const QString file = directory.filePath(u"mono.mp3"_qs);
    QVERIFY(Samples::writeTone(file, {.seconds = 2, .channels = 1}));
    const SongPtr song = decodedSong(file, 1);
    PlayerDevice device;
    open(device, song);
    QCOMPARE(device.read(2).size(), 2);
    QCOMPARE(device.read(7).size(), 6);
    const qint64 rest = pullAll(device).size();
    QVERIFY(rest < decodedBytes(*song));
    QVERIFY(rest > decodedBytes(*song) - 44100 * 2 * 3 / 10);
}

void TestPlayerDevice::secondPullGetsTheRest()
{
    const QString file = directory.filePath(u"little.wav"_qs);
    QVERIFY(Samples::writeWave(file, QList<qint16>(2 * 44100 * 12 / 100, 1000)));
    PlayerDevice device;
    open(device, decodedSong(file));
    QCOMPARE(device.read(400).size(), 400);
    QVERIFY(!device.hasEnded());
    const QByteArray rest = device.read(1000000);
    QVERIFY(rest.size() > 400);
    QVERIFY(device.read(1000000).isEmpty());
    QVERIFY(device.hasEnded());
}

void TestPlayerDevice::tempoChangeIsHeardAtOnce()
{
    const SongPtr song = decodedSong(tone);
    PlayerDevice device;
    open(device, song, 1.0);
    const qint64 first = device.read(pull20ms).size();
    device.setTempo(0.6);
    const auto rest = static_cast<double>(pullAll(device).size()) * 0.6;
    QVERIFY(qAbs(static_cast<double>(decodedBytes(*song) - first) - rest) < 0.3 * 44100 * 4);
}

// 0 ms is a buffer's very start: the next one is meant there too.
void TestPlayerDevice::seekGoesToTheNextBuffer_data()
{
    QTest::addColumn<int>("ms");

    for (const int ms : {0, 40, 1000, 1050, 5555, 9000})
        QTest::addRow("%d ms", ms) << ms;
}

void TestPlayerDevice::seekGoesToTheNextBuffer()
{
    QFETCH(int, ms);
    const SongPtr song = decodedSong(ramp);
    int next = 0;
    while (song->audioBuffer(next)->startTime() <= ms * 1000)
        ++next;
    const qint16 expected = *song->audioBuffer(next)->constData<qint16>();

    PlayerDevice device;
    open(device, song);
    device.read(pull20ms);
    device.seekToPlaytime(ms);
    const QByteArray pcm = device.read(pull20ms);
    QVERIFY(!pcm.isEmpty());
    QVERIFY2(qAbs(sampleAt(pcm, 0) - expected) <= 10,
             qPrintable(u"%1, not %2"_qs.arg(sampleAt(pcm, 0)).arg(expected)));
}

void TestPlayerDevice::seekBehindTheEndStaysPut()
{
    const SongPtr song = decodedSong(steps);
    const qint64 lastStart = song->audioBuffer(song->audioBufferCount() - 1)->startTime();

    PlayerDevice device;
    open(device, song);
    const QByteArray beginning = device.read(pull20ms);
    for (const qint64 ms : {lastStart / 1000 + 1, lastStart / 1000 + 60000}) {
        device.setSong(song, 1.0);
        device.seekToPlaytime(ms);
        QCOMPARE(device.read(pull20ms), beginning);
    }

    device.seekToPlaytime(5000);
    device.read(pull20ms);
    device.seekToPlaytime(lastStart / 1000 + 1);
    QVERIFY(qAbs(sampleAt(device.read(pull20ms), 0) - 2500) <= 100);
}

void TestPlayerDevice::seekAheadOfTheDecoderWaits()
{
    const SongPtr song = songOf(steps);
    song->decodeAudio();
    QVERIFY(song->getAudioData()->isGrowing());
    PlayerDevice device;
    open(device, song);
    QSignalSpy ready(&device, &QIODevice::readyRead);
    device.seekToPlaytime(9050);
    QVERIFY(device.read(pull20ms).isEmpty());
    QVERIFY(!device.hasEnded());
    QVERIFY(ready.wait());
    QTRY_VERIFY(!song->getAudioData()->isGrowing());
    QVERIFY(qAbs(sampleAt(device.read(pull20ms), 0) - 4500) <= 50);
}

void TestPlayerDevice::withoutSoundThereIsNothing_data()
{
    QTest::addColumn<SongPtr>("song");

    QTest::newRow("no song") << SongPtr();
    QTest::newRow("no file") << SongPtr(new Song(directory.filePath(u"none.mp3"_qs), true));
    QTest::newRow("not decoded") << songOf(tone);
}

void TestPlayerDevice::withoutSoundThereIsNothing()
{
    QFETCH(SongPtr, song);
    PlayerDevice device;
    open(device, decodedSong(tone));
    QVERIFY(!device.read(pull20ms).isEmpty());
    device.setSong(song, 1.0);
    QCOMPARE(device.bytesAvailable(), 0);
    device.seekToPlaytime(1000);
    QVERIFY(device.read(pull20ms).isEmpty());
    QVERIFY(device.hasEnded());
}

void TestPlayerDevice::releasedSongFallsSilent()
{
    const SongPtr song = decodedSong(tone);
    PlayerDevice device;
    open(device, song);
    QVERIFY(!device.read(pull20ms).isEmpty());
    song->releaseAudio();
    pullAll(device);
    QVERIFY(device.hasEnded());
}

void TestPlayerDevice::callsTheReaderWhenSoundArrives()
{
    const QString file = directory.filePath(u"long.mp3"_qs);
    QVERIFY(Samples::writeTone(file, {.seconds = 120}));
    const SongPtr song = songOf(file);
    song->decodeAudio();
    QVERIFY(song->getAudioData()->isGrowing());
    PlayerDevice device;
    open(device, song);
    QSignalSpy ready(&device, &QIODevice::readyRead);

    QVERIFY(!pullAll(device).isEmpty());
    QVERIFY(!device.hasEnded());
    QCOMPARE(ready.count(), 0);
    QVERIFY(ready.wait());
    QTest::qWait(1);
    QCOMPARE(ready.count(), 1);

    QVERIFY(!pullAll(device).isEmpty());
    QVERIFY(ready.wait());
    QCOMPARE(ready.count(), 2);
}

void TestPlayerDevice::writingIsRefused()
{
    PlayerDevice device;
    QVERIFY(device.open(QIODevice::ReadWrite | QIODevice::Unbuffered));
    QCOMPARE(device.write("abcd", 4), 0);
}

TARVELO_TEST_MAIN(TestPlayerDevice, QCoreApplication)
#include "tst_playerdevice.moc"
