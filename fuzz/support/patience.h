#pragma once

#include <semaphore.h>

namespace fuzz {

/// Waits until the semaphore is raised. When that takes half a minute something hangs, and the process ends
/// with a crash; what says what was waited for.
void waitFor(sem_t *semaphore, const char *what);

} // namespace fuzz
