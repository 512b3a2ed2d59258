#include "PcmSamples.h"

#include <QAudioBuffer>

#include <algorithm>

std::vector<float> PcmSamples::floatsOf(const QAudioBuffer &buffer)
{
    const qint16 *samples = buffer.constData<qint16>();
    return {samples, samples + buffer.sampleCount()};
}

qint16 PcmSamples::sampleOf(float value)
{
    return static_cast<qint16>(static_cast<qint32>(value));
}

std::vector<qint16> PcmSamples::samplesOf(const std::vector<float> &values)
{
    std::vector<qint16> samples(values.size());
    std::transform(values.cbegin(), values.cend(), samples.begin(), &sampleOf);
    return samples;
}
