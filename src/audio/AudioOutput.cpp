#include "AudioOutput.h"

#include "DefaultOutput.h"

#include <QAbstractEventDispatcher>
#include <QAudioFormat>
#include <QAudioSink>
#include <QCoreApplication>
#include <QMediaDevices>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace {

// The server makes some 220 ms of this: sound goes on while the window is busy for 150 ms. The
// default (145 ms) had gaps at 100 ms; more makes a change of tempo audible later.
constexpr qint64 bufferUSecs = 400000;

} // namespace

AudioOutput::AudioOutput(QObject *parent)
    : QObject(parent)
{ }

AudioOutput::~AudioOutput()
{
    if (!sink)
        return;
    disconnect(sink, nullptr, this, nullptr);
    stop();
    delete std::exchange(sink, nullptr);
}

bool AudioOutput::prepare(const QAudioFormat &format)
{
    const QAudioDevice wanted = defaultOutput(device);
    if (sink && !(fits(format) && isPresent() && wanted.id() == device.id()))
        giveUp();
    if (!sink)
        create(wanted, format);
    return sink != nullptr;
}

bool AudioOutput::fits(const QAudioFormat &format) const
{
    const QAudioFormat present = sink->format();
    return present.channelCount() == format.channelCount()
           && present.sampleRate() == format.sampleRate();
}

// To start an output that is gone can block for ever.
bool AudioOutput::isPresent() const
{
    const QList<QAudioDevice> outputs = QMediaDevices::audioOutputs();
    return std::any_of(outputs.cbegin(), outputs.cend(),
                       [this](const QAudioDevice &one) { return one.id() == device.id(); });
}

void AudioOutput::create(const QAudioDevice &wanted, const QAudioFormat &format)
{
    device = wanted;
    if (device.isNull() || !device.isFormatSupported(format))
        return;
    sink = new QAudioSink(device, format, this);
    connect(sink, &QAudioSink::stateChanged, this, &AudioOutput::onStateChanged);
}

// Taking down a sink runs the event loop: not in the middle of a start.
void AudioOutput::giveUp()
{
    if (!sink)
        return;
    disconnect(sink, nullptr, this, nullptr);
    stop();
    std::exchange(sink, nullptr)->deleteLater();
}

bool AudioOutput::start(QIODevice *source)
{
    stop();
    // The sink remembers what the server granted the last time, and asks for that: less each time,
    // until it is too little for a single pull.
    sink->setBufferSize(sink->format().bytesForDuration(bufferUSecs));
    sink->start(source);
    isRunning = sink->state() != QAudio::StoppedState;
    // Not from in here: a source without sound tells at once that it has ended.
    QMetaObject::invokeMethod(this, &AudioOutput::pullAtOnce, Qt::QueuedConnection);
    return isRunning;
}

// Qt's own part of the sink, a child of ours, pulls by a timer of 20 ms and would let the first
// turn go by. A part that pulls in another way has no timer.
void AudioOutput::pullAtOnce()
{
    const QAbstractEventDispatcher *dispatcher = QAbstractEventDispatcher::instance();
    for (QObject *child : children()) {
        const auto timers = dispatcher->registeredTimers(child);
        if (timers.isEmpty())
            continue;
        QTimerEvent turn(timers.constFirst().timerId);
        QCoreApplication::sendEvent(child, &turn);
        return;
    }
}

// Always before a sink goes or starts anew: an active one still has a pull under way.
void AudioOutput::stop()
{
    isRunning = false;
    if (sink && sink->state() != QAudio::StoppedState)
        sink->stop();
}

QAudio::State AudioOutput::state() const
{
    return sink ? sink->state() : QAudio::StoppedState;
}

QAudio::Error AudioOutput::error() const
{
    return sink ? sink->error() : QAudio::NoError;
}

qint64 AudioOutput::processedUSecs() const
{
    return sink ? sink->processedUSecs() : 0;
}

bool AudioOutput::hasPlayedOut() const
{
    return sink && sink->state() == QAudio::IdleState && idleSince.elapsed() >= restMs;
}

bool AudioOutput::isLost() const
{
    return isRunning && (sink->state() == QAudio::StoppedState || !isPresent());
}

void AudioOutput::setVolume(double factor)
{
    if (sink)
        sink->setVolume(factor);
}

void AudioOutput::onStateChanged(QAudio::State state)
{
    if (state == QAudio::IdleState) {
        const auto buffered = std::max(sink->bufferSize() - sink->bytesFree(), qsizetype(0));
        restMs = sink->format().durationForBytes(static_cast<qint32>(buffered)) / 1000;
        idleSince.start();
    }
    Q_EMIT stateChanged(state);
}
