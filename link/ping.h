#pragma once

#include <QString>

namespace zelta {

/// Blocks the calling thread until the host answers a ping, for at most five attempts of two seconds each.
/// The sound engine boots beside the interface, so the first attempts may well find nobody. The outcome is
/// not reported: the interface starts either way.
void waitForPingReply(const QString &host);

/// Number of replies that a ping summary reports ("1 packets transmitted, 1 packets received"), 0 when the
/// text holds no such summary. A ping that words its summary differently counts as no reply.
int pingRepliesReceived(const QString &output);

} // namespace zelta
