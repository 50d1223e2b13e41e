#pragma once

#include "control/qconnectqmlplugin.h"

#include <QString>

namespace fuzz {

/// The control object of this process, made with the first call and never deleted. By then the environment is
/// set, the wire and the clock are taken over, and the catalogues lie in the directory of this process.
QConnectQmlPlugin &module();

/// A directory of this process for files, with a slash at its end. It goes with the process.
QString filesDirectory();
/// Writes a file there and returns its path.
QString writeFile(const QString &name, const QByteArray &content);

/// Delivers the signals that worker threads have queued, and fires timers that are due.
void settle();

} // namespace fuzz
