#include "DefaultOutput.h"
#include "MachineWatch.h"
#include "PlayerFixture.h"
#include "SongAudioData.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QEventLoop>
#include <QProcess>
#include <QRandomGenerator>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

int fromEnvironment(const char *name, int usual)
{
    const int wanted = qEnvironmentVariableIntValue(name);
    return wanted > 0 ? wanted : usual;
}

void passTime(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

QString pactl(const QStringList &arguments)
{
    QProcess process;
    process.start(u"pactl"_s, arguments);
    return process.waitForFinished() && process.exitCode() == 0
               ? QString::fromUtf8(process.readAllStandardOutput()).trimmed()
               : QString();
}

// Of this process, in kilobytes.
int memory()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).simplified().split(' ').constFirst().toInt();
    }
    return 0;
}

// Hears a tone that is never silent: every silence of some milliseconds is a dropout. It asks for a
// long latency: one of 20 ms would make the server work in turns of 10 ms, shorter than a virtual
// machine may hold a processor back; a player alone asks for none as short. A dropout right after
// the whole machine stood still is counted apart: no player could have gone on.
class Listener : public QObject
{
public:
    Listener()
    {
        connect(&process, &QProcess::readyReadStandardOutput, this, &Listener::listen);
        process.start(u"parec"_s,
                      {u"-d"_s, u"null.monitor"_s, u"--format=s16le"_s, u"--rate=44100"_s,
                       u"--channels=1"_s, u"--latency-msec=500"_s, u"--raw"_s});
    }
    ~Listener() override
    {
        process.disconnect(this);
        process.kill();
        process.waitForFinished();
    }

    // Only what is heard meanwhile counts.
    bool attentive = false;
    int dropouts = 0;
    int standstills = 0;
    qint64 framesHeard = 0;

private:
    void listen()
    {
        raw += process.readAllStandardOutput();
        const auto *samples = reinterpret_cast<const qint16 *>(raw.constData());
        const qsizetype count = raw.size() / 2;
        for (qsizetype i = 0; i < count; ++i)
            hear(samples[i]);
        raw.remove(0, count * 2);
    }
    void hear(qint16 sample)
    {
        constexpr int silence = 200;
        constexpr int dropoutFrames = 44100 / 200;
        const bool heard = qAbs(int(sample)) > silence || !attentive;
        framesHeard += attentive ? 1 : 0;
        if (heard && quiet >= dropoutFrames)
            count();
        quiet = heard ? 0 : quiet + 1;
    }
    void count()
    {
        // The recorder is late by its latency, and more where the machine stood still.
        const qint64 held = machine.standstill(3000);
        // The player lets the window be busy for as long.
        const bool noFault = held >= 150;
        ++(noFault ? standstills : dropouts);
        fprintf(stdout,
                "FIGURE a dropout of %d ms, %lld s heard; the machine stood still for %lld\n",
                quiet * 1000 / 44100, framesHeard / 44100, held);
        fflush(stdout);
    }

    QProcess process;
    QByteArray raw;
    int quiet = 0;
    MachineWatch machine;
};

} // namespace

// A player under commands of all kinds in any order, and at work for a long time.
//
// TARVELO_COMMANDS  how many commands, 100 by default
// TARVELO_SEED      the walk to repeat; without it, the long form takes another one each time
// TARVELO_SECONDS   how long the music plays, 15 by default
class TestPlayerEndurance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void cleanup();

    void anyOrderOfCommands();
    void playsOnWithoutADropout();

private:
    void makeSongs();
    SongPtr load(const QString &file) const;
    SongPtr makeSong(const QString &file) const;
    QString carryOutOne();
    void nextSong();
    void breakSong();
    void removeSong();
    void moveOutput();
    QString fault();
    bool movesOn();
    void playFor(Player &endless, int seconds, int length);
    int partNow() const;
    int random(int below) { return static_cast<int>(dice.bounded(below)); }

    QTemporaryDir directory;
    QStringList files;
    QRandomGenerator dice;
    std::unique_ptr<Player> player;
    std::unique_ptr<Listener> listener;
    int memoryAtFirst = 0;
    SongPtr song;
    bool toldPlaying = false;
    int toldPart = -1;
    QString module;
};

void TestPlayerEndurance::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
    QFile preferences(u"Tarvelo.ini"_s);
    QVERIFY(preferences.open(QIODevice::WriteOnly));
    preferences.write("[General]\ncacheDir=\nregisterPlay=1\nmusicDir="
                      + QFile::encodeName(directory.path()) + "\n");
    preferences.close();
    createSongStores();
    makeSongs();
    QVERIFY(!files.isEmpty());
}

void TestPlayerEndurance::cleanupTestCase()
{
    destroySongStores();
}

// What comes next is heard from the session's own output.
void TestPlayerEndurance::cleanup()
{
    player.reset();
    if (!module.isEmpty())
        pactl({u"unload-module"_s, std::exchange(module, {})});
    QTRY_COMPARE(defaultOutput().id(), QByteArray("null"));
}

// Copies of real music, or tones where there is none.
void TestPlayerEndurance::makeSongs()
{
    QDirIterator music(corpusDirectory() + u"/music"_s, {u"*.mp3"_s}, QDir::Files);
    while (!corpusDirectory().isEmpty() && music.hasNext()) {
        const QString from = music.next();
        files.append(directory.filePath(QFileInfo(from).fileName()));
        QVERIFY(QFile::copy(from, files.last()));
        QVERIFY(QFile::setPermissions(files.last(), QFile::ReadOwner | QFile::WriteOwner));
    }
    for (int i = 0; files.size() < 4; ++i) {
        files.append(directory.filePath(u"tone%1.mp3"_s.arg(i)));
        QVERIFY(Samples::writeTone(files.last(), {.seconds = 20.0 + i}));
    }
}

SongPtr TestPlayerEndurance::load(const QString &file) const
{
    const SongPtr made(new Song(file, false));
    for (int i = 0; i < 5; ++i)
        made->getPositions().insert(i, Position(i * 3000, u"Part"_s, QString()));
    return made;
}

// Every other one with a lead-in.
SongPtr TestPlayerEndurance::makeSong(const QString &file) const
{
    const SongPtr made = load(file);
    if (files.indexOf(file) % 2 == 0)
        return made;
    made->setBpm(u"120"_s);
    CountDownItem *item = made->getCountDowns().addNew();
    item->setIgnition(2100);
    item->setCountStart(4);
    return made;
}

void TestPlayerEndurance::nextSong()
{
    song = makeSong(files.at(random(static_cast<int>(files.size()))));
    player->setSong(song);
}

// Broken from some place on, as a bad copy is.
void TestPlayerEndurance::breakSong()
{
    const QString broken = directory.filePath(u"broken.mp3"_s);
    QFile::remove(broken);
    QFile::copy(files.at(random(static_cast<int>(files.size()))), broken);
    QFile file(broken);
    if (file.open(QIODevice::ReadWrite) && file.seek(random(100000)))
        file.write(QByteArray(300000, char(random(256))));
    file.close();
    song = makeSong(broken);
    player->setSong(song);
}

// While it is decoded; what its player has is played, and a save finds nothing.
void TestPlayerEndurance::removeSong()
{
    const QString gone = directory.filePath(u"gone.mp3"_s);
    QFile::remove(gone);
    QFile::copy(files.at(random(static_cast<int>(files.size()))), gone);
    song = makeSong(gone);
    if (random(2) == 0)
        QFile::remove(gone);
    player->setSong(song);
    QFile::remove(gone);
}

// Another output comes and becomes the default, or goes.
void TestPlayerEndurance::moveOutput()
{
    if (module.isEmpty()) {
        module = pactl({u"load-module"_s, u"module-null-sink"_s, u"sink_name=other"_s});
        pactl({u"set-default-sink"_s, u"other"_s});
    } else {
        pactl({u"unload-module"_s, std::exchange(module, {})});
    }
}

// The answer tells what was done.
QString TestPlayerEndurance::carryOutOne()
{
    const int part = random(7) - 1;
    const int ms = random(30000) - 1000;
    const int percent = random(101) - 50;
    const std::pair<const char *, std::function<void()>> commands[]{
        {"start", [&] { player->start(); }},
        {"start", [&] { player->start(); }},
        {"stop", [&] { player->stop(); }},
        {"pause", [&] { player->pause(); }},
        {"resume", [&] { player->resume(); }},
        {"resume", [&] { player->resume(); }},
        {"start from a time", [&] { player->startFromPlaytime(ms); }},
        {"start from a part", [&] { player->startFromPart(part); }},
        // Not the last part, whose loop stands still in a song that stood.
        {"loop", [&] { player->startLoop(part % 3, part % 3); }},
        {"tempo", [&] { player->setTempo(percent); }},
        {"next song", [this] { nextSong(); }},
        {"broken song", [this] { breakSong(); }},
        {"song without its file", [this] { removeSong(); }},
        {"no song", [this] { player->setSong(song = SongPtr()); }},
        {"output", [this] { moveOutput(); }},
    };
    const auto &command = commands[random(int(std::size(commands)))];
    command.second();
    return QString::fromLatin1(command.first);
}

int TestPlayerEndurance::partNow() const
{
    const SongPositions &positions = std::as_const(*song).getPositions();
    int part = positions.count() - 1;
    while (part >= 0 && positions.at(part).getTime() >= player->getPlaytime())
        --part;
    return part;
}

// What can't be; empty when all is well. Foreplay is below 0, a pause above.
QString TestPlayerEndurance::fault()
{
    const int time = player->getPlaytime();
    if (player->isPlaying() != toldPlaying)
        return u"it tells another state than it is in"_s;
    if (!player->isPlaying() && time < 0)
        return u"a pause in the foreplay"_s;
    if (!player->isPlaying() && time == 0 && toldPart != -1)
        return u"stopped in part %1"_s.arg(toldPart);
    if (player->isPlaying() && !song)
        return u"plays without a song"_s;
    if (player->isPlaying() && toldPart != partNow())
        return u"tells part %1 in part %2"_s.arg(toldPart).arg(partNow());
    return {};
}

// A song whose decoder tells nothing at all has nothing to play.
bool TestPlayerEndurance::movesOn()
{
    const int before = player->getPlaytime();
    return QTest::qWaitFor(
        [&] {
            const auto *audio = song ? song->getAudioData().get() : nullptr;
            const bool waits = audio && audio->isGrowing() && audio->count() == 0;
            return !player->isPlaying() || player->getPlaytime() != before || waits;
        },
        8000);
}

void TestPlayerEndurance::anyOrderOfCommands()
{
    const int commands = fromEnvironment("TARVELO_COMMANDS", 100);
    const bool isLong = qEnvironmentVariableIsSet("TARVELO_COMMANDS");
    const int another = int(QRandomGenerator::global()->bounded(1 << 30)) + 1;
    const int seed = fromEnvironment("TARVELO_SEED", isLong ? another : 457307340);
    fprintf(stdout, "FIGURE %d commands, TARVELO_SEED=%d\n", commands, seed);
    fflush(stdout);
    dice.seed(static_cast<quint32>(seed));
    player = std::make_unique<Player>();
    connect(player.get(), &Player::notifyIsPlayingChanged, this,
            [this](bool playing) { toldPlaying = playing; });
    connect(player.get(), &Player::notifyActivePartChanged, this,
            [this](int part) { toldPart = part; });
    nextSong();
    for (int i = 0; i < commands; ++i) {
        const QString command = carryOutOne();
        passTime(120 + random(200));
        QString wrong = fault();
        if (wrong.isEmpty() && !movesOn())
            wrong = u"the time stands still at %1"_s.arg(player->getPlaytime());
        QVERIFY2(wrong.isEmpty(),
                 qPrintable(u"seed %1, command %2, %3: %4"_s.arg(seed).arg(i).arg(command, wrong)));
    }
    player->stop();
    QVERIFY(!player->isPlaying() && player->getPlaytime() == 0);
    player.reset();
}

// The same song again and again; what is heard around its beginning and end doesn't count.
void TestPlayerEndurance::playFor(Player &endless, int seconds, int length)
{
    memoryAtFirst = 0;
    QElapsedTimer clock;
    clock.start();
    do {
        endless.start();
        passTime(1500);
        if (memoryAtFirst == 0)
            memoryAtFirst = memory();
        QVERIFY(endless.isPlaying());
        listener->attentive = true;
        passTime((length - 3) * 1000);
        listener->attentive = false;
        QVERIFY(endless.isPlaying());
        QTRY_VERIFY(!endless.isPlaying());
    } while (clock.elapsed() < seconds * 1000);
}

// On a busy machine the sound server may get a turn too late now and then. The long form wants a
// quiet machine and forgives nothing.
void TestPlayerEndurance::playsOnWithoutADropout()
{
    const int attempts = qEnvironmentVariableIsSet("TARVELO_SECONDS") ? 1 : 3;
    const int seconds = fromEnvironment("TARVELO_SECONDS", 15);
    const int length = std::clamp(seconds, 10, 300);
    const QString file = directory.filePath(u"endless.mp3"_s);
    QVERIFY(Samples::writeTone(file, {.seconds = double(length)}));
    Player endless;
    endless.setSong(load(file));
    int dropouts = 1;
    for (int attempt = 0; attempt < attempts && dropouts > 0; ++attempt) {
        listener = std::make_unique<Listener>();
        playFor(endless, seconds, length);
        const int grown = memory() - memoryAtFirst;
        dropouts = listener->dropouts;
        fprintf(stdout,
                "FIGURE %lld s heard, %d dropouts, %d where the machine stood still, memory %d kB, "
                "then %+d kB\n",
                listener->framesHeard / 44100, dropouts, listener->standstills, memoryAtFirst,
                grown);
        QVERIFY(listener->framesHeard / 44100 >= length - 4);
        QVERIFY2(grown < memoryAtFirst / 10, qPrintable(QString::number(grown)));
    }
    listener.reset();
    QCOMPARE(dropouts, 0);
}

TARVELO_TEST_MAIN(TestPlayerEndurance, QCoreApplication)
#include "tst_playerendurance.moc"
