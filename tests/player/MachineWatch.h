#pragma once

#include <QElapsedTimer>
#include <QMutex>

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>
#include <vector>

#include <pthread.h>

// Notices when the machine itself stands still: a virtual one is held back by its host now and
// then, with all its processors, for longer than any sound is kept ready. A thread that goes before
// every other one does nothing but wake up each 5 ms; where that isn't allowed, nothing is noticed.
class MachineWatch
{
public:
    MachineWatch() { clock.start(); }
    ~MachineWatch()
    {
        ended = true;
        thread.join();
    }

    // For how many milliseconds it stood still within the last so many, in pieces of over 20 ms.
    qint64 standstill(qint64 lastMs)
    {
        const QMutexLocker locker(&mutex);
        qint64 sum = 0;
        for (const auto &[at, length] : holds)
            sum += at > clock.elapsed() - lastMs ? length : 0;
        return sum;
    }

private:
    void watch()
    {
        const sched_param first{.sched_priority = sched_get_priority_max(SCHED_FIFO)};
        if (pthread_setschedparam(pthread_self(), SCHED_FIFO, &first) != 0)
            return;
        for (qint64 last = clock.elapsed(); !ended; last = clock.elapsed()) {
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
            const qint64 length = clock.elapsed() - last;
            if (length <= 20)
                continue;
            const QMutexLocker locker(&mutex);
            holds.emplace_back(last + length, length);
        }
    }

    QElapsedTimer clock;
    QMutex mutex;
    std::vector<std::pair<qint64, qint64>> holds; // when they ended, and how long they were
    std::atomic<bool> ended = false;
    std::thread thread{&MachineWatch::watch, this};
};
