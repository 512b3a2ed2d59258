#include "PlayerDevice.h"

#include "PcmSamples.h"
#include "SongAudioData.h"

#include <SoundTouch.h>

#include <algorithm>
#include <type_traits>
#include <utility>
#include <vector>

static_assert(std::is_same_v<soundtouch::SAMPLETYPE, float>, "SoundTouch has to work on floats");

PlayerDevice::PlayerDevice(QObject *parent)
    : QIODevice(parent)
    , stretcher(std::make_shared<soundtouch::SoundTouch>())
{ }

PlayerDevice::~PlayerDevice() = default;

void PlayerDevice::setSong(const SongPtr &newSong, double newTempo)
{
    song = newSong;
    tempo = newTempo;
    totalBytes = readBytes = bufferIndex = 0;
    starving = false;
    pendingSeek.reset();
    stretcher->clear();
    listenTo(decoded());
    if (!song || song->isMissingFile())
        return;
    configureStretcher();
    for (int i = 0; i < decodedCount(); ++i)
        totalBytes += song->audioBuffer(i)->byteCount();
}

void PlayerDevice::configureStretcher()
{
    stretcher->setSetting(SETTING_USE_QUICKSEEK, 1);
    stretcher->setSetting(SETTING_USE_AA_FILTER, 0);
    channels = static_cast<uint>(song->getChannels());
    stretcher->setChannels(channels);
    stretcher->setSampleRate(static_cast<uint>(song->getFrequency()));
    stretcher->setTempo(tempo);
}

void PlayerDevice::setTempo(double newTempo)
{
    tempo = newTempo;
    stretcher->setTempo(tempo);
}

void PlayerDevice::seekToPlaytime(qint64 milliseconds)
{
    const qint64 target = milliseconds * 1000;
    stretcher->clear();
    pendingSeek.reset();
    skipped = 0;
    const SongAudioData *audio = decoded();
    if (!seekTo(target, 0) && audio && audio->isGrowing())
        pendingSeek = target;
}

bool PlayerDevice::seekTo(qint64 target, int from)
{
    for (int i = from; i < decodedCount(); ++i) {
        if (song->audioBuffer(i)->startTime() > target) {
            bufferIndex = i;
            skipped = song->audioBuffer(i)->startTime() - target;
            return true;
        }
    }
    return false;
}

// The stretcher plays pieces at the recorded speed, each from its right place on, so that the
// further into a piece the further it is off: ahead when slow, behind when fast. When slow each
// sound comes twice, the first time late in a piece.
qint64 PlayerDevice::leadUSecs() const
{
    const int rate = song ? song->getFrequency() : 0;
    if (rate <= 0)
        return 0;
    const double piece = stretcher->getSetting(SETTING_NOMINAL_OUTPUT_SEQUENCE) * 1e6 / rate;
    const double atItsEnd = (1.0 / tempo - 1.0) * piece;
    return static_cast<qint64>(atItsEnd * (tempo < 1.0 ? 1.0 - tempo / 2 : 0.5));
}

bool PlayerDevice::hasEnded() const
{
    const SongAudioData *audio = decoded();
    return bufferIndex >= decodedCount() && stretcher->numSamples() == 0
           && !(audio && audio->isGrowing());
}

qint64 PlayerDevice::bytesAvailable() const
{
    return QIODevice::bytesAvailable() + totalBytes - readBytes;
}

qint64 PlayerDevice::readData(char *data, qint64 maxlen)
{
    fillStretcher();
    starving = stretcher->numSamples() == 0;
    return drainStretcher(data, maxlen);
}

qint64 PlayerDevice::writeData(const char *, qint64)
{
    return 0;
}

// Null while the song's audio isn't there: it belongs to the player's current song alone.
SongAudioData *PlayerDevice::decoded() const
{
    return song && !song->isMissingFile() ? song->getAudioData().get() : nullptr;
}

int PlayerDevice::decodedCount() const
{
    const SongAudioData *audio = decoded();
    return audio ? audio->count() : 0;
}

void PlayerDevice::fillStretcher()
{
    while (!pendingSeek && stretcher->numSamples() == 0 && bufferIndex < decodedCount()) {
        feed(*song->audioBuffer(static_cast<int>(bufferIndex)));
        ++bufferIndex;
    }
}

void PlayerDevice::feed(const QAudioBuffer &buffer)
{
    // The song may have been read anew since it was decoded.
    if (buffer.format().channelCount() != static_cast<int>(channels))
        return;
    const std::vector<float> floats = PcmSamples::floatsOf(buffer);
    stretcher->putSamples(floats.data(), static_cast<uint>(floats.size()) / channels);
}

qint64 PlayerDevice::drainStretcher(char *data, qint64 maxlen)
{
    const uint available = stretcher->numSamples();
    if (available == 0)
        return 0;
    const uint frames = std::min(available, static_cast<uint>(maxlen) / channels / 2);
    std::vector<float> floats(std::size_t(frames) * channels);
    const uint received = stretcher->receiveSamples(floats.data(), frames);
    floats.resize(std::size_t(received) * channels);
    std::transform(floats.cbegin(), floats.cend(), reinterpret_cast<qint16 *>(data),
                   &PcmSamples::sampleOf);
    return static_cast<qint64>(floats.size()) * 2;
}

void PlayerDevice::listenTo(const SongAudioData *audio)
{
    for (const QMetaObject::Connection &connection : supply)
        disconnect(connection);
    if (audio)
        supply
            = {connect(audio, &SongAudioData::bufferAdded, this, &PlayerDevice::onBufferAdded),
               connect(audio, &SongAudioData::decodingEnded, this, &PlayerDevice::onDecodingEnded)};
}

void PlayerDevice::onBufferAdded()
{
    if (pendingSeek && decodedCount() > 0 && seekTo(*pendingSeek, decodedCount() - 1))
        pendingSeek.reset();
    if (!pendingSeek)
        wakeReader();
}

void PlayerDevice::onDecodingEnded()
{
    if (std::exchange(pendingSeek, std::nullopt))
        wakeReader();
}

// An output that got nothing has stopped asking.
void PlayerDevice::wakeReader()
{
    if (!starving)
        return;
    starving = false;
    Q_EMIT readyRead();
}
