#include "fuzz/support/patience.h"

#include "fuzz/support/require.h"

#include <cerrno>
#include <ctime>

namespace fuzz {

void waitFor(sem_t *semaphore, const char *what)
{
    constexpr time_t hungAfterS = 30;
    timespec deadline{};
    ::clock_gettime(CLOCK_REALTIME, &deadline);
    deadline.tv_sec += hungAfterS;
    while (::sem_timedwait(semaphore, &deadline) != 0)
        require(errno == EINTR, what);
}

} // namespace fuzz
