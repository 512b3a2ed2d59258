#pragma once

#include <QString>

#include <functional>

#include <sys/types.h>

// Work in a process of its own that is stopped before and after each of its system calls: there
// it can be killed, or a call made to fail, or the world be changed under it. Nothing is left to
// chance: the same work has the same stops.
class TracedChild
{
public:
    enum class End { True, False, Killed, Crashed };
    struct Call
    {
        bool isEntry = false;
        long number = -1;
        unsigned long arguments[6] = {};
    };

    // False where processes can't be traced or their registers are unknown.
    static bool isPossible();

    // prepare runs untraced; its answer, the work itself, runs from stop to stop.
    explicit TracedChild(const std::function<std::function<bool()>()> &prepare);
    ~TracedChild();

    // On to the next stop; false when the work has ended.
    bool step();
    // On to this stop, counted from 1; false when the work has ended before.
    bool stepTo(int stop);
    // On to the entry of this call among those of a kind, counted from 1; false as above.
    bool stepToCall(const std::function<bool(const Call &call)> &isMeant, int count);
    const Call &call() const { return current; }

    // For messages: where it stopped last.
    QString place() const;

    // At an entry: the call is not made; it answers this error.
    void failCall(int error);
    // At the entry of a write: it writes half of its bytes.
    void halveCall();
    void kill();
    // Lets it go on to its end, past no more stops.
    End finish();
    End end() const { return result; }

private:
    TracedChild(const TracedChild &) = delete;
    TracedChild &operator=(const TracedChild &) = delete;

    bool resume(int request);
    void readCall();

    pid_t process = -1;
    bool isAlive = false;
    int failure = 0;
    End result = End::Crashed;
    Call current;
    int stopCount = 0;
};

// Runs the work in a process of its own, undisturbed.
TracedChild::End runInChild(const std::function<bool()> &work);

// What a system call does to files.
namespace Calls {
bool isWrite(const TracedChild::Call &call);
// Writes, and whatever else a disk without room refuses.
bool needsRoom(const TracedChild::Call &call);
bool isSync(const TracedChild::Call &call);
// Everything that a read-only file system refuses.
bool changesFiles(const TracedChild::Call &call);
// Everything above, and opening, reading and asking about files.
bool isAboutFiles(const TracedChild::Call &call);
} // namespace Calls
