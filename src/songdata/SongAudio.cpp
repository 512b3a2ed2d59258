// The decoded audio of a song: taken, analysed, exported.

#include "PcmSamples.h"
#include "Song.h"
#include "SongAudioDataQt.h"
#include "WavFile.h"

#include <QAudioBuffer>
#include <QtDebug>

#include <BPMDetect.h>
#include <SoundTouch.h>

#include <cmath>
#include <stdexcept>
#include <vector>

void Song::decodeAudio()
{
    if (missingFileFlag)
        return;
    qDebug() << "Decode Audio Data";
    format = QAudioFormat();
    format.setSampleFormat(QAudioFormat::Int16);
    format.setChannelCount(channels);
    format.setSampleRate(frequency);
    // Not held here: who releases the audio while the event loop runs ends the wait with it.
    audioData = std::make_shared<SongAudioDataQt>();
    audioData->decode(filename, format);
}

void Song::releaseAudio()
{
    audioData.reset();
}

bool Song::isPlayable() const
{
    // What the stretcher can take.
    constexpr int mostChannels = 16;
    constexpr int highestSampleRate = 192000;
    return !missingFileFlag && frequency > 0 && frequency <= highestSampleRate && channels > 0
           && channels <= mostChannels;
}

int Song::audioBufferCount() const
{
    return audioData->count();
}

std::shared_ptr<QAudioBuffer> Song::audioBuffer(int index) const
{
    return audioData->at(index);
}

int Song::getBpmAuto() const
{
    if (bpmauto == 0 && audioData && channels > 0 && frequency > 0)
        bpmauto = detectBpm();
    return bpmauto;
}

int Song::detectBpm() const
{
    try {
        soundtouch::BPMDetect detector(channels, frequency);
        const int eighth = audioBufferCount() / 8;
        for (int index = eighth * 2; index < eighth * 4; ++index) {
            std::vector<float> samples = PcmSamples::floatsOf(*audioBuffer(index));
            detector.inputSamples(samples.data(), static_cast<int>(samples.size()) / channels);
        }
        return static_cast<int>(std::lround(detector.getBpm()));
    } catch (const std::runtime_error &error) {
        // The detector refuses sample rates below 8 kHz.
        qDebug() << "No BPM for" << filename << error.what();
        return 0;
    }
}

// The stretcher gives back at most four times of what it gets, which is more than it has at any
// tempo that the window offers; what it still holds at the end is not written.
void Song::convert(const QString &target, int tempoPercent, EFileFormat)
{
    if (!audioData || audioBufferCount() == 0 || !isPlayable())
        return;
    soundtouch::SoundTouch stretcher;
    stretcher.setTempo(tempoPercent / 100.0 + 1.0);
    stretcher.setChannels(static_cast<uint>(channels));
    stretcher.setSampleRate(static_cast<uint>(frequency));
    WavFile file(channels, frequency);
    file.open(target);
    std::vector<float> stretched;
    for (int index = 0; index < audioBufferCount(); ++index) {
        const std::vector<float> samples = PcmSamples::floatsOf(*audioBuffer(index));
        const auto frames = static_cast<uint>(samples.size()) / static_cast<uint>(channels);
        stretcher.putSamples(samples.data(), frames);
        stretched.resize(samples.size() * 4);
        const uint received = stretcher.receiveSamples(stretched.data(), frames * 4);
        stretched.resize(std::size_t(received) * static_cast<uint>(channels));
        file.append(PcmSamples::samplesOf(stretched));
    }
}
