#pragma once

#include <QtGlobal>

#include <vector>

class QAudioBuffer;

// Between 16-bit samples and the floats that the stretcher works on. The samples keep their size:
// -32768.0 to 32767.0.
namespace PcmSamples {

// All samples of all channels, of a buffer that holds 16-bit ones.
std::vector<float> floatsOf(const QAudioBuffer &buffer);

// Cut towards zero, never clipped: a value beyond the range wraps around.
qint16 sampleOf(float value);
std::vector<qint16> samplesOf(const std::vector<float> &values);

} // namespace PcmSamples
