#pragma once

namespace zelta {

/// Makes the pauses of the calling thread end when they are due. By default the kernel lets every sleep run
/// up to 50 us late to batch wake-ups, which would stretch the 100 us pause between datagrams by half.
void useMinimalTimerSlack();

} // namespace zelta
