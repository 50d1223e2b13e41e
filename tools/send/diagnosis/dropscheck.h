#pragma once

#include "finding.h"

struct EngineTarget;

constexpr char dropsCheck[] = "drops";

/// No program with the module, and no process at the engine's address, has lost datagrams.
Finding checkDrops(const EngineTarget &engine);
