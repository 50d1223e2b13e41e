#pragma once

#include "finding.h"

struct EngineTarget;

constexpr char pingCheck[] = "ping";
constexpr char enginePingCheck[] = "engine-ping";

/// Wording and speed of the ping in the search path, tried with an address of this machine.
Finding checkPing();
/// The engine answers that ping in time. The other checks of ping and engine have passed.
Finding checkEnginePing(const EngineTarget &engine);
