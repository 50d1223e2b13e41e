// Preloaded into every program that the tests run in the emulator.
//
// Qt asks the system whether a child process can be had as a descriptor. The emulator hands that question on
// to this machine's kernel, which says yes, and then refuses to start the child in that way itself. Qt does
// not expect that: no child starts, and what it takes for the number of the child is -1, which to kill() is
// every process of the user. So here the answer to the question is no, as it is on a kernel before 5.4, and
// no signal goes to everybody.

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/types.h>

namespace {

constexpr long waitForDescriptor = 3; // P_PIDFD, which older headers do not have

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

// This machine's own programs, which a test may start too, cannot load this library.
__attribute__((constructor)) void keepFromChildren()
{
    ::unsetenv("LD_PRELOAD");
    ::unsetenv("LD_LIBRARY_PATH");
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) long syscall(long number, ...)
{
    va_list list;
    va_start(list, number);
    long arguments[6];
    for (long &argument : arguments)
        argument = va_arg(list, long);
    va_end(list);

    if (number == SYS_waitid && arguments[0] == waitForDescriptor) {
        errno = EINVAL;
        return -1;
    }
    static const auto next = original<long (*)(long, ...)>("syscall");
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}

__attribute__((visibility("default"))) int kill(pid_t process, int signal) noexcept
{
    if (process == -1) {
        errno = EPERM;
        return -1;
    }
    static const auto next = original<int (*)(pid_t, int)>("kill");
    return next(process, signal);
}
}
