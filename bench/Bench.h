#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QtDebug>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <limits>

// What every benchmark needs: sizes, times and the lines it prints.
namespace Bench {

// How many things to measure with: TARVELO_BENCH_COUNT, or usual.
inline int count(int usual)
{
    const int wanted = qEnvironmentVariableIntValue("TARVELO_BENCH_COUNT");
    return wanted > 0 ? wanted : usual;
}

// What can't be measured ends the program.
inline void check(bool done, const char *what)
{
    if (!done)
        qFatal("%s", what);
}

inline double milliseconds(const timespec &time)
{
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

// The shortest of some runs, in milliseconds: what the work takes when nothing disturbs it.
template <typename Work> double best(int rounds, Work work)
{
    double shortest = std::numeric_limits<double>::max();
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        shortest = std::min(shortest, static_cast<double>(timer.nsecsElapsed()) / 1e6);
    }
    return shortest;
}

// One run, in milliseconds.
template <typename Work> double once(Work work)
{
    return best(1, work);
}

// One run, in milliseconds that a processor worked on this thread: of a piece of work that waits
// for nothing, on a machine that has other work too.
template <typename Work> double onceOnProcessor(Work work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return milliseconds(time);
    };
    const double begin = now();
    work();
    return now() - begin;
}

// The middle one of some values, which are not empty: what the work takes as a rule.
inline double median(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at(values.size() / 2);
}

// What 95 of 100 of the values, which are not empty, don't exceed: how long somebody waits at
// worst.
inline double percentile95(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return values.at((values.size() * 95 + 99) / 100 - 1);
}

// One line: name and value.
inline void report(const char *name, double value)
{
    std::printf("%s %.3f\n", name, value);
}

} // namespace Bench
