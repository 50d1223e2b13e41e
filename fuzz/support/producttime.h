#pragma once

#include <chrono>

#include <pthread.h>

namespace fuzz {

// The functions of the system by which the product reads the clock, sleeps and waits are replaced in the
// whole process. Pauses of 10 ms to 20 s are part of the protocol and constants of the product; with them a
// fuzzer would see a handful of inputs a minute.

/// What becomes of the pauses and timed waits of the product's worker threads. As it is, a pause ends at once
/// and a wait runs out at once.
class WorkerTime
{
public:
    virtual ~WorkerTime() = default;

    /// In place of a sleep, in the thread that would sleep.
    virtual void pause() {}
    /// In place of pthread_cond_timedwait(), called with the mutex locked. Returns 0 or ETIMEDOUT.
    virtual int wait(pthread_cond_t *condition, pthread_mutex_t *mutex);
    /// Some thread is about to signal the condition.
    virtual void signal(pthread_cond_t *condition);

protected:
    static void signalReally(pthread_cond_t *condition);
};

/// Takes over the clock and the pauses. The calling thread becomes the one that is no worker; its sleeps only
/// make time pass. From now on the monotonic clock moves by passTime(), by the length of every pause and by a
/// little with every look at it, so that a loop that waits for the clock comes to its end.
void takeOverTime();
void passTime(std::chrono::nanoseconds time);

/// Null for the plain behaviour. Not while a worker thread runs.
void setWorkerTime(WorkerTime *workerTime);

} // namespace fuzz
