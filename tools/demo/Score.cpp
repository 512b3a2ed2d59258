#include "Score.h"

#include <numeric>

using namespace Qt::StringLiterals;

namespace Demo {

int Part::beats() const
{
    return 4 * static_cast<int>(chords.split(u' ', Qt::SkipEmptyParts).size());
}

int Score::beats() const
{
    return std::accumulate(parts.begin(), parts.end(), 0,
                           [](int sum, const Part &part) { return sum + part.beats(); });
}

QList<int> chordNotes(const QString &chord)
{
    static const QString letters = u"C D EF G A B"_s;
    qsizetype semitone = letters.indexOf(chord.at(0));
    if (chord.contains(u'#'))
        ++semitone;
    if (chord.mid(1).contains(u'b'))
        --semitone;
    const int root = 48 + static_cast<int>((semitone + 12) % 12);
    const int third = chord.endsWith(u'm') ? 3 : 4;
    return {root, root + third, root + 7};
}

} // namespace Demo
