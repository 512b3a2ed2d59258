#pragma once

#include "Song.h"

// Counts how much of the song has been played since its start, and writes the play into the song
// once that is enough: an event with the tempo, and the tempo itself for the next time.
class PlayRegistration
{
public:
    // The threshold is the setting registerPlay, read here and at each reset().
    PlayRegistration();

    // The user starts or stops a song: whatever was played before counts no more. Pause, resume
    // and the jump of a loop don't come here.
    void reset(const SongPtr &song);
    // Song time that has been heard, in microseconds.
    void addPlayed(qint64 uSecs) { eventPlayUSecs += uSecs; }
    // Registers the play in the song and saves it, once, as soon as more whole seconds of song
    // time were played than the threshold. tempo is a factor. A save that fails is not tried
    // again.
    void registerWhenDue(const SongPtr &song, double tempo);

    // Writes a line about the song's play to the log.
    void logState(const char *occasion, const Song &song) const;

private:
    bool isDue() const;
    qint64 playedSeconds() const;

    qint64 eventPlayUSecs = 0;
    bool generatedEvent = false;
    qint64 registerPlaySeconds;
};
