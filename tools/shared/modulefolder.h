#pragma once

#include <QString>

/// The import path with the ZeltaConnect module: the given folder, or the one in the program's build tree.
/// Empty when there is none, as for installed programs; Qt's default import paths are enough then. Needs an
/// application object.
QString moduleFolder(const QString &given);
