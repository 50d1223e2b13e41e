#pragma once

#include <QByteArray>

namespace fuzz {

/// The tag of a datagram.
quint16 kindOf(const QByteArray &datagram);

/// Requires that a datagram has a known form and that its length agrees with its header. Its values do not
/// matter.
void requireKnownForm(const QByteArray &datagram);

} // namespace fuzz
