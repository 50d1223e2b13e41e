#include "transfer/pause.h"

#include <QThread>

#include <thread>

using namespace std::chrono;

namespace {

// A thread that sleeps runs again up to 100 us after it is due, even with minimal timer slack, because its
// core sleeps as well. Nearly all time of a transfer is pauses: what each is too long, the drummer waits
// thousands of times.
constexpr microseconds wakeUpTime{150};

} // namespace

void zelta::Pause::finish() const
{
    const auto sleep = duration_cast<microseconds>(m_end - steady_clock::now()) - wakeUpTime;
    if (sleep.count() > 0)
        QThread::usleep(static_cast<unsigned long>(sleep.count()));
    while (steady_clock::now() < m_end)
        std::this_thread::yield();
}
