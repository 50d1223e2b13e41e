#include "interruption.h"

#include <atomic>
#include <csignal>

namespace {

// A signal handler may run in any thread, and may use an atomic only if it has no lock.
std::atomic<bool> isSignalled{false};
static_assert(std::atomic<bool>::is_always_lock_free);

void handle(int /*signal*/)
{
    isSignalled = true;
}

void react(void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

} // namespace

Interruption::Interruption(SecondSignal second)
{
    isSignalled = false;
    react(handle, second == SecondSignal::EndsProgram ? SA_RESTART | int(SA_RESETHAND) : SA_RESTART);
}

Interruption::~Interruption()
{
    react(SIG_DFL, 0);
}

bool Interruption::isRequested()
{
    return isSignalled;
}
