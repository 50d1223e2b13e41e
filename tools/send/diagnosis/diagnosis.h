#pragma once

#include "finding.h"

#include <functional>

/// Checks what the interface needs on this machine and calls report with each finding, in the same order in
/// every run. Loads the module from importDir, or from its default folder when that is empty. Needs an
/// application object; ZELTACONNECT_ENGINE must be an address or unset. Takes up to 20 s if the engine is
/// off. After an Interruption it ends with the check that is running and does not report that one: the
/// signal may have reached a program that the check runs.
void diagnoseInterface(const QString &importDir, const std::function<void(const Finding &)> &report);
