#include "InstanceGuard.h"

#include <QtDebug>

InstanceGuard::InstanceGuard()
    : semaphore(QStringLiteral("Tarvelo Unique ID #1"), 1, QSystemSemaphore::Open)
    , memory(QStringLiteral("Tarvelo Unique ID #2"))
{ }

bool InstanceGuard::acquire()
{
    if (!semaphore.acquire())
        qWarning() << "No start semaphore:" << semaphore.errorString();
    const bool claimed = claimMemory();
    semaphore.release();
    return claimed;
}

bool InstanceGuard::claimMemory()
{
    // On Unix the memory outlives a killed process. Leaving it as its last user removes it, so one
    // attach and detach clears an orphan and does nothing to a living instance.
    if (memory.attach())
        memory.detach();
    if (memory.attach(QSharedMemory::ReadWrite)) {
        memory.detach();
        return false;
    }
    // If there is memory that can be neither attached nor made, it is another user's of this
    // machine, whose instance is no concern of ours.
    if (!memory.create(1, QSharedMemory::ReadWrite))
        qWarning() << "No instance guard:" << memory.errorString();
    return true;
}
