#include "PlayerDevice.h"
#include "Samples.h"
#include "SongAudioData.h"
#include "StepSong.h"
#include "Tempos.h"
#include "TestMain.h"
#include "Waves.h"

#include <SongStore.h>

#include <QGuiApplication>
#include <QSignalSpy>

#include <algorithm>

using namespace Qt::StringLiterals;
using Waves::rate;

namespace {

SongPtr songOf(const QString &file)
{
    const SongPtr song(new Song(file, false));
    song->setFrequency(rate);
    song->setChannels(2);
    return song;
}

bool decode(const SongPtr &song)
{
    song->decodeAudio();
    QSignalSpy ended(song->getAudioData().get(), &SongAudioData::decodingEnded);
    return !song->getAudioData()->isGrowing() || ended.wait(60000);
}

QList<qint16> samplesOf(const QByteArray &bytes)
{
    const auto *first = reinterpret_cast<const qint16 *>(bytes.constData());
    return {first, first + bytes.size() / 2};
}

// One channel of what was decoded.
QList<qint16> decodedMono(const Song &song)
{
    QByteArray bytes;
    for (int i = 0; i < song.audioBufferCount(); ++i)
        bytes.append(song.audioBuffer(i)->constData<char>(), song.audioBuffer(i)->byteCount());
    return Waves::mono(samplesOf(bytes), 2);
}

// One channel of what an output would get, in pulls of an odd size, so that their borders lie
// anywhere. Before each pull the tempo may be changed.
template <typename Tempo> QList<qint16> pulledMono(const SongPtr &song, Tempo tempoAt)
{
    constexpr qint64 odd = 4 * 1237;
    PlayerDevice device;
    device.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    device.setSong(song, tempoAt(0.0));
    QByteArray all;
    for (QByteArray part = device.read(odd); !part.isEmpty(); part = device.read(odd)) {
        all += part;
        device.setTempo(tempoAt(static_cast<double>(all.size()) / 4 / rate));
    }
    return Waves::mono(samplesOf(all), 2);
}

} // namespace

// What an output would get, faster than real time: in tune, of the right length, without a click.
class TestPlayerTune : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void toneKeepsPitchAndLength_data();
    void toneKeepsPitchAndLength();
    void stretchedBeatsKeepTheirPlace_data();
    void stretchedBeatsKeepTheirPlace();
    void tempoChangesLeaveNoClick_data();
    void tempoChangesLeaveNoClick();

private:
    SongPtr tone(double seconds, const QString &suffix);

    QTemporaryDir directory;
    StepSong step;
};

void TestPlayerTune::initTestCase()
{
    createSongStores();
    songStores()->slot[SongStoreCacheSlot].reset();
    QVERIFY(step.write(directory.path(), {}));
}

void TestPlayerTune::cleanupTestCase()
{
    destroySongStores();
}

// 440 Hz, 6 dB below what 16 bits can hold.
SongPtr TestPlayerTune::tone(double seconds, const QString &suffix)
{
    const QString wave = directory.filePath(u"tone%1.wav"_qs.arg(seconds));
    const QString file = directory.filePath(u"tone%1."_qs.arg(seconds) + suffix);
    const auto sine = [](double t) { return Waves::sine(440, t); };
    if (!Samples::writeWave(wave, Waves::render(seconds, sine, 16384)))
        return {};
    if (file != wave && !Samples::encode(wave, file))
        return {};
    return songOf(file);
}

void TestPlayerTune::toneKeepsPitchAndLength_data()
{
    Tempos::addRows();
}

void TestPlayerTune::toneKeepsPitchAndLength()
{
    QFETCH(int, percent);
    constexpr double seconds = 100;
    const SongPtr song = tone(seconds, u"wav"_qs);
    QVERIFY(song && decode(song));
    const QList<qint16> input = decodedMono(*song);
    const QList<qint16> output
        = pulledMono(song, [percent](double) { return Tempos::factor(percent); });

    const double lasted = static_cast<double>(output.size()) / rate * Tempos::factor(percent);
    const double cents = Waves::centsFrom(440, Waves::frequency(output, 0, output.size()));
    const int jump = Waves::largestJump(output, 0, output.size());
    const int allowed = Waves::largestJump(input, 0, input.size());
    fprintf(stdout,
            "FIGURE tempo %+d%%: %+.2f cents over %.0f s, %+.2f %% of the length, largest jump %d "
            "of %d\n",
            percent, cents, lasted / Tempos::factor(percent), (lasted / seconds - 1) * 100, jump,
            allowed);
    QVERIFY2(qAbs(cents) < 2, qPrintable(QString::number(cents)));
    QVERIFY2(qAbs(lasted / seconds - 1) < 0.005, qPrintable(QString::number(lasted)));
    QVERIFY2(jump <= allowed + 2, qPrintable(QString::number(jump)));
}

void TestPlayerTune::stretchedBeatsKeepTheirPlace_data()
{
    Tempos::addRows();
}

// The stretcher plays pieces of the song at the recorded speed, each from its right place on: the
// further into a piece, the further from the right place.
void TestPlayerTune::stretchedBeatsKeepTheirPlace()
{
    QFETCH(int, percent);
    const SongPtr song(new Song(step.song()->getFilename(), false));
    QVERIFY(decode(song));
    const QList<qint16> output
        = pulledMono(song, [percent](double) { return Tempos::factor(percent); });
    QList<double> late;
    for (int beat = 0; beat < step.beats(); ++beat) {
        const double place = step.beatMs(beat) / Tempos::factor(percent) * rate / 1000;
        const auto about = static_cast<qsizetype>(place);
        const auto frame = step.frameOf(beat, output, about - rate / 10, about + rate / 10);
        if (frame)
            late.append((static_cast<double>(*frame) - place) * 1000 / rate);
    }
    fprintf(stdout, "FIGURE stretched, %+d%%: beats %s ms late, %d of %d found\n", percent,
            qPrintable(Tempos::summary(late)), int(late.size()), step.beats());
    QVERIFY(late.size() * 3 > step.beats());
    const auto [earliest, latest] = std::minmax_element(late.cbegin(), late.cend());
    QVERIFY(*earliest > -60 && *latest < 20);
}

void TestPlayerTune::tempoChangesLeaveNoClick_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<double>("each");

    for (const QString &suffix : {u"wav"_qs, u"mp3"_qs})
        for (const double each : {0.1, 0.7})
            QTest::addRow("%s, every %.1f s", qPrintable(suffix), each) << suffix << each;
}

void TestPlayerTune::tempoChangesLeaveNoClick()
{
    QFETCH(QString, suffix);
    QFETCH(double, each);
    const SongPtr song = tone(60, suffix);
    QVERIFY(song && decode(song));
    const QList<qint16> input = decodedMono(*song);
    const QList<qint16> output = pulledMono(song, [each](double t) {
        return Tempos::factor(Tempos::all().at(static_cast<int>(t / each) % Tempos::all().size()));
    });
    const int jump = Waves::largestJump(output, 0, output.size());
    const int allowed = Waves::largestJump(input, 0, input.size());
    fprintf(stdout, "FIGURE tempo changed, %s: largest jump %d of %d\n", QTest::currentDataTag(),
            jump, allowed);
    QVERIFY2(jump <= allowed + 2, qPrintable(QString::number(jump)));
}

TARVELO_TEST_MAIN(TestPlayerTune, QGuiApplication)
#include "tst_playertune.moc"
