#pragma once

#include <QList>
#include <QString>

// The demo songs as they are written down: all invented, all computed. Nothing here is a file.
namespace Demo {

// Who plays in a part.
enum class Texture { Count, Verse, Chorus, Break, Bridge, Ending };

struct Part
{
    QString name;
    Texture texture = Texture::Verse;
    // One chord a bar of four beats, such as "G Em C D".
    QString chords;
    // One figure a line, each with its beats in brackets at the end: "2 Triple (8)".
    QString steps;

    int beats() const;
};

// Counts into a part, one number a beat; the last number is the part's first beat.
struct CountIn
{
    int part = 0;
    int from = 8;
    int to = 0;
};

struct Score
{
    // Below the library's directory, with "/".
    QString path;
    QString title;
    QString artist;
    QString album;
    QString genre;
    QString comment;
    QString choreographer;
    QString cueOwner;
    QString level;
    int year = 0;
    int track = 0;
    int stars = 0;

    int bpm = 120;
    // Silence before the first beat, in milliseconds.
    int firstBeatMs = 500;
    // Sample rate in Hz, 1 or 2 channels.
    int rate = 44100;
    int channels = 2;
    // How late the second half of a beat comes, in beats: 0 is straight, 0.1 swings.
    double swing = 0;
    quint32 seed = 1;
    // In the order in which they are played.
    QList<Part> parts = {};
    QList<CountIn> countIns = {};

    // Beats of all parts together.
    int beats() const;
    // Milliseconds from the start of the song to beat n, counted from 0.
    double beatMs(int beat) const { return firstBeatMs + beat * 60000.0 / bpm; }
};

// All demo songs; the same list at every call.
QList<Score> songs();

// A chord name's notes as MIDI numbers between 48 and 59, root first. Triads only: "A", "F#m".
QList<int> chordNotes(const QString &chord);

} // namespace Demo
