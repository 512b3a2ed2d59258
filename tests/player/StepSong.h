#pragma once

#include "Recorder.h"
#include "Score.h"

#include <Song.h>

#include <optional>

// A demo song as an mp3, with a part at each of its beats, and the moments at which a listener
// hears these: the drum's stroke is sought in the record.
class StepSong
{
public:
    // As many bars as asked for, or the whole song. Needs the song store chain. False, with a
    // warning in the test's output, when it can't be written.
    bool write(const QString &directory, std::optional<int> bars);

    const SongPtr &song() const { return written; }
    int beats() const { return score.beats(); }
    // Milliseconds of the song.
    double beatMs(int beat) const { return score.beatMs(beat); }

    // The moment, on the recorder's clock, at which the record first reaches the beat, not more
    // than 150 ms from `about`. None when the stroke isn't there whole: to play faster, the
    // stretcher leaves out pieces of the song.
    std::optional<double> heard(const Recorder &recorder, int beat, double about) const;
    // The same for samples: the first of the stroke, which is sought in [from, to).
    std::optional<qsizetype> frameOf(int beat, const QList<qint16> &samples, qsizetype from,
                                     qsizetype to) const;

private:
    Demo::Score score;
    QList<qint16> original;
    SongPtr written;
};
