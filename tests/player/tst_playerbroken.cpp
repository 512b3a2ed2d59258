#include "Player.h"
#include "Samples.h"
#include "SongAudioData.h"
#include "SongStore.h"
#include "TestMain.h"

#include <QCoreApplication>
#include <QDirIterator>
#include <QEventLoop>
#include <QSignalSpy>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int patienceMs = 5000;
// What is played of a song's end.
constexpr int restMs = 250;

// In the event loop itself: QTest's waits sleep between its rounds, and the decoder holds no more
// than four buffers.
bool waitFor(const std::function<bool()> &condition)
{
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
        if (condition())
            loop.exit(1);
    });
    look.start(5);
    QTimer::singleShot(patienceMs, &loop, [&loop] { loop.exit(0); });
    return condition() || loop.exec() == 1;
}

bool isStopped(const Player &player)
{
    return !player.isPlaying() && player.getPlaytime() == 0;
}

int decodedMs(const Song &song)
{
    if (!song.getAudioData() || song.audioBufferCount() == 0)
        return 0;
    const std::shared_ptr<QAudioBuffer> last = song.audioBuffer(song.audioBufferCount() - 1);
    return static_cast<int>((last->startTime() + last->duration()) / 1000);
}

bool isDecoded(const Song &song)
{
    return !song.getAudioData() || !song.getAudioData()->isGrowing();
}

// A file that is played by a player of its own, beside others.
struct Lane
{
    SongPtr song;
    std::unique_ptr<Player> player = std::make_unique<Player>();
    bool wasHeard = false;

    explicit Lane(const SongPtr &newSong)
        : song(newSong)
    {
        QObject::connect(player.get(), &Player::notifyPlayTimeChanged, player.get(),
                         [this](int ms) { wasHeard = wasHeard || ms > 0; });
        player->setSong(song);
        player->start();
    }
    bool hasBegun() const { return wasHeard || isStopped(*player); }
    void playTheRest() const
    {
        if (player->isPlaying())
            player->startFromPlaytime(std::max(decodedMs(*song) - restMs, 0));
    }
};

using Lanes = std::vector<std::unique_ptr<Lane>>;
using Condition = std::function<bool(const Lane &)>;

// The files for which it doesn't become true in time, with what is missed.
QStringList missed(const Lanes &lanes, const QString &what, const Condition &condition)
{
    const auto holds = [&condition](const std::unique_ptr<Lane> &lane) { return condition(*lane); };
    QStringList files;
    if (waitFor([&] { return std::all_of(lanes.cbegin(), lanes.cend(), holds); }))
        return files;
    for (const std::unique_ptr<Lane> &lane : lanes) {
        if (!holds(lane))
            files.append(what + u": "_qs + lane->song->getFilename());
    }
    return files;
}

// Plays all of them at once: their beginnings, and their ends when they are decoded. The answer is
// those that didn't begin, or didn't stop by themselves.
QStringList restless(const QList<SongPtr> &songs)
{
    Lanes lanes;
    for (const SongPtr &song : songs)
        lanes.push_back(std::make_unique<Lane>(song));
    QStringList files = missed(lanes, u"begins"_qs, [](const Lane &lane) {
        return lane.hasBegun() && isDecoded(*lane.song);
    });
    for (const std::unique_ptr<Lane> &lane : lanes)
        lane->playTheRest();
    files += missed(lanes, u"stops"_qs, [](const Lane &lane) { return isStopped(*lane.player); });
    return files;
}

// As the program reads it; where its tags tell nothing of the sound the decoder has its turn too.
SongPtr songOf(const QString &file)
{
    const SongPtr song(new Song(file, false));
    if (song->getFrequency() == 0)
        song->setFrequency(44100);
    if (song->getChannels() == 0)
        song->setChannels(2);
    return song;
}

bool write(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Over what the file holds, which stays the same file.
bool writeInto(const QString &path, qint64 at, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::ReadWrite) && file.seek(at) && file.write(bytes) == bytes.size();
}

const QByteArray prose = QByteArray("These are no frames of music.\n").repeated(5000);

} // namespace

// Files that are no songs, or strange ones, or that change under the decoder: whatever they are,
// the player ends in silence, ready for the next song.
class TestPlayerBroken : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void foreignFilesEnd_data();
    void foreignFilesEnd();
    void fileWithoutMusicIsSilent_data();
    void fileWithoutMusicIsSilent();
    void fileOfNoKindIsNeverStarted();
    void strangeRatesPlay_data();
    void strangeRatesPlay();
    void fewBuffersPlay_data();
    void fewBuffersPlay();
    void fileMayChangeWhileItIsDecoded_data();
    void fileMayChangeWhileItIsDecoded();
    void musicPlaysAfterABrokenFile();

private:
    QString fileWithBuffers(int wanted);

    QTemporaryDir directory;
    QString threeMinutes;
};

void TestPlayerBroken::initTestCase()
{
    if (qEnvironmentVariable("TARVELO_SESSION") != u"1"_qs)
        QSKIP("Needs a sound server of its own: run it through scripts/test-session.");
    createSongStores();
    threeMinutes = directory.filePath(u"three minutes.mp3"_qs);
    QVERIFY(Samples::writeTone(threeMinutes, {.seconds = 180}));
}

void TestPlayerBroken::cleanupTestCase()
{
    destroySongStores();
}

void TestPlayerBroken::foreignFilesEnd_data()
{
    QTest::addColumn<QString>("place");
    if (corpusDirectory().isEmpty())
        return;
    const QDir tags(corpusDirectory() + u"/tags"_qs);
    for (const QString &name : tags.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        QTest::newRow(qPrintable(name)) << tags.filePath(name);
    QTest::newRow("playlists") << corpusDirectory() + u"/playlists"_qs;
}

// What is found there may be of any kind, and much of it was made to break its reader.
void TestPlayerBroken::foreignFilesEnd()
{
    if (corpusDirectory().isEmpty())
        QSKIP("TARVELO_CORPUS isn't set");
    QFETCH(QString, place);
    constexpr int lanes = 8;
    QDirIterator files(place, QDir::Files, QDirIterator::Subdirectories);
    QStringList faults;
    while (files.hasNext()) {
        QList<SongPtr> songs;
        while (files.hasNext() && songs.size() < lanes)
            songs.append(songOf(files.next()));
        faults += restless(songs);
    }
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
}

void TestPlayerBroken::fileWithoutMusicIsSilent_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << prose;
    QTest::newRow("zeros") << QByteArray(200000, '\0');
    QTest::newRow("one bit pattern") << QByteArray(200000, '\xff');
    QTest::newRow("a tag alone") << QByteArray("ID3\4\0\0\0\0\x0f\x76", 10)
                                        + QByteArray(2038, '\0');
    QTest::newRow("the header of a wave") << QByteArray("RIFF\xff\xff\xff\xffWAVEfmt ", 16);
}

// Every way to start it.
void TestPlayerBroken::fileWithoutMusicIsSilent()
{
    QFETCH(QByteArray, content);
    const QString file = directory.filePath(u"no music.mp3"_qs);
    QVERIFY(write(file, content));
    Player player;
    const SongPtr song = songOf(file);
    player.setSong(song);
    player.start();
    QVERIFY(waitFor([&] { return isStopped(player); }));
    player.resume();
    QVERIFY(waitFor([&] { return isStopped(player); }));
    player.startFromPart(1);
    QVERIFY(waitFor([&] { return isStopped(player); }));
    player.startFromPlaytime(5000);
    QVERIFY(waitFor([&] { return isStopped(player); }));
    QCOMPARE(song->audioBufferCount(), 0);
}

void TestPlayerBroken::fileOfNoKindIsNeverStarted()
{
    const QString file = directory.filePath(u"prose.mp3"_qs);
    QVERIFY(write(file, prose));
    const SongPtr song(new Song(file, false));
    QCOMPARE(song->getFrequency(), 0);
    QCOMPARE(song->getChannels(), 0);
    Player player;
    player.setSong(song);
    player.start();
    QVERIFY(isStopped(player));
    player.setTempo(-20);
    player.startFromPlaytime(1000);
    QVERIFY(!player.isPlaying());
    player.stop();
    QVERIFY(isStopped(player));
}

void TestPlayerBroken::strangeRatesPlay_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<int>("rate");
    QTest::addColumn<int>("channels");

    QTest::newRow("8 kHz, mono, mp3") << u"mp3"_qs << 8000 << 1;
    QTest::newRow("8 kHz, mono, wav") << u"wav"_qs << 8000 << 1;
    QTest::newRow("11 kHz, stereo, mp3") << u"mp3"_qs << 11025 << 2;
    QTest::newRow("96 kHz, stereo, flac") << u"flac"_qs << 96000 << 2;
    QTest::newRow("192 kHz, mono, flac") << u"flac"_qs << 192000 << 1;
    QTest::newRow("six channels, flac") << u"flac"_qs << 48000 << 6;
}

// At its own rate: the time that passes is the song's.
void TestPlayerBroken::strangeRatesPlay()
{
    QFETCH(QString, suffix);
    QFETCH(int, rate);
    QFETCH(int, channels);
    const QString file
        = directory.filePath(u"strange%1-%2.%3"_qs.arg(rate).arg(channels).arg(suffix));
    QVERIFY(Samples::writeTone(file, {.seconds = 2, .rate = rate, .channels = channels}));
    const SongPtr song(new Song(file, false));
    QCOMPARE(song->getFrequency(), rate);
    QCOMPARE(song->getChannels(), channels);
    Player player;
    int last = 0;
    connect(&player, &Player::notifyPlayTimeChanged, this, [&last](int ms) {
        if (ms > 0)
            last = ms;
    });
    player.setSong(song);
    player.start();
    QVERIFY(player.isPlaying());
    QVERIFY(waitFor([&] { return isStopped(player); }));
    QVERIFY2(last >= 1200 && last < 2400, qPrintable(QString::number(last)));
}

// An mp3 that the decoder delivers in exactly this number of buffers.
QString TestPlayerBroken::fileWithBuffers(int wanted)
{
    for (int frames = std::max(wanted, 2); frames < wanted + 4; ++frames) {
        const QString path = directory.filePath(u"frames%1.mp3"_qs.arg(frames));
        if (!Samples::writeMp3Frames(threeMinutes, path, frames))
            return {};
        const SongPtr song = songOf(path);
        song->decodeAudio();
        if (waitFor([&song] { return isDecoded(*song); }) && song->audioBufferCount() == wanted)
            return path;
    }
    return {};
}

void TestPlayerBroken::fewBuffersPlay_data()
{
    QTest::addColumn<int>("buffers");

    for (const int buffers : {1, 20, 21})
        QTest::addRow("%d", buffers) << buffers;
}

void TestPlayerBroken::fewBuffersPlay()
{
    QFETCH(int, buffers);
    QString file = fileWithBuffers(buffers);
    if (buffers == 1) { // no such mp3 is known as one
        file = directory.filePath(u"one.flac"_qs);
        QVERIFY(Samples::writeTone(file, {.seconds = 0.05}));
    }
    QVERIFY(!file.isEmpty());
    const SongPtr song = songOf(file);
    Player player;
    QSignalSpy told(&player, &Player::notifyIsPlayingChanged);
    player.setSong(song);
    for (int i = 0; i < 2; ++i) {
        player.start();
        QVERIFY(player.isPlaying());
        QVERIFY(waitFor([&] { return isStopped(player); }));
    }
    QCOMPARE(song->audioBufferCount(), buffers);
    QCOMPARE(told.count(), 4);
}

using Change = std::function<bool(const QString &)>;

void TestPlayerBroken::fileMayChangeWhileItIsDecoded_data()
{
    QTest::addColumn<Change>("change");
    const QString other = directory.filePath(u"other.mp3"_qs);
    QVERIFY(Samples::writeTone(other, {.seconds = 3, .rate = 22050, .channels = 1}));
    const auto replaceBy = [](const QString &file, const QByteArray &bytes) {
        return write(file + u".new"_qs, bytes)
               && rename(QFile::encodeName(file + u".new"_qs).constData(),
                         QFile::encodeName(file).constData())
                      == 0;
    };

    QTest::newRow("cut in the middle")
        << Change([](const QString &file) { return QFile::resize(file, 1000000); });
    QTest::newRow("emptied") << Change([](const QString &file) { return QFile::resize(file, 0); });
    QTest::newRow("removed") << Change([](const QString &file) { return QFile::remove(file); });
    QTest::newRow("text over its middle")
        << Change([](const QString &file) { return writeInto(file, 900000, prose); });
    QTest::newRow("text over all of it")
        << Change([](const QString &file) { return writeInto(file, 0, prose.repeated(20)); });
    QTest::newRow("text behind it") << Change(
        [](const QString &file) { return writeInto(file, QFileInfo(file).size(), prose); });
    QTest::newRow("replaced by a text")
        << Change([replaceBy](const QString &file) { return replaceBy(file, prose); });
    QTest::newRow("replaced by another song") << Change([replaceBy, other](const QString &file) {
        QFile song(other);
        return song.open(QIODevice::ReadOnly) && replaceBy(file, song.readAll());
    });
    QTest::newRow("another song written into it") << Change([other](const QString &file) {
        QFile song(other);
        return song.open(QIODevice::ReadOnly) && write(file, song.readAll());
    });
}

// With the first buffer, and once the song is ready to play.
void TestPlayerBroken::fileMayChangeWhileItIsDecoded()
{
    QFETCH(Change, change);
    const QString file = directory.filePath(u"changing.mp3"_qs);
    for (const bool atOnce : {true, false}) {
        QFile::remove(file);
        QVERIFY(QFile::copy(threeMinutes, file));
        const SongPtr song = songOf(file);
        bool changed = false;
        const auto changeIt = [&] { changed = change(file) && song->getAudioData()->isGrowing(); };
        if (atOnce)
            QTimer::singleShot(0, this, changeIt);
        Player player;
        player.setSong(song);
        if (!atOnce)
            changeIt();
        QVERIFY(changed);
        player.start();
        QVERIFY(waitFor([&] { return isStopped(player) || player.getPlaytime() > 100; }));
        QVERIFY(waitFor([&] { return isDecoded(*song); }));
        if (player.isPlaying())
            player.startFromPlaytime(std::max(decodedMs(*song) - restMs, 0));
        QVERIFY(waitFor([&] { return isStopped(player); }));
    }
}

void TestPlayerBroken::musicPlaysAfterABrokenFile()
{
    const QString broken = directory.filePath(u"broken.mp3"_qs);
    QVERIFY(write(broken, prose));
    Player player;
    for (int i = 0; i < 3; ++i) {
        player.setSong(songOf(broken));
        player.start();
        player.setSong(songOf(threeMinutes));
        player.start();
        QVERIFY(waitFor([&] { return player.getPlaytime() > 200; }));
    }
}

TARVELO_TEST_MAIN(TestPlayerBroken, QCoreApplication)
#include "tst_playerbroken.moc"
