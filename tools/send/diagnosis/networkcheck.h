#pragma once

#include "finding.h"

struct EngineTarget;

constexpr char routeCheck[] = "route";
constexpr char ownAddressCheck[] = "own-address";

/// The system has a route to the engine. Nothing is sent.
Finding checkRoute(const EngineTarget &engine);
/// This machine has an address in the network of the engine. There is a route.
Finding checkOwnAddress(const EngineTarget &engine);
