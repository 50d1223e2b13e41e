#pragma once

#include <chrono>

#include <pthread.h>

namespace fuzz {

// Replaces the system functions for the clock, sleeps and waits in the whole process. Pauses of 10 ms to 20 s
// are part of the protocol and constants of the product; with them a fuzzer could only run a few inputs per
// minute.

/// The pauses and timed waits of the product's worker threads. In this class, a pause ends at once and a wait
/// times out at once.
class WorkerTime
{
public:
    virtual ~WorkerTime() = default;

    /// Replaces a sleep, in the thread that would sleep.
    virtual void pause() {}
    /// Replaces pthread_cond_timedwait(), called with the mutex locked. Returns 0 or ETIMEDOUT.
    virtual int wait(pthread_cond_t *condition, pthread_mutex_t *mutex);
    /// Called before a thread signals the condition.
    virtual void signal(pthread_cond_t *condition);

protected:
    static void signalReally(pthread_cond_t *condition);
};

/// Replaces the clock and the pauses. All threads except the calling one count as workers; a sleep of the
/// calling thread only advances the clock. The monotonic clock advances by passTime(), by the length of each
/// pause and a little with each reading, so that a loop that polls the clock ends.
void takeOverTime();
void passTime(std::chrono::nanoseconds time);

/// Null selects the default behaviour. Must not be called while a worker thread runs.
void setWorkerTime(WorkerTime *workerTime);

} // namespace fuzz
