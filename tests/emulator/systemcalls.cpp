// Preloaded into each program that the tests run in the emulator.
//
// Qt checks whether the kernel supports process descriptors. The emulator forwards that check to the kernel
// of this machine, which supports them, but the emulator cannot start a child with a descriptor. Qt does not
// handle this case: no child starts, and Qt uses -1 as its process id, which kill() interprets as all
// processes of the user. Therefore this library makes the check fail, as on a kernel before 5.4, and blocks
// kill(-1).

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdlib>

#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/types.h>

namespace {

constexpr long waitForDescriptor = 3; // P_PIDFD, missing in older headers

template<typename Function>
Function original(const char *name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}

// A test can also start programs of this machine, which cannot load this library.
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
