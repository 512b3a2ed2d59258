#pragma once

#include <csignal>
#include <sys/resource.h>

// While it lives, this process can write no file beyond so many bytes, as if the disk were full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
        : handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        const rlimit little{bytes, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &little);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    void (*handler)(int);
    rlimit before{};
};
