// Stands for one start of the program: takes the guard, says so, and holds it until its standard
// input ends. With "hold-semaphore" it stops inside the guarded step instead.

#include "InstanceGuard.h"

#include <QCoreApplication>
#include <QSystemSemaphore>

#include <cstdio>

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc > 1) {
        QSystemSemaphore semaphore(QStringLiteral("Tarvelo Unique ID #1"), 1,
                                   QSystemSemaphore::Open);
        semaphore.acquire();
        std::puts("holding");
        std::fflush(stdout);
        std::getchar();
        return 0;
    }
    InstanceGuard guard;
    const bool acquired = guard.acquire();
    std::puts(acquired ? "acquired" : "refused");
    std::fflush(stdout);
    if (acquired)
        std::getchar();
    return acquired ? 0 : 1;
}
