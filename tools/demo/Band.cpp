#include "Band.h"

#include "Track.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Demo {

namespace {

constexpr float peak = 0.6F; // -4.4 dBFS: room for what the encoder adds
constexpr double tailSeconds = 2.5;

// One bar: four beats over one chord.
struct Bar
{
    const Part &part;
    int index = 0;
    int firstBeat = 0;
    QList<int> chord;
    bool last = false;
};

class Band
{
public:
    explicit Band(const Score &played)
        : score(played)
        , track(played.rate, played.channels,
                frame(played.beats()) + static_cast<std::size_t>(tailSeconds * played.rate))
    { }

    std::vector<std::int16_t> play();

private:
    std::size_t frame(double beat) const;
    std::size_t length(double beats) const;
    double swung(int eighth) const;

    void playPart(const Part &part, int firstBeat, bool lastPart);
    void playBar(const Bar &bar);
    void drums(const Bar &bar);
    void rhythm(const Bar &bar);
    void roll(const Bar &bar);
    void pad(const Bar &bar);
    void melody(const Part &part, int firstBeat);
    void sing(const Bar &bar, double from, double beats, int note);
    void lastChord(const Bar &bar);

    const Score &score;
    Track track;
};

// A note near `from` that goes with the chord.
int nearest(const QList<int> &chord, int from)
{
    int best = chord.at(0) + 12;
    for (int octave : {0, 12, 24, 36})
        for (int note : chord)
            if (std::abs(note + octave - from) < std::abs(best - from))
                best = note + octave;
    return best;
}

// The five notes of the song's scale, near `from`, `steps` away.
int walk(int root, int from, int steps)
{
    static constexpr std::array<int, 5> scale{0, 2, 4, 7, 9};
    const auto inScale = [root](int note) {
        const int degree = ((note - root) % 12 + 12) % 12;
        return std::find(scale.begin(), scale.end(), degree) != scale.end();
    };
    const int direction = steps < 0 ? -1 : 1;
    int note = from;
    for (int left = std::abs(steps); left > 0; --left) {
        note += direction;
        while (!inScale(note))
            note += direction;
    }
    return std::clamp(note, root + 7, root + 31);
}

std::size_t Band::frame(double beat) const
{
    const double seconds = score.firstBeatMs / 1000.0 + beat * 60.0 / score.bpm;
    return static_cast<std::size_t>(std::lround(seconds * score.rate));
}

std::size_t Band::length(double beats) const
{
    return static_cast<std::size_t>(beats * 60.0 / score.bpm * score.rate);
}

// Where an eighth of the bar lies, in beats.
double Band::swung(int eighth) const
{
    return eighth / 2.0 + (eighth % 2 == 1 ? score.swing : 0.0);
}

std::vector<std::int16_t> Band::play()
{
    int beat = 0;
    for (qsizetype i = 0; i < score.parts.size(); ++i) {
        playPart(score.parts.at(i), beat, i == score.parts.size() - 1);
        beat += score.parts.at(i).beats();
    }
    return track.samples(peak);
}

void Band::playPart(const Part &part, int firstBeat, bool lastPart)
{
    const QStringList chords = part.chords.split(u' ', Qt::SkipEmptyParts);
    for (int i = 0; i < chords.size(); ++i) {
        const bool last = lastPart && i == chords.size() - 1;
        playBar({part, i, firstBeat + 4 * i, chordNotes(chords.at(i)), last});
    }
    if (part.texture != Texture::Count)
        melody(part, firstBeat);
}

void Band::playBar(const Bar &bar)
{
    drums(bar);
    if (bar.last) {
        lastChord(bar);
        return;
    }
    rhythm(bar);
    if (bar.part.texture == Texture::Break || bar.part.texture == Texture::Chorus)
        roll(bar);
    if (bar.part.texture == Texture::Bridge)
        pad(bar);
}

void Band::drums(const Bar &bar)
{
    const bool sparse = bar.part.texture == Texture::Bridge || bar.part.texture == Texture::Count;
    for (int beat = 0; beat < 4; ++beat) {
        track.kick(frame(bar.firstBeat + beat), {0.6F, 0});
        if (bar.last)
            continue;
        if (beat % 2 == 1 && !sparse)
            track.snare(frame(bar.firstBeat + beat), {0.32F, 0.1F});
        track.hat(frame(bar.firstBeat + swung(2 * beat + 1)), {sparse ? 0.16F : 0.24F, -0.3F});
    }
}

// Bass on one and three, root and fifth; the chord on two and four.
void Band::rhythm(const Bar &bar)
{
    track.bass(frame(bar.firstBeat), bar.chord.at(0) - 12, length(1.8), {0.6F, 0});
    track.bass(frame(bar.firstBeat + 2), bar.chord.at(2) - 24, length(1.8), {0.55F, 0});
    for (int beat : {1, 3})
        for (int note : bar.chord)
            track.pluck(frame(bar.firstBeat + beat), note + 12, length(0.6), 0.45F, {0.26F, 0.4F});
}

// The banjo: eight notes a bar over the chord.
void Band::roll(const Bar &bar)
{
    static constexpr std::array<int, 8> forward{0, 1, 2, 3, 1, 2, 3, 2};
    const bool leads = bar.part.texture == Texture::Break;
    for (int i = 0; i < 8; ++i) {
        const int string = forward[static_cast<std::size_t>(i)];
        const int note = string == 3 ? bar.chord.at(0) + 24 : bar.chord.at(string) + 12;
        track.pluck(frame(bar.firstBeat + swung(i)), note, length(0.75), 0.95F,
                    {leads ? 0.42F : 0.2F, -0.4F});
    }
}

void Band::pad(const Bar &bar)
{
    for (int note : bar.chord)
        track.bow(frame(bar.firstBeat), note + 12, length(3.95),
                  {0.09F, note % 2 == 0 ? 0.5F : -0.5F});
}

// A phrase of four bars, its motif in the first and third, home in the last.
void Band::melody(const Part &part, int firstBeat)
{
    static const QList<QList<int>> rhythms{{2, 2, 2, 2},    {3, 1, 2, 2}, {2, 2, 4},
                                           {1, 1, 2, 2, 2}, {4, 2, 2},    {2, 1, 1, 4}};
    const QStringList chords = part.chords.split(u' ', Qt::SkipEmptyParts);
    const int root = chordNotes(score.parts.constFirst().chords.section(u' ', 0, 0)).at(0);
    const quint32 motifSeed = score.seed + 97U * static_cast<quint32>(part.texture);
    int note = root + 16;
    for (int i = 0; i < chords.size(); ++i) {
        Dice dice(motifSeed + static_cast<quint32>(i % 4 == 2 ? 0 : i % 4));
        const Bar bar{part, i, firstBeat + 4 * i, chordNotes(chords.at(i))};
        const QList<int> rhythm = i % 4 == 3 ? QList<int>{2, 2, 4} : rhythms.at(dice.roll(6));
        int eighth = 0;
        for (int eighths : rhythm) {
            const bool strong = eighth % 4 == 0;
            note = walk(root, note, dice.roll(5) - 2);
            if (strong)
                note = nearest(bar.chord, note);
            sing(bar, swung(eighth), eighths / 2.0, note);
            eighth += eighths;
        }
    }
}

// Who has the tune: a mandolin in the verse, the fiddle with a second voice in the chorus.
void Band::sing(const Bar &bar, double from, double beats, int note)
{
    const std::size_t at = frame(bar.firstBeat + from);
    switch (bar.part.texture) {
    case Texture::Verse:
        track.pluck(at, note + 12, length(beats * 0.95), 0.7F, {0.5F, 0.15F});
        break;
    case Texture::Chorus:
        track.bow(at, note + 12, length(beats * 0.95), {0.26F, 0.2F});
        track.bow(at, nearest(bar.chord, note - 5) + 12, length(beats * 0.95), {0.15F, -0.25F});
        break;
    case Texture::Bridge:
        track.bow(at, note, length(beats * 0.98), {0.24F, 0});
        break;
    case Texture::Ending:
        track.bow(at, note + 12, length(beats * 0.95), {0.24F, 0.2F});
        break;
    case Texture::Count:
    case Texture::Break:
        break;
    }
}

void Band::lastChord(const Bar &bar)
{
    track.bass(frame(bar.firstBeat), bar.chord.at(0) - 12, length(4), {0.6F, 0});
    for (int note : bar.chord)
        for (int octave : {12, 24})
            track.pluck(frame(bar.firstBeat), note + octave, length(5), 0.8F, {0.3F, 0});
}

} // namespace

std::vector<std::int16_t> play(const Score &score)
{
    return Band(score).play();
}

std::size_t beatFrame(const Score &score, int beat)
{
    return static_cast<std::size_t>(std::lround(score.beatMs(beat) / 1000.0 * score.rate));
}

} // namespace Demo
