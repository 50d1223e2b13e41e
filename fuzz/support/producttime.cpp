#include "fuzz/support/producttime.h"

#include "fuzz/support/replace.h"

#include <atomic>
#include <cerrno>
#include <ctime>

#include <sys/syscall.h>
#include <unistd.h>

// The start-up time of this program does not matter. clazy:excludeall=non-pod-global-static

namespace fuzz {

namespace {

constexpr std::int64_t nsPerSecond = 1000000000;
constexpr std::chrono::microseconds oneLook{100};

std::atomic<bool> takenOver{false};
std::atomic<std::int64_t> now{0};
pthread_t mainThread;
WorkerTime plainTime;
std::atomic<WorkerTime *> workerTime{&plainTime};

bool inWorker()
{
    return takenOver && !pthread_equal(pthread_self(), mainThread);
}

int systemClock(clockid_t clock, timespec *time)
{
    return int(::syscall(SYS_clock_gettime, clock, time));
}

} // namespace

int WorkerTime::wait(pthread_cond_t * /*condition*/, pthread_mutex_t * /*mutex*/)
{
    return ETIMEDOUT;
}

void WorkerTime::signal(pthread_cond_t *condition)
{
    signalReally(condition);
}

void WorkerTime::signalReally(pthread_cond_t *condition)
{
    static const auto original = ZELTA_REPLACED(pthread_cond_signal);
    original(condition);
}

void takeOverTime()
{
    timespec start{};
    systemClock(CLOCK_MONOTONIC, &start);
    now = std::int64_t(start.tv_sec) * nsPerSecond + start.tv_nsec;
    mainThread = pthread_self();
    takenOver = true;
}

void passTime(std::chrono::nanoseconds time)
{
    now += time.count();
}

void setWorkerTime(WorkerTime *replacement)
{
    workerTime = replacement ? replacement : &plainTime;
}

} // namespace fuzz

using namespace fuzz;

ZELTA_REPLACEMENT int clock_gettime(clockid_t clock, timespec *time) noexcept
{
    // Replaces only the clock that the product and Qt's timers use. The fuzzer itself uses the other one.
    if (!takenOver || clock != CLOCK_MONOTONIC)
        return systemClock(clock, time);
    const std::int64_t reading = now += std::chrono::nanoseconds(oneLook).count();
    time->tv_sec = time_t(reading / nsPerSecond);
    time->tv_nsec = long(reading % nsPerSecond);
    return 0;
}

ZELTA_REPLACEMENT int nanosleep(const timespec *time, timespec *rest)
{
    if (!takenOver)
        return int(::syscall(SYS_nanosleep, time, rest));
    passTime(std::chrono::seconds(time->tv_sec) + std::chrono::nanoseconds(time->tv_nsec));
    if (inWorker())
        workerTime.load()->pause();
    return 0;
}

ZELTA_REPLACEMENT int pthread_cond_timedwait(pthread_cond_t *condition, pthread_mutex_t *mutex,
                                             const timespec *deadline)
{
    static const auto original = ZELTA_REPLACED(pthread_cond_timedwait);
    return inWorker() ? workerTime.load()->wait(condition, mutex) : original(condition, mutex, deadline);
}

ZELTA_REPLACEMENT int pthread_cond_signal(pthread_cond_t *condition) noexcept
{
    workerTime.load()->signal(condition);
    return 0;
}
