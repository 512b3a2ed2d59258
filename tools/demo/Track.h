#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Demo {

// Random numbers that are the same on every machine.
class Dice
{
public:
    explicit Dice(std::uint32_t seed)
        : state(seed * 2654435761U + 1U)
    { }
    // 0 to sides - 1.
    int roll(int sides);
    // -1 to 1.
    float noise();

private:
    std::uint32_t next();
    std::uint32_t state;
};

// Where a sound lies: 0 to 1 of loudness, -1 (left) to 1 (right).
struct Place
{
    float gain = 1;
    float pan = 0;
};

// Sound being written, and the instruments that write it: each adds a note that begins exactly
// at its first sample. Times are in samples, pitches MIDI numbers. What lies past the end is cut.
class Track
{
public:
    // channelCount is 1 or 2.
    Track(int hertz, int channelCount, std::size_t frameCount);

    // A plucked string (banjo, guitar, mandolin); brightness 0 to 1.
    void pluck(std::size_t at, double pitch, std::size_t length, float brightness, Place place);
    // A bowed one, with a soft attack and some vibrato.
    void bow(std::size_t at, double pitch, std::size_t length, Place place);
    void bass(std::size_t at, double pitch, std::size_t length, Place place);
    // Drums. The kick starts with its loudest moment.
    void kick(std::size_t at, Place place);
    void snare(std::size_t at, Place place);
    void hat(std::size_t at, Place place);

    // Scales the loudest sample to peak (0 to 1) and gives 16-bit samples, channels interleaved.
    std::vector<std::int16_t> samples(float peak) const;

private:
    void add(std::size_t at, const std::vector<float> &sound, Place place);
    std::vector<float> silence(double seconds) const;
    double frequency(double pitch) const;

    int rate;
    int channels;
    std::size_t frames;
    std::vector<float> mix;
};

} // namespace Demo
