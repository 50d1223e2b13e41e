#pragma once

#include <QString>

namespace zelta {

/// Blocks the calling thread until the host answers a ping, for at most five attempts of two seconds each.
/// The first attempts may fail if the sound engine is still starting. The outcome is not reported: the screen
/// starts in either case.
void waitForPingReply(const QString &host);

/// Number of replies in a ping summary ("1 packets transmitted, 1 packets received"), 0 when the text has no
/// summary of this form. The summary of iputils has another form and counts as no reply.
int pingRepliesReceived(const QString &output);

} // namespace zelta
