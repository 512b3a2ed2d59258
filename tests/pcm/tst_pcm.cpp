#include "LogCapture.h"
#include "Samples.h"
#include "SongAudioDataQt.h"
#include "TestMain.h"

#include <QAudioFormat>
#include <QCoreApplication>
#include <QPointer>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QAudioFormat pcmFormat(int rate = 44100, int channels = 2)
{
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(rate);
    format.setChannelCount(channels);
    return format;
}

qint64 frameCount(const SongAudioData &audio)
{
    qint64 frames = 0;
    for (int i = 0; i < audio.count(); ++i)
        frames += audio.at(i)->frameCount();
    return frames;
}

// Spinning in a test's own wait would slow the decoder down: it holds four buffers at most.
bool waitForEnd(const SongAudioData &audio)
{
    QSignalSpy ended(&audio, &SongAudioData::decodingEnded);
    return !audio.isGrowing() || ended.wait(20000);
}

const QString notDecoded = u"debug: Cannot decode mp3 File. Probably this is Windows N"_qs;

} // namespace

class TestPcm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void decodesTheWholeSong_data();
    void decodesTheWholeSong();
    void returnsWithTheHead();
    void headIsMoreThanTwentyBuffers_data();
    void headIsMoreThanTwentyBuffers();
    void everyFileNameDecodes_data();
    void everyFileNameDecodes();
    void badFileEndsWithoutSound_data();
    void badFileEndsWithoutSound();
    void ownerMayGoDuringTheWait();
    void releasedDecodingDeliversNothing();
    void newDecodingStartsEmpty();
    void ownerMayGoInsideASignal();

private:
    bool decodeFully(SongAudioDataQt &audio, const QString &file,
                     const QAudioFormat &format = pcmFormat());
    QString oneBufferFile();
    QString fileWithBuffers(int wanted);

    QTemporaryDir directory;
    QString song;
};

void TestPcm::initTestCase()
{
    song = directory.filePath(u"song.mp3"_qs);
    QVERIFY(Samples::writeTone(song, {.seconds = 180}));
}

bool TestPcm::decodeFully(SongAudioDataQt &audio, const QString &file, const QAudioFormat &format)
{
    audio.decode(file, format);
    return waitForEnd(audio);
}

// A single mp3 frame is too little for anybody to know it as one.
QString TestPcm::oneBufferFile()
{
    const QString path = directory.filePath(u"one.flac"_qs);
    return Samples::writeTone(path, {.seconds = 0.05}) ? path : QString();
}

// An mp3 that the decoder delivers in exactly this number of buffers.
QString TestPcm::fileWithBuffers(int wanted)
{
    LogCapture log;
    for (int mp3Frames = wanted; mp3Frames < wanted + 4; ++mp3Frames) {
        const QString path = directory.filePath(u"frames%1.mp3"_qs.arg(mp3Frames));
        SongAudioDataQt audio;
        if (Samples::writeMp3Frames(song, path, mp3Frames) && decodeFully(audio, path)
            && audio.count() == wanted)
            return path;
    }
    return {};
}

void TestPcm::decodesTheWholeSong_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");

    QTest::newRow("mp3, stereo") << u"mp3"_qs << 44100 << 2;
    QTest::newRow("mp3, mono") << u"mp3"_qs << 44100 << 1;
    QTest::newRow("mp3, low rate") << u"mp3"_qs << 22050 << 1;
    QTest::newRow("flac, stereo") << u"flac"_qs << 48000 << 2;
    QTest::newRow("m4a, stereo") << u"m4a"_qs << 44100 << 2;
    QTest::newRow("m4a, mono") << u"m4a"_qs << 48000 << 1;
    QTest::newRow("ogg, stereo") << u"ogg"_qs << 44100 << 2;
    QTest::newRow("ogg, mono") << u"ogg"_qs << 22050 << 1;
    QTest::newRow("wav, stereo") << u"wav"_qs << 44100 << 2;
}

void TestPcm::decodesTheWholeSong()
{
    QFETCH(QString, suffix);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const QString file = directory.filePath(u"whole.%1"_qs.arg(suffix));
    QVERIFY(Samples::writeTone(file, {.seconds = 10, .rate = rate, .channels = channels}));

    SongAudioDataQt audio;
    QSignalSpy added(&audio, &SongAudioData::bufferAdded);
    QSignalSpy ended(&audio, &SongAudioData::decodingEnded);
    QVERIFY(decodeFully(audio, file, pcmFormat(rate, channels)));

    QCOMPARE(added.count(), audio.count());
    QCOMPARE(ended.count(), 1);
    QVERIFY(audio.count() > 0);
    // Of an m4a the back end leaves out the first packet, and counts from behind it.
    const qint64 begin = audio.at(0)->startTime();
    QVERIFY(begin == 0 || (suffix == u"m4a"_qs && begin < 30000));
    qint64 expectedStart = begin;
    for (int i = 0; i < audio.count(); ++i) {
        const QAudioBuffer &buffer = *audio.at(i);
        QCOMPARE(buffer.format().sampleFormat(), QAudioFormat::Int16);
        QCOMPARE(buffer.format().sampleRate(), rate);
        QCOMPARE(buffer.format().channelCount(), channels);
        QVERIFY2(qAbs(buffer.startTime() - expectedStart) < 1000, "a buffer is missing");
        expectedStart = buffer.startTime() + buffer.duration();
    }
    // An encoder may add a little silence at both ends, and no sound may be missing.
    const qint64 frames = frameCount(audio) + begin * rate / 1000000;
    QVERIFY2(frames >= 10 * rate && frames < 11 * rate, qPrintable(QString::number(frames)));
}

void TestPcm::returnsWithTheHead()
{
    SongAudioDataQt warmUp;
    QVERIFY(decodeFully(warmUp, song));

    // The 100 ms are real ones: a machine that is busy with other things may miss them.
    LogCapture log;
    SongAudioDataQt audio;
    QSignalSpy started(&audio, &SongAudioDataQt::decodingStarted);
    QElapsedTimer clock;
    int late = -1;
    do {
        ++late;
        clock.start();
        audio.decode(song, pcmFormat());
    } while (started.isEmpty() && late < 5);
    const qint64 head = clock.elapsed();

    QCOMPARE(started.count(), 1);
    QCOMPARE(log.count(notDecoded), late);
    QVERIFY(audio.isGrowing());
    QVERIFY(audio.count() > 20);
    const int headCount = audio.count();
    QVERIFY(waitForEnd(audio));
    const qint64 whole = clock.elapsed();
    QVERIFY(audio.count() > headCount);
    QCOMPARE(started.count(), 1);
    fprintf(stdout, "FIGURE head after %lld ms, 180 s decoded after %lld ms, %d buffers\n", head,
            whole, audio.count());
}

void TestPcm::headIsMoreThanTwentyBuffers_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("buffers");
    QTest::addColumn<int>("startedSignals");

    QTest::newRow("one buffer") << oneBufferFile() << 1 << 0;
    QTest::newRow("20 buffers") << fileWithBuffers(20) << 20 << 0;
    QTest::newRow("21 buffers") << fileWithBuffers(21) << 21 << 1;
}

// A song of 20 buffers or fewer waits the full time and logs its line, though all is well.
void TestPcm::headIsMoreThanTwentyBuffers()
{
    QFETCH(QString, file);
    QFETCH(int, buffers);
    QFETCH(int, startedSignals);
    QVERIFY(!file.isEmpty());

    LogCapture log;
    SongAudioDataQt audio;
    QSignalSpy started(&audio, &SongAudioDataQt::decodingStarted);
    QElapsedTimer clock;
    clock.start();
    audio.decode(file, pcmFormat());
    const qint64 waited = clock.elapsed();

    QVERIFY(waitForEnd(audio));
    QCOMPARE(audio.count(), buffers);
    QCOMPARE(started.count(), startedSignals);
    if (startedSignals == 0) {
        QCOMPARE(log.count(notDecoded), 1);
        QVERIFY2(waited >= 95, qPrintable(QString::number(waited)));
    }
}

void TestPcm::everyFileNameDecodes_data()
{
    QTest::addColumn<QString>("name");

    const QStringList names{u"one #1.mp3"_qs,      u"what?.mp3"_qs,     u"100%.mp3"_qs,
                            u"%20 %41.mp3"_qs,     u"Grüße äöü.mp3"_qs, u"🎵 踊り.mp3"_qs,
                            u"a:b;c&d=e+f.mp3"_qs, u" [x] {y}.mp3"_qs,  u"back\\slash.mp3"_qs};
    for (const QString &name : names)
        QTest::newRow(qUtf8Printable(name)) << name;
}

void TestPcm::everyFileNameDecodes()
{
    QFETCH(QString, name);
    const QString file = directory.filePath(name);
    QVERIFY(Samples::writeTone(file));

    SongAudioDataQt audio;
    QVERIFY(decodeFully(audio, file));
    QVERIFY(frameCount(audio) >= 2 * 44100);
}

void TestPcm::badFileEndsWithoutSound_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("exists");

    QTest::newRow("missing") << QByteArray() << false;
    QTest::newRow("empty") << QByteArray() << true;
    QTest::newRow("text") << QByteArray("These are no frames of music.\n").repeated(50) << true;
    QTest::newRow("zeros") << QByteArray(20000, '\0') << true;
}

void TestPcm::badFileEndsWithoutSound()
{
    QFETCH(QByteArray, content);
    QFETCH(bool, exists);
    const QString path = directory.filePath(u"bad.mp3"_qs);
    QFile::remove(path);
    if (exists) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), content.size());
    }

    LogCapture log;
    SongAudioDataQt audio;
    QSignalSpy ended(&audio, &SongAudioData::decodingEnded);
    audio.decode(path, pcmFormat());
    QVERIFY(waitForEnd(audio));
    QCOMPARE(audio.count(), 0);
    QCOMPARE(ended.count(), 1);
    QCOMPARE(log.count(notDecoded), 1);
    QCOMPARE(log.count(u"debug: Decoder Error: QAudioDecoder::"_qs), 1);
    QCOMPARE(log.count(u"Error: QAudioDecoder::"_qs) - log.count(u"QAudioDecoder::NoError"_qs), 1);
}

void TestPcm::ownerMayGoDuringTheWait()
{
    auto audio = std::make_shared<SongAudioDataQt>();
    const QPointer<SongAudioDataQt> watched(audio.get());
    QTimer::singleShot(0, this, [&audio] { audio.reset(); });

    audio->decode(directory.filePath(u"missing.mp3"_qs), pcmFormat());

    QVERIFY(!watched);
}

void TestPcm::releasedDecodingDeliversNothing()
{
    const QString next = directory.filePath(u"next.mp3"_qs);
    QVERIFY(Samples::writeTone(next, {.seconds = 3, .channels = 1}));

    std::shared_ptr<SongAudioDataQt> audio = std::make_shared<SongAudioDataQt>();
    audio->decode(song, pcmFormat());
    QVERIFY(audio->isGrowing());
    audio = std::make_shared<SongAudioDataQt>();
    QVERIFY(decodeFully(*audio, next, pcmFormat(44100, 1)));

    for (int i = 0; i < audio->count(); ++i)
        QCOMPARE(audio->at(i)->format().channelCount(), 1);
    QVERIFY(frameCount(*audio) < 4 * 44100);
}

void TestPcm::newDecodingStartsEmpty()
{
    const QString next = directory.filePath(u"short.mp3"_qs);
    QVERIFY(Samples::writeTone(next, {.seconds = 1}));

    SongAudioDataQt audio;
    audio.decode(song, pcmFormat());
    QVERIFY(audio.isGrowing());
    QVERIFY(decodeFully(audio, next));
    QVERIFY(frameCount(audio) < 2 * 44100);
}

void TestPcm::ownerMayGoInsideASignal()
{
    auto audio = std::make_shared<SongAudioDataQt>();
    const QPointer<SongAudioDataQt> watched(audio.get());
    connect(audio.get(), &SongAudioDataQt::decodingStarted, this, [&audio] { audio.reset(); });
    audio->decode(song, pcmFormat());
    QVERIFY(!watched);

    audio = std::make_shared<SongAudioDataQt>();
    connect(audio.get(), &SongAudioData::decodingEnded, this, [&audio] { audio.reset(); });
    audio->decode(directory.filePath(u"next.mp3"_qs), pcmFormat());
    QTRY_VERIFY(!audio);
}

TARVELO_TEST_MAIN(TestPcm, QCoreApplication)
#include "tst_pcm.moc"
