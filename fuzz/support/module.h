#pragma once

#include "control/qconnectqmlplugin.h"

#include <QString>

namespace fuzz {

/// The control object of this process, created by the first call and never deleted. The first call also sets
/// the environment, replaces the socket functions and the clock, and moves the catalogues to the directory of
/// this process.
QConnectQmlPlugin &module();

/// A directory of this process for files, with a slash at its end. Removed at exit.
QString filesDirectory();
/// Writes a file there and returns its path.
QString writeFile(const QString &name, const QByteArray &content);

/// Delivers queued signals of worker threads, and fires the timers that are due.
void settle();

} // namespace fuzz
