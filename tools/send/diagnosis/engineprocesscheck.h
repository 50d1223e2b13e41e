#pragma once

#include "finding.h"

struct EngineTarget;

constexpr char engineProcessCheck[] = "engine-process";

/// No process of this machine has the engine's address and port, unless the address is a loopback address;
/// then at most one has it.
Finding checkEngineProcess(const EngineTarget &engine);
