#pragma once

#include "finding.h"

struct EngineTarget;

constexpr char routeCheck[] = "route";
constexpr char ownAddressCheck[] = "own-address";

/// The system has a route to the engine. Nothing is sent.
Finding checkRoute(const EngineTarget &engine);
/// Datagrams to the engine leave from an address in its network, of a device that is up. There is a route.
Finding checkOwnAddress(const EngineTarget &engine);
