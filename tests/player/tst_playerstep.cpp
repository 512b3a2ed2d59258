#include "PlayerFixture.h"
#include "Recorder.h"
#include "Samples.h"
#include "StepOffsets.h"
#include "StepSong.h"
#include "Tempos.h"
#include "TestMain.h"
#include "Waves.h"

#include <SongStore.h>

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>

using namespace Qt::StringLiterals;
using Waves::rate;

namespace {

// A part is told at most so much before or after its beat is heard.
constexpr double boundMs = 60;
// A seek goes to the next of the decoder's buffers, and a beat at the seam is cut.
constexpr int seamMs = 30;

// Where the long form leaves what it measured; empty for the short one.
QString recordDirectory()
{
    return qEnvironmentVariable("TARVELO_STEP_RECORD");
}

bool isLong()
{
    return !recordDirectory().isEmpty();
}

// The session's sound server has no rights of its own: on a busy machine it gets a turn too late
// now and then. The short form, which runs beside anything, then measures anew; the long one wants
// a quiet machine and forgives nothing.
int attempts()
{
    return isLong() ? 1 : 3;
}

// The long form takes them all.
QList<int> someTempos()
{
    return isLong() ? Tempos::all() : QList<int>{40, -40};
}

struct Line
{
    double height = 0;
    double slope = 0;
};

// The straight line nearest to the points.
Line lineThrough(const QList<QPointF> &points)
{
    const auto count = static_cast<double>(points.size());
    QPointF middle;
    for (const QPointF &point : points)
        middle += point / count;
    double rise = 0;
    double run = 0;
    for (const QPointF &point : points) {
        rise += (point.x() - middle.x()) * (point.y() - middle.y());
        run += (point.x() - middle.x()) * (point.x() - middle.x());
    }
    return {middle.y() - rise / run * middle.x(), rise / run};
}

} // namespace

// The parts that are told against the music that is heard.
//
// TARVELO_STEP_RECORD: a directory; the long form, which leaves its figures there.
class TestPlayerStep : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void heardTempoChangesLeaveNoClick();

    void partsFollowTheMusic_data();
    void partsFollowTheMusic();
    void partsFollowAfterSeeks_data();
    void partsFollowAfterSeeks();
    void partsFollowAfterPauses_data();
    void partsFollowAfterPauses();
    void partsFollowAfterATempoChange_data();
    void partsFollowAfterATempoChange();

private:
    struct Told
    {
        int part;
        double at;
    };

    using Measurement = std::function<StepOffsets()>;

    SongPtr waveOf(const QString &name, const QList<qint16> &samples);
    QList<qint16> heardTempoChanges(const SongPtr &song);
    double measuredReadAhead(int before, int after);
    StepOffsets wholeSong(int percent);
    StepOffsets seeks(int percent);
    StepOffsets pauses(int percent);
    StepOffsets tempoChange(int before, int after, double shift);
    StepOffsets nextStart(int percent);
    void listenAnew();
    void begin(int percent);
    void seek(double toMs, bool toPart);
    void resume();
    void onPart(int part);
    bool playBeyond(int ms);
    double endMs() const { return step.beatMs(step.beats() - 1); }
    StepOffsets measured(int percent, const QString &how, double shift = 0);
    void check(const Measurement &measure, double bound = boundMs);
    bool isInStep(const StepOffsets &offsets, double bound) const;

    QTemporaryDir directory;
    StepSong step;
    std::unique_ptr<Recorder> recorder;
    std::unique_ptr<Player> player;
    // Parts before this time of the song were not heard from their beginning.
    int wholeFromMs = 0;
    QList<Told> told;
    StepOffsets record;
};

void TestPlayerStep::initTestCase()
{
    if (const char *obstacle = PlayerFixture::obstacle())
        QSKIP(obstacle);
    createSongStores();
    songStores()->slot[SongStoreCacheSlot].reset();
    QVERIFY(step.write(directory.path(), isLong() ? std::nullopt : std::optional(3)));
}

void TestPlayerStep::cleanupTestCase()
{
    if (songStores())
        destroySongStores();
    if (record.isEmpty() || !isLong())
        return;
    const QDir target(recordDirectory());
    QVERIFY(writeTable(target.filePath(u"offset.csv"_qs), record));
    StepOffsets whole;
    std::copy_if(record.cbegin(), record.cend(), std::back_inserter(whole),
                 [](const StepOffset &offset) { return offset.how == u"whole"_qs; });
    QVERIFY(writePicture(target.filePath(u"offset.png"_qs), whole, boundMs));
}

void TestPlayerStep::init()
{
    player = std::make_unique<Player>();
    connect(player.get(), &Player::notifyActivePartChanged, this, &TestPlayerStep::onPart);
    listenAnew();
}

void TestPlayerStep::listenAnew()
{
    player->stop();
    told.clear();
    wholeFromMs = 0;
    recorder = std::make_unique<Recorder>();
    QVERIFY(recorder->start());
}

void TestPlayerStep::cleanup()
{
    player.reset();
    recorder.reset();
}

SongPtr TestPlayerStep::waveOf(const QString &name, const QList<qint16> &samples)
{
    const QString file = directory.filePath(name + u".wav"_qs);
    if (!Samples::writeWave(file, samples))
        return {};
    const SongPtr song(new Song(file, false));
    song->setFrequency(rate);
    song->setChannels(2);
    return song;
}

QList<qint16> TestPlayerStep::heardTempoChanges(const SongPtr &song)
{
    listenAnew();
    player->setSong(song);
    player->setTempo(0);
    player->start();
    if (!playBeyond(1000))
        return {};
    recorder->catchUp();
    const qsizetype from = recorder->samples().size();
    for (const int percent : Tempos::all()) {
        player->setTempo(percent);
        if (!playBeyond(player->getPlaytime() + 700))
            return {};
    }
    recorder->catchUp();
    return recorder->samples().mid(from);
}

// The output's own buffer and everything behind it as well.
void TestPlayerStep::heardTempoChangesLeaveNoClick()
{
    const auto tone = [](double t) { return Waves::sine(440, t); };
    const SongPtr song = waveOf(u"tone"_qs, Waves::render(12, tone, 16384));
    QVERIFY(song);
    double excess = 0;
    for (int attempt = 0; attempt < attempts() && (attempt == 0 || excess > 1.02); ++attempt) {
        const QList<qint16> heard = heardTempoChanges(song);
        QVERIFY(!heard.isEmpty());
        // What the server made of two channels has another loudness.
        const int allowed = qCeil(2 * M_PI * 440 / rate * Waves::peak(heard));
        const int jump = Waves::largestJump(heard, 0, heard.size());
        fprintf(stdout, "FIGURE heard while the tempo changes: largest jump %d of %d\n", jump,
                allowed);
        excess = double(jump) / allowed;
    }
    QVERIFY2(excess <= 1.02, qPrintable(QString::number(excess)));
}

void TestPlayerStep::begin(int percent)
{
    player->setSong(step.song());
    player->setTempo(percent);
}

void TestPlayerStep::onPart(int part)
{
    if (part >= 0 && step.beatMs(part) >= wholeFromMs)
        told.append({part, Recorder::now()});
}

void TestPlayerStep::resume()
{
    QTest::qWait(200);
    wholeFromMs = player->getPlaytime() + seamMs;
    player->resume();
}

bool TestPlayerStep::playBeyond(int ms)
{
    return QTest::qWaitFor([this, ms] { return player->getPlaytime() > ms; }, 280000);
}

// The shift: how much later than usual the parts are told.
StepOffsets TestPlayerStep::measured(int percent, const QString &how, double shift)
{
    recorder->catchUp();
    StepOffsets offsets;
    for (const Told &one : told) {
        const std::optional<double> heard = step.heard(*recorder, one.part, one.at - shift);
        if (heard)
            offsets.append({percent, how, step.beatMs(one.part) / 1000, one.at - *heard});
    }
    record += offsets;
    return offsets;
}

void TestPlayerStep::check(const Measurement &measure, double bound)
{
    bool inStep = false;
    for (int attempt = 0; attempt < attempts() && !inStep; ++attempt) {
        listenAnew();
        inStep = isInStep(measure(), bound);
    }
    QVERIFY(inStep);
}

// At +40 % the stretcher leaves out two sevenths of the song, and strokes with them.
bool TestPlayerStep::isInStep(const StepOffsets &offsets, double bound) const
{
    QList<double> all;
    for (const StepOffset &offset : offsets)
        all.append(offset.ms);
    const auto beyond
        = std::count_if(all.cbegin(), all.cend(), [bound](double ms) { return qAbs(ms) > bound; });
    fprintf(stdout,
            "FIGURE %s, %s: told %s ms after the beat, %d of %d beats found, %d beyond %.0f ms\n",
            offsets.isEmpty() ? "?" : qPrintable(offsets.first().how), QTest::currentDataTag(),
            qPrintable(Tempos::summary(all)), int(offsets.size()), int(told.size()), int(beyond),
            bound);
    return !offsets.isEmpty() && offsets.size() * 3 > told.size() && beyond == 0;
}

void TestPlayerStep::partsFollowTheMusic_data()
{
    Tempos::addRows();
}

void TestPlayerStep::partsFollowTheMusic()
{
    QFETCH(int, percent);
    check([this, percent] { return wholeSong(percent); });
}

// The short form's song is longer than the others need it.
StepOffsets TestPlayerStep::wholeSong(int percent)
{
    const int beats = isLong() ? step.beats() : step.beats() - 4;
    begin(percent);
    player->start();
    const bool done = playBeyond(static_cast<int>(step.beatMs(beats - 1)) + 200);
    return done && told.size() == beats ? measured(percent, u"whole"_qs) : StepOffsets();
}

void TestPlayerStep::partsFollowAfterSeeks_data()
{
    Tempos::addRows(someTempos());
}

void TestPlayerStep::partsFollowAfterSeeks()
{
    QFETCH(int, percent);
    check([this, percent] { return seeks(percent); });
}

StepOffsets TestPlayerStep::seeks(int percent)
{
    const int count = isLong() ? 12 : 2;
    begin(percent);
    for (int i = 0; i < count; ++i) {
        // Spread over the song, and never twice at the same place between two beats.
        const double place = i * 0.618 - std::floor(i * 0.618);
        seek(place * (endMs() - 1500), i % 2 == 0);
        if (!playBeyond(wholeFromMs + 1500))
            return {};
    }
    return measured(percent, u"seeks"_qs);
}

void TestPlayerStep::seek(double toMs, bool toPart)
{
    int part = 0;
    while (step.beatMs(part) < toMs)
        ++part;
    const int ms = toPart ? step.song()->getPositions().at(part).getTime() : qRound(toMs);
    wholeFromMs = ms + seamMs;
    if (toPart)
        player->startFromPart(part);
    else
        player->startFromPlaytime(ms);
}

void TestPlayerStep::partsFollowAfterPauses_data()
{
    Tempos::addRows(someTempos());
}

void TestPlayerStep::partsFollowAfterPauses()
{
    QFETCH(int, percent);
    check([this, percent] { return pauses(percent); });
}

StepOffsets TestPlayerStep::pauses(int percent)
{
    const int count = isLong() ? 12 : 2;
    begin(percent);
    player->start();
    for (int i = 0; i < count; ++i) {
        if (!playBeyond(player->getPlaytime() + 1100 + 37 * i))
            return {};
        player->pause();
        resume();
    }
    return playBeyond(player->getPlaytime() + 1200) ? measured(percent, u"pauses"_qs)
                                                    : StepOffsets();
}

void TestPlayerStep::partsFollowAfterATempoChange_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");

    QTest::newRow("0% to -40%") << 0 << -40;
    if (isLong())
        QTest::newRow("0% to +40%") << 0 << 40;
}

// What was on its way to the ear at the change was counted as if it were of the new tempo; the next
// start counts anew.
void TestPlayerStep::partsFollowAfterATempoChange()
{
    QFETCH(int, before);
    QFETCH(int, after);
    double readAhead = 0;
    const auto isLikely = [&readAhead] { return readAhead > 50 && readAhead < 500; };
    for (int attempt = 0; attempt < attempts() && !isLikely(); ++attempt) {
        listenAnew();
        readAhead = measuredReadAhead(before, after);
    }
    QVERIFY2(isLikely(), qPrintable(QString::number(readAhead)));
    const double shift
        = readAhead * (Tempos::factor(before) - Tempos::factor(after)) / Tempos::factor(after);
    fprintf(stdout, "FIGURE a tempo is heard %.0f ms after it was set: parts shift by %+.0f ms\n",
            readAhead, shift);
    check([=, this] { return tempoChange(before, after, shift); }, boundMs + qAbs(shift));
    check([=, this] { return nextStart(after); });
}

StepOffsets TestPlayerStep::tempoChange(int before, int after, double shift)
{
    begin(before);
    player->start();
    if (!playBeyond(1300))
        return {};
    told.clear();
    player->setTempo(after);
    return playBeyond(player->getPlaytime() + 2000) ? measured(after, u"changed"_qs, shift)
                                                    : StepOffsets();
}

// The tempo changes between two pauses.
StepOffsets TestPlayerStep::nextStart(int percent)
{
    begin(0);
    player->start();
    if (!playBeyond(800))
        return {};
    player->setTempo(percent);
    if (!playBeyond(player->getPlaytime() + 500))
        return {};
    player->pause();
    told.clear();
    resume();
    return playBeyond(player->getPlaytime() + 1200) ? measured(percent, u"resumed"_qs)
                                                    : StepOffsets();
}

// How long after it was set a tempo is heard: a tone that rises evenly rises faster or slower from
// then on.
double TestPlayerStep::measuredReadAhead(int before, int after)
{
    constexpr double window = 0.08;
    const auto rising = [](double t) { return Waves::sine(500 + 25 * t, t); };
    player->setSong(waveOf(u"rising"_qs, Waves::render(8, rising, 16384)));
    player->setTempo(before);
    player->start();
    if (!playBeyond(2500))
        return 0;
    const double changed = Recorder::now();
    player->setTempo(after);
    if (!playBeyond(player->getPlaytime() + 2000))
        return 0;
    recorder->catchUp();
    const auto risesFrom = [&](double from, double to) {
        QList<QPointF> points;
        for (double ms = from; ms < to; ms += 20) {
            const qsizetype frame = recorder->frameAt(changed + ms);
            const auto end = frame + static_cast<qsizetype>(window * rate);
            points.append({ms + window * 500, recorder->frequency(frame, end)});
        }
        return lineThrough(points);
    };
    const Line one = risesFrom(-1500, -150);
    const Line two = risesFrom(600, 1300);
    return (two.height - one.height) / (one.slope - two.slope);
}

TARVELO_TEST_MAIN(TestPlayerStep, QGuiApplication)
#include "tst_playerstep.moc"
