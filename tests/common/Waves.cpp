#include "Waves.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <vector>

namespace Waves {

namespace {

// Never 0: silence is like nothing.
double squares(std::vector<float>::const_iterator from, qsizetype count)
{
    return 1.0 + double(std::inner_product(from, from + count, from, 0.0F));
}

} // namespace

double sine(double hertz, double t)
{
    return std::sin(2.0 * std::numbers::pi * hertz * t);
}

QList<qint16> mono(const QList<qint16> &samples, int channels)
{
    QList<qint16> mixed;
    mixed.reserve(samples.size() / channels);
    for (qsizetype i = 0; i + channels <= samples.size(); i += channels) {
        const auto first = samples.cbegin() + i;
        mixed.append(static_cast<qint16>(std::accumulate(first, first + channels, 0) / channels));
    }
    return mixed;
}

int peak(const QList<qint16> &samples)
{
    int loudest = 0;
    for (const qint16 sample : samples)
        loudest = std::max(loudest, std::abs(int(sample)));
    return loudest;
}

double frequency(const QList<qint16> &samples, qsizetype from, qsizetype to)
{
    double first = -1;
    double last = -1;
    int periods = -1;
    for (qsizetype i = from + 1; i < to; ++i) {
        const double before = samples.at(i - 1);
        const double after = samples.at(i);
        if (before >= 0 || after < 0)
            continue;
        last = static_cast<double>(i) - after / (after - before);
        if (++periods == 0)
            first = last;
    }
    return periods > 0 ? periods * double(rate) / (last - first) : 0;
}

double centsFrom(double hertz, double measured)
{
    return 1200.0 * std::log2(measured / hertz);
}

int largestJump(const QList<qint16> &samples, qsizetype from, qsizetype to)
{
    int largest = 0;
    for (qsizetype i = from + 1; i < to; ++i)
        largest = std::max(largest, std::abs(samples.at(i) - samples.at(i - 1)));
    return largest;
}

Match find(const QList<qint16> &piece, const QList<qint16> &samples, qsizetype from, qsizetype to,
           double likeness)
{
    const qsizetype length = piece.size();
    from = std::max(from, qsizetype(0));
    to = std::min(to, samples.size() - length + 1);
    const std::vector<float> wanted(piece.cbegin(), piece.cend());
    const double wantedPower = squares(wanted.cbegin(), length);
    Match best;
    if (from >= to)
        return best;
    const std::vector<float> heard(samples.cbegin() + from, samples.cbegin() + to + length - 1);
    for (qsizetype i = 0; i < to - from; ++i) {
        const auto here = heard.cbegin() + i;
        const double common = std::inner_product(here, here + length, wanted.cbegin(), 0.0F);
        const double present = common / std::sqrt(wantedPower * squares(here, length));
        if (present > best.likeness)
            best = {from + i, present};
        else if (best.likeness >= likeness)
            break;
    }
    return best;
}

} // namespace Waves
