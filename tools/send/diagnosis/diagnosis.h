#pragma once

#include "finding.h"

#include <functional>

/// Checks what the interface needs on this machine and calls report with each finding, in the same order in
/// every run. Loads the module from importDir, or from its default folder when that is empty. Needs an
/// application object; ZELTACONNECT_ENGINE must be an address or unset. Takes up to 15 s if the engine is
/// off.
void diagnoseInterface(const QString &importDir, const std::function<void(const Finding &)> &report);
