#include "BareAudio.h"

#include "Bench.h"

#include <Song.h>

#include <QAudioBuffer>
#include <QAudioDecoder>
#include <QEventLoop>
#include <QUrl>

#include <SoundTouch.h>

#include <vector>

namespace {

using Floats = std::vector<float>;

std::vector<Floats> floatsOf(const Song &song)
{
    std::vector<Floats> all;
    for (int i = 0; i < song.audioBufferCount(); ++i) {
        const std::shared_ptr<QAudioBuffer> buffer = song.audioBuffer(i);
        const qint16 *samples = buffer->constData<qint16>();
        all.emplace_back(samples, samples + buffer->sampleCount());
    }
    return all;
}

void configure(soundtouch::SoundTouch &stretcher, const Song &song, double tempo)
{
    stretcher.setSetting(SETTING_USE_QUICKSEEK, 1);
    stretcher.setSetting(SETTING_USE_AA_FILTER, 0);
    stretcher.setChannels(static_cast<uint>(song.getChannels()));
    stretcher.setSampleRate(static_cast<uint>(song.getFrequency()));
    stretcher.setTempo(tempo);
}

} // namespace

// Only the stretcher's own work counts: the samples are floats before it begins and stay floats.
qint64 BareAudio::stretch(const Song &song, double tempo, double &stretchMs)
{
    const std::vector<Floats> buffers = floatsOf(song);
    const auto channels = static_cast<uint>(song.getChannels());
    soundtouch::SoundTouch stretcher;
    configure(stretcher, song, tempo);
    constexpr uint mostFrames = 16384;
    Floats out(std::size_t(mostFrames) * channels);
    qint64 frames = 0;
    stretchMs = Bench::onceOnProcessor([&] {
        for (const Floats &buffer : buffers) {
            stretcher.putSamples(buffer.data(), static_cast<uint>(buffer.size()) / channels);
            while (const uint received = stretcher.receiveSamples(out.data(), mostFrames))
                frames += received;
        }
    });
    return frames;
}

qint64 BareAudio::decode(const QString &file, const QAudioFormat &format)
{
    QAudioDecoder decoder;
    QEventLoop loop;
    qint64 frames = 0;
    QObject::connect(&decoder, &QAudioDecoder::bufferReady, &loop,
                     [&] { frames += decoder.read().frameCount(); });
    QObject::connect(&decoder, &QAudioDecoder::finished, &loop, &QEventLoop::quit);
    QObject::connect(&decoder, qOverload<QAudioDecoder::Error>(&QAudioDecoder::error), &loop,
                     &QEventLoop::quit);
    decoder.setSource(QUrl::fromLocalFile(file));
    decoder.setAudioFormat(format);
    decoder.start();
    loop.exec();
    return frames;
}
