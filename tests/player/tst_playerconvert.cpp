#include "PcmSamples.h"
#include "Player.h"
#include "Samples.h"
#include "SongAudioData.h"
#include "TestMain.h"

#include <SoundTouch.h>

#include <QAudioBuffer>
#include <QCoreApplication>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

using namespace Qt::StringLiterals;

// The current song's sound as a WAV file at the tempo of the moment.
class TestPlayerConvert : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void holdsWhatTheStretcherGives_data();
    void holdsWhatTheStretcherGives();
    void isWavWhateverTheNameSays();
    void ofWhatIsDecodedByThen();
    void withoutASongNothing();
    void withoutSoundNothing();
    void intoNowhereNothing();

private:
    SongPtr newSong(double seconds);
    bool decode(Song &song);
    QByteArray expected(const Song &song, int percent, int buffers) const;
    static QByteArray read(const QString &path);
    QString target() const { return directory.filePath(u"out.wav"_s); }

    QTemporaryDir directory;
};

void TestPlayerConvert::init()
{
    QFile::remove(target());
}

SongPtr TestPlayerConvert::newSong(double seconds)
{
    const QString file = directory.filePath(u"tone%1.mp3"_s.arg(seconds));
    if (!QFile::exists(file) && !Samples::writeTone(file, {.seconds = seconds}))
        return {};
    const SongPtr song(new Song(file, false));
    song->setFrequency(44100);
    song->setChannels(2);
    return song;
}

bool TestPlayerConvert::decode(Song &song)
{
    return QTest::qWaitFor(
        [&song] { return song.getAudioData() && !song.getAudioData()->isGrowing(); }, 20000);
}

// With the stretcher's own settings, and without what it still holds at the end.
QByteArray TestPlayerConvert::expected(const Song &song, int percent, int buffers) const
{
    soundtouch::SoundTouch stretcher;
    stretcher.setTempo(1.0 + percent / 100.0);
    stretcher.setChannels(2);
    stretcher.setSampleRate(44100);
    QByteArray sound;
    for (int i = 0; i < buffers; ++i) {
        std::vector<float> samples = PcmSamples::floatsOf(*song.audioBuffer(i));
        const auto frames = static_cast<uint>(samples.size() / 2);
        stretcher.putSamples(samples.data(), frames);
        samples.resize(samples.size() * 4);
        samples.resize(std::size_t(stretcher.receiveSamples(samples.data(), frames * 4)) * 2);
        for (const float sample : samples) {
            const qint16 bytes = qToLittleEndian(qint16(sample));
            sound.append(reinterpret_cast<const char *>(&bytes), 2);
        }
    }
    return sound;
}

QByteArray TestPlayerConvert::read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestPlayerConvert::holdsWhatTheStretcherGives_data()
{
    QTest::addColumn<int>("percent");
    for (const int percent : {0, 25, -40, 40})
        QTest::addRow("%+d %%", percent) << percent;
}

void TestPlayerConvert::holdsWhatTheStretcherGives()
{
    QFETCH(int, percent);
    const SongPtr song = newSong(5);
    Player player;
    player.setSong(song);
    QVERIFY(decode(*song));
    // The player's own stretcher has another tempo.
    player.setTempo(10);
    player.convert(target(), percent);
    const QByteArray file = read(target());
    const QByteArray sound = expected(*song, percent, song->audioBufferCount());
    QCOMPARE(file.size(), sound.size() + 44);
    QVERIFY(file.mid(44) == sound);
    QCOMPARE(qFromLittleEndian<quint32>(file.constData() + 4), quint32(file.size() - 8));
    QCOMPARE(qFromLittleEndian<quint32>(file.constData() + 40), quint32(sound.size()));
    const double seconds = double(sound.size()) / 4 / 44100;
    const double wanted = 5.0 / (1.0 + percent / 100.0);
    QVERIFY2(seconds < wanted + 0.1 && seconds > wanted - 0.4,
             qPrintable(QString::number(seconds)));
}

void TestPlayerConvert::isWavWhateverTheNameSays()
{
    const SongPtr song = newSong(5);
    Player player;
    player.setSong(song);
    QVERIFY(decode(*song));
    const QString name = directory.filePath(u"out.mp3"_s);
    player.convert(name, 0, Song::EFileFormat::Wav);
    QCOMPARE(read(name).left(4), QByteArray("RIFF"));
    QCOMPARE(read(name).mid(8, 4), QByteArray("WAVE"));
}

void TestPlayerConvert::ofWhatIsDecodedByThen()
{
    const SongPtr song = newSong(60);
    Player player;
    player.setSong(song);
    QVERIFY(song->getAudioData()->isGrowing());
    const int buffers = song->audioBufferCount();
    player.convert(target(), 0);
    const QByteArray file = read(target());
    QVERIFY(file.mid(44) == expected(*song, 0, buffers));
    QVERIFY(decode(*song));
    QVERIFY(song->audioBufferCount() > buffers);
}

void TestPlayerConvert::withoutASongNothing()
{
    Player player;
    player.convert(target(), 0);
    QVERIFY(!QFile::exists(target()));
}

void TestPlayerConvert::withoutSoundNothing()
{
    const SongPtr song = newSong(5);
    song->convert(target(), 0, Song::EFileFormat::Wav);
    QVERIFY(!QFile::exists(target()));
    song->decodeAudio();
    song->setChannels(0);
    song->convert(target(), 0, Song::EFileFormat::Wav);
    QVERIFY(!QFile::exists(target()));
}

void TestPlayerConvert::intoNowhereNothing()
{
    const SongPtr song = newSong(5);
    song->decodeAudio();
    const QString nowhere = directory.filePath(u"none/out.wav"_s);
    song->convert(nowhere, 0, Song::EFileFormat::Wav);
    QVERIFY(!QFile::exists(nowhere));
}

TARVELO_TEST_MAIN(TestPlayerConvert, QCoreApplication)
#include "tst_playerconvert.moc"
