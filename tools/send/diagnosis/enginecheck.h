#pragma once

#include "finding.h"

constexpr char engineCheck[] = "engine";

/// The engine answers a query of the module. The module can be loaded. Puts the ping of the tools first in
/// the search path, so that the module starts quickly.
Finding checkEngine(const QString &importDir);
