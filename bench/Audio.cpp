// How long it takes to decode, stretch and start a song, against the bare libraries where they do
// the same work, and what playing takes of a processor.

#include "BareAudio.h"
#include "Bench.h"
#include "FirstSound.h"
#include "LongSong.h"
#include "ProcessUsage.h"
#include "Waiting.h"

#include <Player.h>
#include <PlayerDevice.h>
#include <SongAudioDataQt.h>
#include <SongStore.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;
using Bench::check;

namespace {

constexpr double slow = -20;
constexpr int playSeconds = 20;
constexpr qint64 pullSize = 44100 / 50 * 4;

struct Music
{
    QString one;
    QString other;
};

Music makeMusic(const QString &directory)
{
    const Music music{LongSong::write(directory, u"one.mp3"_s),
                      QDir(directory).filePath(u"other.mp3"_s)};
    check(QFile::copy(music.one, music.other), "No second song.");
    return music;
}

SongPtr load(const QString &file)
{
    const SongPtr song(new Song(file, false));
    check(song->getFrequency() == 44100 && song->getChannels() == 2, "The song was not read.");
    return song;
}

void decodeWhole(Song &song)
{
    song.decodeAudio();
    Waiting::forDecoder(*song.getAudioData());
    check(song.audioBufferCount() > 0, "The song was not decoded.");
}

// As the audio output does it: a small pull at a time.
qint64 pullWhole(const SongPtr &song, double tempo, double &pullMs)
{
    PlayerDevice device;
    check(device.open(QIODevice::ReadOnly | QIODevice::Unbuffered), "The device won't open.");
    device.setSong(song, tempo);
    QByteArray bytes(pullSize, '\0');
    qint64 all = 0;
    pullMs = Bench::onceOnProcessor([&] {
        qint64 got = 0;
        while ((got = device.read(bytes.data(), pullSize)) > 0)
            all += got;
    });
    return all / 4;
}

void measureStretch(const QString &file, int rounds)
{
    const SongPtr song = load(file);
    decodeWhole(*song);
    QList<double> pulled;
    QList<double> bare;
    for (int round = 0; round < rounds; ++round) {
        const double tempo = 1.0 + slow / 100.0;
        const qint64 bareFrames = BareAudio::stretch(*song, tempo, bare.emplaceBack());
        const qint64 frames = pullWhole(song, tempo, pulled.emplaceBack());
        check(frames == bareFrames && frames > 0, "The device delivers another sound.");
    }
    Bench::report("audio.stretch_ms", Bench::median(pulled));
    Bench::report("audio.stretch.ratio", Bench::median(pulled) / Bench::median(bare));
}

// Seconds of the song that are written in one second.
void measureConvert(const QString &file, int rounds)
{
    const SongPtr song = load(file);
    decodeWhole(*song);
    const QString target = file + u".wav"_s;
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        times.append(Bench::once(
            [&] { song->convert(target, static_cast<int>(slow), Song::EFileFormat::Wav); }));
        check(QFileInfo(target).size() > LongSong::ms / 1000 * 44100 * 4,
              "The export is not whole.");
    }
    QFile::remove(target);
    Bench::report("audio.convert.realtime_factor", LongSong::ms / Bench::median(times));
}

qint64 decodeKeeping(const QString &file, const QAudioFormat &format)
{
    SongAudioDataQt audio;
    audio.decode(file, format);
    Waiting::forDecoder(audio);
    qint64 frames = 0;
    for (int i = 0; i < audio.count(); ++i)
        frames += audio.at(i)->frameCount();
    return frames;
}

void measureDecode(const QString &file, int rounds)
{
    QAudioFormat format;
    format.setSampleFormat(QAudioFormat::Int16);
    format.setSampleRate(44100);
    format.setChannelCount(2);
    QList<double> kept;
    QList<double> bare;
    qint64 frames = 0;
    qint64 bareFrames = 0;
    for (int round = 0; round < rounds; ++round) {
        bare.append(Bench::once([&] { bareFrames = BareAudio::decode(file, format); }));
        kept.append(Bench::once([&] { frames = decodeKeeping(file, format); }));
        check(frames == bareFrames && frames > 0, "A decoding is not whole.");
    }
    Bench::report("audio.decode_ms", Bench::median(kept));
    Bench::report("audio.decode.ratio", Bench::median(kept) / Bench::median(bare));
}

void measureSetSong(const Music &music, int rounds)
{
    Player player;
    const QList<SongPtr> songs{load(music.one), load(music.other)};
    QList<double> times;
    for (int round = 0; round < rounds + 2; ++round) {
        const SongPtr &song = songs.at(round % 2);
        const double took = Bench::once([&] { player.setSong(song); });
        if (round >= 2)
            times.append(took);
        Waiting::forDecoder(*song->getAudioData());
    }
    Bench::report("audio.set_song_ms", Bench::median(times));
}

// In a process of its own, whose first song it is.
void tellSetSong(const QString &file)
{
    Player player;
    const SongPtr song = load(file);
    std::printf("%.3f\n", Bench::once([&] { player.setSong(song); }));
}

double askSetSong(const QString &file)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(), {file});
    process.waitForFinished(-1);
    bool isNumber = false;
    const double ms = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
    check(process.exitCode() == 0 && isNumber, "A first song can't be measured.");
    return ms;
}

void measureColdSetSong(const QString &file, int rounds)
{
    QList<double> times;
    for (int round = 0; round < rounds; ++round)
        times.append(askSetSong(file));
    Bench::report("audio.set_song_cold_ms", Bench::median(times));
}

// Of a player's first start, which opens the output.
void measureFirstSample(const QString &file, int rounds)
{
    const SongPtr song = load(file);
    QList<double> times;
    for (int round = 0; round < rounds; ++round) {
        Player player;
        player.setSong(song);
        Waiting::forDecoder(*song->getAudioData());
        Waiting::milliseconds(100); // the decoder is taken down behind its last buffer
        times.append(FirstSound::after([&] { player.start(); }));
        check(times.last() >= 0, "Nothing is heard.");
    }
    Bench::report("audio.first_sample_ms", Bench::median(times));
}

// Of one processor, when the song is decoded and the music runs.
void measurePlay(const QString &file)
{
    Player player;
    const SongPtr song = load(file);
    player.setSong(song);
    player.setTempo(slow);
    Waiting::forDecoder(*song->getAudioData());
    player.start();
    Waiting::milliseconds(1000);
    const int from = player.getPlaytime();
    const double percent = ProcessUsage::processorPercent(
        QCoreApplication::applicationPid(), [] { Waiting::milliseconds(playSeconds * 1000); });
    check(player.getPlaytime() - from > playSeconds * 700, "The music did not play on.");
    Bench::report("audio.play.cpu_percent", percent);
}

} // namespace

int main(int argc, char *argv[])
{
    const QGuiApplication application(argc, argv);
    QLoggingCategory::setFilterRules(u"*.debug=false"_s);
    // The working directory holds the settings: the user's own stay untouched.
    if (argc > 1) {
        createSongStores();
        tellSetSong(QString::fromLocal8Bit(argv[1]));
    } else {
        const int rounds = Bench::count(9);
        const QTemporaryDir home;
        QDir::setCurrent(home.path());
        QFile preferences(u"Tarvelo.ini"_s);
        check(preferences.open(QIODevice::WriteOnly), "No preferences.");
        preferences.write("[General]\ncacheDir=\nmusicDir=" + QFile::encodeName(home.path())
                          + "\n");
        preferences.close();
        QDir::temp().mkdir(u"Tarvelo"_s); // where the database lies
        createSongStores();
        const Music music = makeMusic(home.path());
        measureStretch(music.one, rounds);
        measureDecode(music.one, rounds);
        measureSetSong(music, rounds);
        measureColdSetSong(music.one, rounds);
        measureFirstSample(music.one, rounds);
        measureConvert(music.one, rounds);
        measurePlay(music.one);
    }
    destroySongStores();
}
