#pragma once

namespace zelta {

/// Sets the timer slack of the calling thread to its minimum. By default the kernel may end every sleep up to
/// 50 us late, which is half of the 100 us pause between datagrams.
void useMinimalTimerSlack();

} // namespace zelta
