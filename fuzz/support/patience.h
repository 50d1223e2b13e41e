#pragma once

#include <semaphore.h>

namespace fuzz {

/// Waits until the semaphore is released. After 30 s the process crashes; the message contains `what`, the
/// condition that should have become true.
void waitFor(sem_t *semaphore, const char *what);

} // namespace fuzz
