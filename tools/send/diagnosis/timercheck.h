#pragma once

#include "finding.h"

constexpr char timersCheck[] = "timers";

/// The kernel has high-resolution timers.
Finding checkTimers();
