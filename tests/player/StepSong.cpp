#include "StepSong.h"

#include "Band.h"
#include "Library.h"
#include "Waves.h"

#include <QDir>
#include <QtDebug>

using namespace Qt::StringLiterals;

namespace {

// The stroke begins with its loudest moment; a little before it belongs to the piece, so that the
// jump is in it.
constexpr qsizetype before = Waves::rate * 2 / 1000;
constexpr qsizetype strokeFrames = Waves::rate * 14 / 1000;
constexpr double withinMs = 150;
// Below this lie the strokes that were cut, and other sounds than this one.
constexpr double same = 0.93;

// Its beats don't go evenly into the player's clock of 50 ms: every delay comes up.
Demo::Score wholeScore()
{
    for (const Demo::Score &score : Demo::songs())
        if (score.path.endsWith(u"Hammer and Fiddle.mp3"_qs))
            return score;
    return {};
}

Demo::Score shortened(const Demo::Score &whole, int bars)
{
    Demo::Score score = whole;
    score.parts.clear();
    for (const Demo::Part &part : whole.parts) {
        const QStringList chords = part.chords.split(u' ').mid(0, bars);
        score.parts.append(part);
        score.parts.last().chords = chords.join(u' ');
        bars -= static_cast<int>(chords.size());
        if (bars == 0)
            break;
    }
    return score;
}

} // namespace

bool StepSong::write(const QString &directory, std::optional<int> bars)
{
    score = bars ? shortened(wholeScore(), *bars) : wholeScore();
    const QString failure = Demo::writeLibrary(directory, {score});
    if (!failure.isEmpty()) {
        qWarning() << failure;
        return false;
    }
    const std::vector<std::int16_t> samples = Demo::play(score);
    original = Waves::mono(QList<qint16>(samples.cbegin(), samples.cend()), score.channels);
    written.reset(new Song(QDir(directory).filePath(score.path), false));
    written->getPositions().clear();
    for (int beat = 0; beat < beats(); ++beat)
        written->getPositions().insert(beat, Position(qRound(beatMs(beat)), u"Beat"_qs, QString()));
    return written->getFrequency() == Recorder::rate;
}

std::optional<double> StepSong::heard(const Recorder &recorder, int beat, double about) const
{
    const std::optional<qsizetype> frame
        = frameOf(beat, recorder.samples(), recorder.frameAt(about - withinMs),
                  recorder.frameAt(about + withinMs));
    return frame ? std::optional(recorder.timeOf(*frame)) : std::nullopt;
}

std::optional<qsizetype> StepSong::frameOf(int beat, const QList<qint16> &samples, qsizetype from,
                                           qsizetype to) const
{
    const auto stroke = static_cast<qsizetype>(Demo::beatFrame(score, beat));
    const Waves::Match match
        = Waves::find(original.mid(stroke - before, strokeFrames), samples, from, to, same);
    return match.likeness < same ? std::nullopt : std::optional(match.frame + before);
}
