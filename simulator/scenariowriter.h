#pragma once

#include "recording.h"

#include <QStringList>

namespace simulated {

/// The engine's side of a recording as lines of a scenario. Playing it sends the same datagrams in the same
/// order, at their recorded times in milliseconds.
///
/// A datagram that a command describes is written as that command, every other one in hexadecimal. Events of
/// a SysEx message or a test command that directly follow each other are one command. Returns an empty list
/// and sets problem to one line if the recording is longer than a scenario can be.
QStringList scenarioOf(const Recording &recording, QString *problem);

} // namespace simulated
