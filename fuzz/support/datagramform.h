#pragma once

#include <QByteArray>

namespace fuzz {

/// The first word of a datagram, two letters.
quint16 kindOf(const QByteArray &datagram);

/// Requires that a datagram is one of those the sound engine understands and that its length agrees with what
/// it says about itself, whatever the values in it.
void requireKnownForm(const QByteArray &datagram);

} // namespace fuzz
