#pragma once

#include <QByteArray>

#include <functional>

// What a running process takes of the machine.
namespace ProcessUsage {

// Percent of one processor that it works, all its threads together, while wait() runs.
double processorPercent(qint64 pid, const std::function<void()> &wait);

// A size in kilobytes, such as that of "VmRSS", what is in memory now, or "VmHWM", the most that
// ever was.
double kilobytes(qint64 pid, const QByteArray &field);

} // namespace ProcessUsage
