#include "TracedChild.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <initializer_list>

#include <elf.h>
#include <fcntl.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#if !defined(__x86_64__)
#error "Tell which registers hold a system call's number, its third argument and its answer."
#endif

namespace {

template <typename Change> void changeRegisters(pid_t process, Change change)
{
    user_regs_struct registers = {};
    iovec area = {&registers, sizeof registers};
    ptrace(PTRACE_GETREGSET, process, NT_PRSTATUS, &area);
    change(registers);
    ptrace(PTRACE_SETREGSET, process, NT_PRSTATUS, &area);
}

bool isOneOf(const TracedChild::Call &call, std::initializer_list<long> numbers)
{
    return std::find(numbers.begin(), numbers.end(), call.number) != numbers.end();
}

unsigned long openFlags(const TracedChild::Call &call)
{
    if (call.number == SYS_openat)
        return call.arguments[2];
    return call.number == SYS_open ? call.arguments[1] : 0;
}

TracedChild::End endOf(int status)
{
    if (!WIFEXITED(status))
        return TracedChild::End::Crashed;
    if (WEXITSTATUS(status) > 1)
        return TracedChild::End::Crashed;
    return WEXITSTATUS(status) == 0 ? TracedChild::End::True : TracedChild::End::False;
}

void leave(bool answer)
{
    _exit(answer ? 0 : 1);
}

} // namespace

bool TracedChild::isPossible()
{
    TracedChild child([] { return [] { return true; }; });
    return child.step() && child.finish() == End::True;
}

TracedChild::TracedChild(const std::function<std::function<bool()>()> &prepare)
    : process(fork())
{
    if (process == 0) {
        const auto work = prepare();
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
            _exit(100);
        raise(SIGSTOP);
        leave(work());
    }
    int status = 0;
    waitpid(process, &status, 0);
    isAlive = WIFSTOPPED(status);
    if (isAlive)
        ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
}

TracedChild::~TracedChild()
{
    kill();
}

bool TracedChild::resume(int request)
{
    if (!isAlive)
        return false;
    int signal = 0;
    int status = 0;
    for (;;) {
        ptrace(static_cast<__ptrace_request>(request), process, nullptr, signal);
        waitpid(process, &status, 0);
        if (!WIFSTOPPED(status)) {
            isAlive = false;
            result = endOf(status);
            return false;
        }
        if (WSTOPSIG(status) == (SIGTRAP | 0x80))
            return true;
        signal = WSTOPSIG(status) == SIGTRAP ? 0 : WSTOPSIG(status);
    }
}

bool TracedChild::step()
{
    if (!resume(PTRACE_SYSCALL))
        return false;
    ++stopCount;
    readCall();
    if (failure != 0 && !current.isEntry) {
        const auto answer = static_cast<unsigned long long>(-failure);
        changeRegisters(process, [&](user_regs_struct &r) { r.rax = answer; });
        failure = 0;
    }
    return true;
}

bool TracedChild::stepTo(int stop)
{
    while (stop-- > 0)
        if (!step())
            return false;
    return true;
}

bool TracedChild::stepToCall(const std::function<bool(const Call &)> &isMeant, int count)
{
    while (step()) {
        if (current.isEntry && isMeant(current) && --count == 0)
            return true;
    }
    return false;
}

void TracedChild::readCall()
{
    __ptrace_syscall_info info = {};
    ptrace(static_cast<__ptrace_request>(PTRACE_GET_SYSCALL_INFO), process, sizeof info, &info);
    current.isEntry = info.op == PTRACE_SYSCALL_INFO_ENTRY;
    // The exit tells no number: it is the one of the entry before.
    if (!current.isEntry)
        return;
    current.number = static_cast<long>(info.entry.nr);
    std::copy_n(info.entry.args, 6, current.arguments);
}

QString TracedChild::place() const
{
    return QStringLiteral("stop %1 (%2 call %3): ")
        .arg(stopCount)
        .arg(current.isEntry ? u"before" : u"after")
        .arg(current.number);
}

void TracedChild::failCall(int error)
{
    failure = error;
    changeRegisters(process, [](user_regs_struct &r) { r.orig_rax = ~0ULL; });
}

void TracedChild::halveCall()
{
    changeRegisters(process, [](user_regs_struct &r) { r.rdx /= 2; });
}

void TracedChild::kill()
{
    if (!isAlive)
        return;
    ::kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    isAlive = false;
    result = End::Killed;
}

TracedChild::End TracedChild::finish()
{
    while (failure != 0 && step()) { }
    while (resume(PTRACE_CONT)) { }
    return result;
}

TracedChild::End runInChild(const std::function<bool()> &work)
{
    const pid_t process = fork();
    if (process == 0)
        leave(work());
    int status = 0;
    waitpid(process, &status, 0);
    return endOf(status);
}

bool Calls::isWrite(const TracedChild::Call &call)
{
    return isOneOf(call, {SYS_write, SYS_pwrite64});
}

bool Calls::needsRoom(const TracedChild::Call &call)
{
    return isWrite(call) || (openFlags(call) & O_CREAT) != 0
           || isOneOf(call,
                      {SYS_writev, SYS_pwritev, SYS_copy_file_range, SYS_sendfile, SYS_fallocate,
                       SYS_fsetxattr, SYS_setxattr, SYS_link, SYS_linkat, SYS_mkdir, SYS_mkdirat});
}

bool Calls::isSync(const TracedChild::Call &call)
{
    return isOneOf(call, {SYS_fsync, SYS_fdatasync, SYS_sync_file_range});
}

bool Calls::changesFiles(const TracedChild::Call &call)
{
    return needsRoom(call) || (openFlags(call) & (O_WRONLY | O_RDWR)) != 0
           || isOneOf(call, {SYS_ftruncate, SYS_truncate, SYS_rename, SYS_renameat, SYS_renameat2,
                             SYS_unlink, SYS_unlinkat, SYS_rmdir, SYS_chmod, SYS_fchmod,
                             SYS_fchmodat, SYS_chown, SYS_fchown, SYS_fchownat, SYS_utimensat,
                             SYS_fremovexattr, SYS_removexattr});
}

bool Calls::isAboutFiles(const TracedChild::Call &call)
{
    return changesFiles(call) || isSync(call)
           || isOneOf(call,
                      {SYS_open,     SYS_openat,   SYS_read,      SYS_pread64,    SYS_lseek,
                       SYS_stat,     SYS_lstat,    SYS_fstat,     SYS_newfstatat, SYS_statx,
                       SYS_statfs,   SYS_fstatfs,  SYS_access,    SYS_faccessat,  SYS_faccessat2,
                       SYS_readlink, SYS_getxattr, SYS_fgetxattr, SYS_flistxattr, SYS_listxattr,
                       SYS_flock,    SYS_fcntl,    SYS_ioctl});
}
