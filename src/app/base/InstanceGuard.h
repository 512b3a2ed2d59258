#pragma once

#include <QSharedMemory>
#include <QSystemSemaphore>

// Lets one instance of the program run at a time. The guard holds as long as this object lives;
// a killed instance leaves nothing behind that would keep the next one from starting.
class InstanceGuard
{
public:
    InstanceGuard();

    // True when this process is now the one instance, false when another one lives. Blocks for as
    // long as another starting process is deciding the same.
    bool acquire();

private:
    bool claimMemory();

    // The semaphore serialises the step between looking for the memory and making it.
    QSystemSemaphore semaphore;
    QSharedMemory memory;
};
