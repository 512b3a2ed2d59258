#include "ProcessUsage.h"

#include "Bench.h"

#include <QFile>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

double processorMs(qint64 pid)
{
    clockid_t clock{};
    timespec time{};
    Bench::check(clock_getcpuclockid(static_cast<pid_t>(pid), &clock) == 0
                     && clock_gettime(clock, &time) == 0,
                 "The process has no clock.");
    return Bench::milliseconds(time);
}

} // namespace

double ProcessUsage::processorPercent(qint64 pid, const std::function<void()> &wait)
{
    const double before = processorMs(pid);
    const double ms = Bench::once(wait);
    return (processorMs(pid) - before) * 100 / ms;
}

double ProcessUsage::kilobytes(qint64 pid, const QByteArray &field)
{
    QFile file(u"/proc/%1/status"_s.arg(pid));
    Bench::check(file.open(QIODevice::ReadOnly), "The process has no status.");
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith(field + ':'))
            return line.mid(field.size() + 1).simplified().split(' ').constFirst().toDouble();
    }
    qFatal("The process has no size of this name.");
}
