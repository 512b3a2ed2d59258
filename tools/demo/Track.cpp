#include "Track.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace Demo {

namespace {

constexpr std::size_t waveSize = 2048;
using Wave = std::array<float, waveSize>;

// One turn of a tone whose overtones fall off as given.
Wave makeWave(std::initializer_list<double> overtones)
{
    Wave wave{};
    for (std::size_t i = 0; i < waveSize; ++i) {
        const double phase
            = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(waveSize);
        double sum = 0;
        int order = 1;
        for (double strength : overtones)
            sum += strength * std::sin(phase * order++);
        wave[i] = static_cast<float>(sum);
    }
    return wave;
}

float look(const Wave &wave, double phase)
{
    return wave[static_cast<std::size_t>(phase * waveSize) % waveSize];
}

float seconds(std::size_t sample, int rate)
{
    return static_cast<float>(sample) / static_cast<float>(rate);
}

} // namespace

std::uint32_t Dice::next()
{
    state ^= state << 13U;
    state ^= state >> 17U;
    state ^= state << 5U;
    return state;
}

int Dice::roll(int sides)
{
    return static_cast<int>((next() >> 8U) % static_cast<std::uint32_t>(sides));
}

float Dice::noise()
{
    return static_cast<float>(next() >> 8U) / static_cast<float>(1U << 23U) - 1.0F;
}

Track::Track(int hertz, int channelCount, std::size_t frameCount)
    : rate(hertz)
    , channels(channelCount)
    , frames(frameCount)
    , mix(frameCount * static_cast<std::size_t>(channelCount))
{ }

double Track::frequency(double pitch) const
{
    return 440.0 * std::exp2((pitch - 69.0) / 12.0) / rate;
}

std::vector<float> Track::silence(double length) const
{
    return std::vector<float>(static_cast<std::size_t>(length * rate));
}

// Karplus and Strong: a burst of noise that runs round a loop as long as one turn of the tone.
void Track::pluck(std::size_t at, double pitch, std::size_t length, float brightness, Place place)
{
    const std::size_t turn = static_cast<std::size_t>(std::lround(1.0 / frequency(pitch)));
    Dice dice(static_cast<std::uint32_t>(pitch * 100));
    std::vector<float> loop(turn);
    float smooth = 0;
    for (float &value : loop) {
        smooth += (0.2F + 0.8F * brightness) * (dice.noise() - smooth);
        value = smooth;
    }
    std::vector<float> sound(length);
    const float damping = 0.994F + 0.004F * brightness;
    const float release = static_cast<float>(rate) * 0.02F;
    for (std::size_t i = 0; i < length; ++i) {
        float &value = loop[i % turn];
        sound[i] = value * std::min(1.0F, static_cast<float>(length - i) / release);
        value = damping * 0.5F * (value + loop[(i + 1) % turn]);
    }
    add(at, sound, place);
}

void Track::bow(std::size_t at, double pitch, std::size_t length, Place place)
{
    static const Wave wave = makeWave({1.0, 0.55, 0.38, 0.22, 0.15, 0.09, 0.05});
    const double step = frequency(pitch);
    std::vector<float> sound(length);
    double phase = 0;
    for (std::size_t i = 0; i < length; ++i) {
        const float time = seconds(i, rate);
        const float left = seconds(length - i, rate);
        const float vibrato = 0.004F * std::min(1.0F, 3 * time) * std::sin(36.0F * time);
        phase += step * (1.0 + static_cast<double>(vibrato));
        sound[i] = 0.4F * look(wave, phase) * std::min({1.0F, time / 0.03F, left / 0.05F});
    }
    add(at, sound, place);
}

void Track::bass(std::size_t at, double pitch, std::size_t length, Place place)
{
    static const Wave wave = makeWave({1.0, 0.5, 0.2, 0.08});
    const double step = frequency(pitch);
    std::vector<float> sound(length);
    double phase = 0;
    for (std::size_t i = 0; i < length; ++i) {
        phase += step;
        const float time = seconds(i, rate);
        const float left = seconds(length - i, rate);
        sound[i] = 0.6F * look(wave, phase) * std::exp(-2.5F * time)
                   * std::min({1.0F, time / 0.002F, left / 0.02F});
    }
    add(at, sound, place);
}

void Track::kick(std::size_t at, Place place)
{
    std::vector<float> sound = silence(0.16);
    Dice dice(1);
    float phase = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float time = seconds(i, rate);
        phase += 2 * std::numbers::pi_v<float> * (48 + 110 * std::exp(-45 * time))
                 / static_cast<float>(rate);
        sound[i]
            = std::cos(phase) * std::exp(-22 * time) + 0.9F * dice.noise() * std::exp(-700 * time);
    }
    add(at, sound, place);
}

void Track::snare(std::size_t at, Place place)
{
    std::vector<float> sound = silence(0.14);
    Dice dice(2);
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float time = seconds(i, rate);
        sound[i] = 0.7F * dice.noise() * std::exp(-32 * time)
                   + 0.4F * std::sin(1150 * time) * std::exp(-40 * time);
    }
    add(at, sound, place);
}

void Track::hat(std::size_t at, Place place)
{
    std::vector<float> sound = silence(0.05);
    Dice dice(3);
    float before = 0;
    for (std::size_t i = 0; i < sound.size(); ++i) {
        const float value = dice.noise();
        sound[i] = 0.6F * (value - before) * std::exp(-90 * seconds(i, rate));
        before = value;
    }
    add(at, sound, place);
}

void Track::add(std::size_t at, const std::vector<float> &sound, Place place)
{
    if (at >= frames)
        return;
    const std::size_t length = std::min(sound.size(), frames - at);
    if (channels == 1) {
        for (std::size_t i = 0; i < length; ++i)
            mix[at + i] += place.gain * sound[i];
        return;
    }
    const float left = place.gain * std::min(1.0F, 1.0F - place.pan);
    const float right = place.gain * std::min(1.0F, 1.0F + place.pan);
    for (std::size_t i = 0; i < length; ++i) {
        mix[2 * (at + i)] += left * sound[i];
        mix[2 * (at + i) + 1] += right * sound[i];
    }
}

std::vector<std::int16_t> Track::samples(float peak) const
{
    float loudest = 1e-6F;
    for (float value : mix)
        loudest = std::max(loudest, std::abs(value));
    // Softly bent at the top, so that the drums don't leave the strings behind.
    constexpr float drive = 2.0F;
    const float scale = peak * 32767.0F / std::tanh(drive);
    std::vector<std::int16_t> result(mix.size());
    std::transform(mix.begin(), mix.end(), result.begin(), [=](float value) {
        return static_cast<std::int16_t>(std::lround(scale * std::tanh(drive * value / loudest)));
    });
    return result;
}

} // namespace Demo
