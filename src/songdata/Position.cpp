#include "Position.h"

#include <algorithm>
#include <limits>
#include <tuple>

Position::Position(int startTime, const QString &partName, const QString &stepText)
    : time(startTime)
    , part(partName)
    , steps(stepText)
{ }

void Position::setTime(int ms)
{
    time = ms;
}

void Position::addTime(int ms)
{
    const qint64 sum = qint64{time} + ms;
    time = static_cast<int>(
        std::clamp<qint64>(sum, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// Assigning an equal text would give up the sharing with other copies for nothing.
void Position::setPart(const QString &text)
{
    if (part != text)
        part = text;
}

void Position::setSteps(const QString &text)
{
    if (steps != text)
        steps = text;
}

bool operator<(const Position &a, const Position &b)
{
    return std::tie(a.time, a.part, a.steps) < std::tie(b.time, b.part, b.steps);
}
