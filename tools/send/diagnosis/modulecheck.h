#pragma once

#include "finding.h"

constexpr char moduleCheck[] = "module";

/// The QML engine finds the module, its companion and the version that screens import. Creates no object of
/// them.
Finding checkModule(const QString &importDir);
