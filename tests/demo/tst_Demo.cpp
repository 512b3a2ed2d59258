#include "Band.h"
#include "Library.h"
#include "TestMain.h"

#include <Song.h>
#include <SongAudioData.h>
#include <SongStore.h>

#include <QGuiApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSignalSpy>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

using Samples16 = std::vector<std::int16_t>;

Demo::Score demoSong(const QString &path)
{
    for (const Demo::Score &score : Demo::songs())
        if (score.path == path)
            return score;
    return {};
}

// Two bars: what needs files but no music.
Demo::Score shortScore()
{
    Demo::Score score;
    score.path = u"Short/Two bars.mp3"_s;
    score.title = u"Two bars"_s;
    score.parts = {{u"Intro"_s, Demo::Texture::Count, u"G D"_s, u"Wait (8)"_s}};
    return score;
}

Samples16 samplesOf(const QByteArray &bytes)
{
    Samples16 samples(static_cast<std::size_t>(bytes.size()) / 2);
    std::copy_n(bytes.constData(), samples.size() * 2, reinterpret_cast<char *>(samples.data()));
    return samples;
}

Samples16 decodedByFfmpeg(const QString &path)
{
    QProcess ffmpeg;
    ffmpeg.start(u"ffmpeg"_s,
                 {u"-v"_s, u"error"_s, u"-i"_s, u"file:"_s + path, u"-f"_s, u"s16le"_s, u"-"_s});
    ffmpeg.waitForFinished(60000);
    return samplesOf(ffmpeg.readAllStandardOutput());
}

Samples16 decodedByTheProgram(const QString &path)
{
    Song song(path, false);
    song.decodeAudio();
    // A running event loop: QTRY_… would sleep between the decoder's buffers.
    QSignalSpy ended(song.getAudioData().get(), &SongAudioData::decodingEnded);
    if (song.getAudioData()->isGrowing() && !ended.wait(30000))
        return {};
    QByteArray bytes;
    for (int i = 0; i < song.audioBufferCount(); ++i)
        bytes.append(song.audioBuffer(i)->constData<char>(), song.audioBuffer(i)->byteCount());
    return samplesOf(bytes);
}

// The moment, in milliseconds, at which the treble jumps up within 40 ms around `ms`.
double onsetNear(const Samples16 &samples, const Demo::Score &score, double ms)
{
    const auto frames = static_cast<double>(samples.size()) / score.channels;
    const auto at = [&](double t) { return std::clamp(t / 1000 * score.rate, 2.0, frames - 1); };
    const auto value = [&](std::size_t frame) {
        double sum = 0;
        for (int channel = 0; channel < score.channels; ++channel)
            sum += samples[frame * static_cast<std::size_t>(score.channels)
                           + static_cast<std::size_t>(channel)];
        return sum;
    };
    const auto first = static_cast<std::size_t>(at(ms - 40));
    const auto last = static_cast<std::size_t>(at(ms + 40));
    std::vector<double> treble;
    double energy = 0;
    for (std::size_t i = first; i < last; ++i) {
        const double bend = value(i) - 2 * value(i - 1) + value(i - 2);
        energy = 0.95 * energy + bend * bend;
        treble.push_back(energy);
    }
    const double loud = 0.3 * *std::max_element(treble.begin(), treble.end());
    const auto onset = std::find_if(treble.begin(), treble.end(),
                                    [loud](double present) { return present > loud; });
    return (static_cast<double>(first) + static_cast<double>(onset - treble.begin())) * 1000
           / score.rate;
}

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestDemo : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();

    void aChordHasItsThreeNotes_data();
    void aChordHasItsThreeNotes();
    void everyPartsFiguresFillItsBeats_data();
    void everyPartsFiguresFillItsBeats();
    void beatsLieWhereTheSongSays_data();
    void beatsLieWhereTheSongSays();
    void positionsStandOnTheFirstBeatOfTheirParts();
    void countInsEndOnTheFirstBeatOfTheirParts();
    void theTagTellsEverything();
    void theSameBytesAtEveryRun();
    void factsStandBesideTheSongs();
    void aDirectoryThatCantBeMadeIsTold();

private:
    QString written(const Demo::Score &score);

    QTemporaryDir directory;
};

void TestDemo::initTestCase()
{
    createSongStores();
    songStores()->slot[SongStoreCacheSlot].reset();
}

void TestDemo::cleanupTestCase()
{
    destroySongStores();
}

// The file, made at the first call.
QString TestDemo::written(const Demo::Score &score)
{
    const QString path = directory.filePath(score.path);
    if (!QFile::exists(path))
        [&] { QCOMPARE(Demo::writeLibrary(directory.path(), {score}), QString()); }();
    return path;
}

void TestDemo::aChordHasItsThreeNotes_data()
{
    QTest::addColumn<QString>("chord");
    QTest::addColumn<QList<int>>("notes");
    QTest::newRow("C") << u"C"_s << QList<int>{48, 52, 55};
    QTest::newRow("Em") << u"Em"_s << QList<int>{52, 55, 59};
    QTest::newRow("F#m") << u"F#m"_s << QList<int>{54, 57, 61};
    QTest::newRow("Bb") << u"Bb"_s << QList<int>{58, 62, 65};
}

void TestDemo::aChordHasItsThreeNotes()
{
    QFETCH(QString, chord);
    QTEST(Demo::chordNotes(chord), "notes");
}

void TestDemo::everyPartsFiguresFillItsBeats_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("beats");
    for (const Demo::Score &score : Demo::songs())
        for (const Demo::Part &part : score.parts)
            QTest::addRow("%s, %s", qPrintable(score.title), qPrintable(part.name))
                << part.steps << part.beats();
}

void TestDemo::everyPartsFiguresFillItsBeats()
{
    QFETCH(QString, steps);
    static const QRegularExpression counted(u"^.+ \\((\\d+)\\)$"_s);
    int sum = 0;
    for (const QString &line : steps.split(u'\n')) {
        const QRegularExpressionMatch match = counted.match(line);
        QVERIFY2(match.hasMatch(), qPrintable(line));
        sum += match.captured(1).toInt();
    }
    QTEST(sum, "beats");
}

void TestDemo::beatsLieWhereTheSongSays_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("byTheProgram");
    const QString stereo = u"Country/Road #9.mp3"_s;
    const QString mono = u"Country/Paper Moon Railway.mp3"_s;
    const QString fast = u"Pop/Cinnamon Road.mp3"_s;
    QTest::newRow("44.1 kHz stereo, ffmpeg") << stereo << false;
    QTest::newRow("44.1 kHz stereo, the program") << stereo << true;
    QTest::newRow("mono, ffmpeg") << mono << false;
    QTest::newRow("mono, the program") << mono << true;
    QTest::newRow("48 kHz, ffmpeg") << fast << false;
    QTest::newRow("48 kHz, the program") << fast << true;
}

void TestDemo::beatsLieWhereTheSongSays()
{
    QFETCH(QString, path);
    QFETCH(bool, byTheProgram);
    const Demo::Score score = demoSong(path);
    const QString file = written(score);
    const Samples16 samples = byTheProgram ? decodedByTheProgram(file) : decodedByFfmpeg(file);
    QVERIFY(!samples.empty());
    const auto [lowest, highest] = std::minmax_element(samples.begin(), samples.end());
    const int loudest = std::max(-*lowest, int(*highest));
    QVERIFY2(loudest > 32767 / 2 && loudest < 32767 * 3 / 4, qPrintable(QString::number(loudest)));
    for (int beat = 0; beat < score.beats(); ++beat) {
        const double off = onsetNear(samples, score, score.beatMs(beat)) - score.beatMs(beat);
        QVERIFY2(std::abs(off) < 2.0, qPrintable(u"beat %1 is off by %2 ms"_s.arg(beat).arg(off)));
    }
}

void TestDemo::positionsStandOnTheFirstBeatOfTheirParts()
{
    const Demo::Score score = demoSong(u"Pop/Cinnamon Road.mp3"_s);
    const Song song(written(score), false);
    QCOMPARE(song.getPositions().count(), int(score.parts.size()));
    int beat = 0;
    for (int i = 0; i < song.getPositions().count(); ++i) {
        QCOMPARE(song.getPositions().at(i).getTime(), qRound(290 + beat * 60000.0 / 140));
        QCOMPARE(song.getPositions().at(i).getPart(), score.parts.at(i).name);
        QCOMPARE(song.getPositions().at(i).getSteps(), score.parts.at(i).steps);
        beat += score.parts.at(i).beats();
    }
    QCOMPARE(beat, score.beats());
}

void TestDemo::countInsEndOnTheFirstBeatOfTheirParts()
{
    const Demo::Score score = demoSong(u"Pop/Neon Porch Light.mp3"_s);
    const Song song(written(score), false);
    QCOMPARE(song.getCountDowns().count(), 2);
    const CountDownItem *first = song.getCountDowns().at(0);
    QVERIFY(first->isEnabled());
    QCOMPARE(first->getCountStart(), 8);
    QCOMPARE(first->getCountEnd(), 0);
    QCOMPARE(first->getIgnition(), 238);
    QCOMPARE(song.getCountDowns().at(1)->getIgnition(),
             qint64(song.getPositions().at(3).getTime()));
}

void TestDemo::theTagTellsEverything()
{
    const Song song(written(demoSong(u"Country/Paper Moon Railway.mp3"_s)), false);
    QCOMPARE(song.getTitle(), u"Paper Moon Railway"_s);
    QCOMPARE(song.getArtist(), u"Nestor Fairweather"_s);
    QCOMPARE(song.getCueOwner(), u"Hannelore Süßmilch"_s);
    QCOMPARE(song.getLevel(), u"Intermediate-Advanced"_s);
    QCOMPARE(song.getYear(), u"1988"_s);
    QCOMPARE(song.getBpm(), u"108"_s);
    QCOMPARE(song.getRatingStars(), 3);
    QCOMPARE(song.getChannels(), 1);
    QCOMPARE(song.getFrequency(), 44100);
}

void TestDemo::theSameBytesAtEveryRun()
{
    QTemporaryDir first;
    QTemporaryDir second;
    const Demo::Score score = shortScore();
    QCOMPARE(Demo::writeLibrary(first.path(), {score}), QString());
    QCOMPARE(Demo::writeLibrary(second.path(), {score}), QString());
    QVERIFY(contents(first.filePath(score.path)).size() > 10000);
    QCOMPARE(contents(first.filePath(score.path)), contents(second.filePath(score.path)));
}

void TestDemo::factsStandBesideTheSongs()
{
    QTemporaryDir target;
    QCOMPARE(Demo::writeLibrary(target.path(), {shortScore()}), QString());
    const QJsonObject facts = QJsonDocument::fromJson(contents(target.filePath(u"demo.json"_s)))
                                  .object()[u"songs"_s][0]
                                  .toObject();
    QCOMPARE(facts[u"file"_s].toString(), u"Short/Two bars.mp3"_s);
    QCOMPARE(facts[u"bpm"_s].toInt(), 120);
    QCOMPARE(facts[u"firstBeatMs"_s].toInt(), 500);
    QCOMPARE(facts[u"beats"_s].toInt(), 8);
    QCOMPARE(facts[u"parts"_s][0][u"ms"_s].toInt(), 500);
}

void TestDemo::aDirectoryThatCantBeMadeIsTold()
{
    QTemporaryDir target;
    QFile blocker(target.filePath(u"taken"_s));
    QVERIFY(blocker.open(QIODevice::WriteOnly));
    QVERIFY(!Demo::writeLibrary(target.filePath(u"taken"_s), {shortScore()}).isEmpty());
}

TARVELO_TEST_MAIN(TestDemo, QGuiApplication)
#include "tst_Demo.moc"
