#include "AudioOutput.h"
#include "DefaultOutput.h"
#include "LogCapture.h"
#include "PlayerFixture.h"
#include "Recorder.h"
#include "Settings.h"
#include "TestMain.h"

#include <QAudioFormat>
#include <QCoreApplication>
#include <QProcess>

#include <csignal>

using namespace Qt::StringLiterals;

namespace {

const QString refused
    = u"critical: Selected audio format not supported by backend, cannot play audio."_s;
const QString failed = u"debug: PlayerEngine2: Audio Output is in Error: "_s;

// What pactl prints; null when it failed.
QString pactl(const QStringList &arguments)
{
    QProcess process;
    process.start(u"pactl"_s, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        return {};
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed() + u' ';
}

bool hasOutput(const QByteArray &id)
{
    const QList<QAudioDevice> outputs = QMediaDevices::audioOutputs();
    return std::any_of(outputs.cbegin(), outputs.cend(),
                       [&id](const QAudioDevice &device) { return device.id() == id; });
}

// The module's number; null when it can't be had.
QString addSink(const QString &name)
{
    return pactl({u"load-module"_s, u"module-null-sink"_s, u"sink_name="_s + name, u"rate=44100"_s,
                  u"channels=2"_s})
        .trimmed();
}

// The session's own; 0 when there is none.
pid_t soundServer()
{
    QFile file(qEnvironmentVariable("XDG_RUNTIME_DIR") + u"/pulse/pid"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const pid_t server = file.readAll().trimmed().toInt();
    return server > 0 && ::kill(server, 0) == 0 ? server : 0;
}

// It outlives the test, and must not keep the test's own output open.
bool startServer()
{
    QProcess process;
    process.setProgram(u"pipewire-pulse"_s);
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

// Silence without end; knows when it was first asked for.
class Source : public QIODevice
{
public:
    double firstPull = 0;

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return 1 << 20; }

protected:
    qint64 readData(char *data, qint64 maxlen) override
    {
        if (firstPull == 0)
            firstPull = Recorder::now();
        std::fill_n(data, maxlen, char(0));
        return maxlen;
    }
    qint64 writeData(const char *, qint64) override { return 0; }
};

} // namespace

// The sound goes to where the default output is, and follows it.
class TestPlayerOutput : public QObject, PlayerFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theFirstPullComesAtOnce();
    void eachStartTakesTheDefault();
    void aLostOutputIsReplaced();
    void aMoveIsOnePlay();
    void withoutAnOutputTheSongStops();
    void aServerThatComesBackIsTaken();

private:
    bool makeDefault(const QString &name);
    double loudSeconds(const Recorder &recorder, double from) const;
};

void TestPlayerOutput::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
}

void TestPlayerOutput::init()
{
    begin();
    song = newSong(30);
    player->setSong(song);
}

void TestPlayerOutput::cleanup()
{
    end();
    // Of a test that failed.
    for (const char *sink : {"room", "other"})
        if (hasOutput(sink))
            pactl({u"unload-module"_s, u"module-null-sink"_s});
    if (!hasOutput("null"))
        addSink(u"null"_s);
    QVERIFY(makeDefault(u"null"_s));
}

bool TestPlayerOutput::makeDefault(const QString &name)
{
    return QTest::qWaitFor([&] { return hasOutput(name.toUtf8()); }, 5000)
           && !pactl({u"set-default-sink"_s, name}).isNull()
           && QTest::qWaitFor([&] { return defaultOutput().id() == name.toUtf8(); });
}

double TestPlayerOutput::loudSeconds(const Recorder &recorder, double from) const
{
    const qsizetype first = recorder.firstSound(recorder.frameAt(from));
    return first < 0 ? 0 : double(recorder.lastSound() - first) / Recorder::rate;
}

// Not a turn of the sink's own timer later, which is 20 ms.
void TestPlayerOutput::theFirstPullComesAtOnce()
{
    constexpr int attempts = 5;
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(44100);
    format.setChannelCount(2);
    AudioOutput output;
    double waited = attempts * 1000;
    for (int i = 0; i < attempts; ++i) {
        Source source;
        QVERIFY(source.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
        QVERIFY(output.prepare(format) && output.start(&source));
        const double started = Recorder::now();
        QCOMPARE(source.firstPull, 0.0);
        QTRY_VERIFY(source.firstPull > 0);
        waited = std::min(waited, source.firstPull - started);
        QTRY_VERIFY(output.processedUSecs() > 100000);
        output.stop();
    }
    fprintf(stdout, "FIGURE first pull %.1f ms after the start\n", waited);
    QVERIFY2(waited < 10, qPrintable(QString::number(waited)));
}

void TestPlayerOutput::eachStartTakesTheDefault()
{
    const QString module = addSink(u"room"_s);
    QVERIFY(!module.isEmpty());
    player->start();
    QVERIFY(playBeyond(500));
    player->pause();
    QVERIFY(makeDefault(u"room"_s));
    Recorder old;
    Recorder room;
    QVERIFY(old.start() && room.start(u"room.monitor"_s));
    const double resumed = Recorder::now();
    player->resume();
    QVERIFY(playBeyond(1500));
    room.catchUp();
    old.catchUp();
    QVERIFY(loudSeconds(room, resumed) > 0.5);
    QCOMPARE(loudSeconds(old, resumed), 0.0);
    player->stop();
    QVERIFY(!pactl({u"unload-module"_s, module}).isNull());
    QTRY_VERIFY(!hasOutput("room"));
}

void TestPlayerOutput::aLostOutputIsReplaced()
{
    const QString module = addSink(u"other"_s);
    QVERIFY(makeDefault(u"other"_s));
    Recorder recorder;
    QVERIFY(recorder.start());
    player->start();
    QVERIFY(playBeyond(1000));
    const double gone = Recorder::now();
    QVERIFY(!pactl({u"unload-module"_s, module}).isNull());
    QTRY_VERIFY(!hasOutput("other"));
    const int then = player->getPlaytime();
    QVERIFY(playBeyond(then + 1000));
    QVERIFY(player->isPlaying());
    recorder.catchUp();
    const double heard = recorder.timeOf(recorder.firstSound(recorder.frameAt(gone))) - gone;
    QVERIFY2(heard > 0 && heard < 1000, qPrintable(QString::number(heard)));
    const qsizetype all = recorder.samples().size();
    QVERIFY(recorder.longestSilence(all - Recorder::rate / 2, all) < 150);
}

// The time goes on, nobody hears of an end, nothing begins anew.
void TestPlayerOutput::aMoveIsOnePlay()
{
    Settings::setValue(Settings::Key::RegisterPlay, 2);
    const QString module = addSink(u"other"_s);
    QVERIFY(makeDefault(u"other"_s));
    player->start();
    QVERIFY(playBeyond(1700));
    log->take();
    const int before = player->getPlaytime();
    QVERIFY(!pactl({u"unload-module"_s, module}).isNull());
    QVERIFY(QTest::qWaitFor([&] { return !hasOutput("other"); }));
    QVERIFY(playBeyond(before + 1800));
    Settings::remove(Settings::Key::RegisterPlay);
    QCOMPARE(log->takeStates(), QStringList());
    QVERIFY(std::is_sorted(log->times.cbegin(), log->times.cend()));
    for (qsizetype i = 1; i < log->times.size(); ++i)
        QVERIFY(log->times.at(i) - log->times.at(i - 1) < 350);
    QCOMPARE(song->getDanceEvents().count(), 1);
}

// The server itself puts a dummy in the place of the last one, if it may.
void TestPlayerOutput::withoutAnOutputTheSongStops()
{
    player->start();
    QVERIFY(playBeyond(600));
    log->take();
    LogCapture lines;
    QVERIFY(!pactl({u"unload-module"_s, u"module-always-sink"_s}).isNull());
    QVERIFY(!pactl({u"unload-module"_s, u"module-null-sink"_s}).isNull());
    QTRY_VERIFY(QMediaDevices::audioOutputs().isEmpty());
    const int gone = player->getPlaytime();
    // It waits for another one before it gives up.
    QVERIFY(player->isPlaying());
    QTRY_VERIFY_WITH_TIMEOUT(!player->isPlaying(), 15000);
    QCOMPARE(lines.count(u"warning: The audio output is gone."_s), 1);
    QCOMPARE(lines.count(u"warning: No audio output came back."_s), 1);
    QCOMPARE(log->takeStates(), QStringList{u"silent"_s});

    player->start();
    QVERIFY(!player->isPlaying());
    QCOMPARE(lines.count(refused), 1);
    player->resume();
    player->startFromPart(1);
    player->pause();
    QVERIFY(!player->isPlaying());

    QVERIFY(!addSink(u"null"_s).isEmpty());
    QVERIFY(makeDefault(u"null"_s));
    pactl({u"load-module"_s, u"module-always-sink"_s});
    Recorder recorder;
    QVERIFY(recorder.start());
    player->startFromPlaytime(gone);
    QVERIFY(player->isPlaying());
    QVERIFY(playBeyond(gone + 700));
    recorder.catchUp();
    QVERIFY(recorder.firstSound() >= 0);
}

void TestPlayerOutput::aServerThatComesBackIsTaken()
{
    LogCapture lines;
    player->start();
    QVERIFY(playBeyond(1000));
    const pid_t server = soundServer();
    QVERIFY(server != 0);
    ::kill(server, SIGTERM);
    QTRY_VERIFY_WITH_TIMEOUT(soundServer() == 0, 5000);
    const int gone = player->getPlaytime();
    QVERIFY(startServer());
    QTRY_VERIFY_WITH_TIMEOUT(!addSink(u"null"_s).isEmpty(), 10000);
    const double back = Recorder::now();
    QTRY_VERIFY_WITH_TIMEOUT(hasOutput("null"), 20000);
    QTRY_VERIFY_WITH_TIMEOUT(player->isPlaying() && player->getPlaytime() > gone + 1500, 20000);
    const double took = Recorder::now() - back - 1500;
    fprintf(stdout, "FIGURE goes on %.0f ms after the server came back\n", took);
    QVERIFY2(took < 5000, qPrintable(QString::number(took)));
    QVERIFY(player->getPlaytime() < gone + 5000);
    const QStringList errors = lines.all().filter(failed);
    QCOMPARE(errors.size(), 1);
    QVERIFY2(errors.constFirst().contains(u"FatalError"_s), qPrintable(errors.constFirst()));
}

TARVELO_TEST_MAIN(TestPlayerOutput, QCoreApplication)
#include "tst_playeroutput.moc"
