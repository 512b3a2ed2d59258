#include "Recorder.h"

#include "Waves.h"

#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <chrono>

namespace {

double msOfFrames(qsizetype frames)
{
    return static_cast<double>(frames) * 1000.0 / Recorder::rate;
}

} // namespace

Recorder::Recorder()
{
    connect(&process, &QProcess::readyReadStandardOutput, this, &Recorder::take);
}

Recorder::~Recorder()
{
    stop();
}

bool Recorder::start(const QString &monitor)
{
    process.start(QStringLiteral("parec"),
                  {QStringLiteral("-d"), monitor, QStringLiteral("--format=s16le"),
                   QStringLiteral("--rate=44100"), QStringLiteral("--channels=1"),
                   QStringLiteral("--latency-msec=20"), QStringLiteral("--raw")});
    return QTest::qWaitFor([this] { return frames.size() > rate / 10; }, 10000);
}

void Recorder::catchUp()
{
    const double heard = now() + 60;
    [[maybe_unused]] const bool all
        = QTest::qWaitFor([this, heard] { return timeOf(frames.size()) > heard; }, 5000);
}

void Recorder::stop()
{
    process.disconnect(this);
    process.kill();
    process.waitForFinished();
}

double Recorder::now()
{
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

// Chunks come late, never early: the earliest within some seconds tells when these were heard. Not
// the earliest of all: where the machine was busy, frames are lost, and the record is shorter than
// the time.
void Recorder::take()
{
    raw += process.readAllStandardOutput();
    const qsizetype count = raw.size() / 2;
    const auto *values = reinterpret_cast<const qint16 *>(raw.constData());
    frames.append(QList<qint16>(values, values + count));
    raw.remove(0, count * 2);
    const double began = now() - msOfFrames(frames.size());
    const qsizetype second = frames.size() / rate;
    while (begins.size() <= second)
        begins.append(began);
    begins.last() = std::min(begins.last(), began);
}

double Recorder::begin(qsizetype frame) const
{
    if (begins.isEmpty())
        return 0;
    const qsizetype last = begins.size() - 1;
    const qsizetype second = std::clamp(frame / rate, qsizetype(0), last);
    return *std::min_element(begins.cbegin() + std::max(second - 1, qsizetype(0)),
                             begins.cbegin() + std::min(second + 1, last) + 1);
}

double Recorder::timeOf(qsizetype frame) const
{
    return begin(frame) + msOfFrames(frame);
}

qsizetype Recorder::frameAt(double time) const
{
    qsizetype frame = frames.size();
    for (int closer = 0; closer < 3; ++closer)
        frame = static_cast<qsizetype>((time - begin(frame)) * rate / 1000.0);
    return std::clamp(frame, qsizetype(0), frames.size());
}

qsizetype Recorder::firstSound(qsizetype from) const
{
    for (qsizetype i = from; i < frames.size(); ++i)
        if (qAbs(frames.at(i)) > silence)
            return i;
    return -1;
}

qsizetype Recorder::lastSound() const
{
    qsizetype i = frames.size() - 1;
    while (i >= 0 && qAbs(frames.at(i)) <= silence)
        --i;
    return i;
}

double Recorder::longestSilence(qsizetype from, qsizetype to) const
{
    qsizetype longest = 0;
    qsizetype run = 0;
    for (qsizetype i = from; i < to; ++i) {
        run = qAbs(frames.at(i)) > silence ? 0 : run + 1;
        longest = std::max(longest, run);
    }
    return msOfFrames(longest);
}

double Recorder::frequency(qsizetype from, qsizetype to) const
{
    return Waves::frequency(frames, from, to);
}

QList<qsizetype> Recorder::onsets(double silenceMs, qsizetype from) const
{
    QList<qsizetype> found;
    qsizetype lastLoud = -1;
    for (qsizetype i = from; i < frames.size(); ++i) {
        if (qAbs(frames.at(i)) <= silence)
            continue;
        if (lastLoud < 0 || msOfFrames(i - lastLoud) >= silenceMs)
            found.append(i);
        lastLoud = i;
    }
    return found;
}
