#pragma once

#include <QString>

/// A file of the system. Tests of this program put a folder with planted faults in place of the root folder,
/// with the variable ZELTA_SEND_SYSTEM_ROOT.
QString systemPath(const QString &absolutePath);
