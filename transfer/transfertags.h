#pragma once

#include "link/tag.h"

// The tags of the file-transfer protocol.

namespace zelta {

// Kinds of packets. An acknowledgement carries the kind of the packet that it answers.
constexpr quint16 startPacketKind = tag('D', 'S'); // 0x4453
constexpr quint16 dataPacketKind = tag('D', 'C');  // 0x4443
constexpr quint16 endPacketKind = tag('D', 'E');   // 0x4445

// Queries. A reply carries the tag of its query.
constexpr quint16 zeltaVersionQuery = tag('V', 'N');       // 0x564E
constexpr quint16 triggerVersionQuery = tag('T', 'V');     // 0x5456
constexpr quint16 soundBankVersionQuery = tag('S', 'N');   // 0x534E
constexpr quint16 triggerBankVersionQuery = tag('T', 'N'); // 0x544E
constexpr quint16 hihatRawValueQuery = tag('H', 'L');      // 0x484C

// Contents of files.
constexpr quint16 zeltaFirmwareContent = tag('F', 'W');    // 0x4657
constexpr quint16 triggerFirmwareContent = tag('T', 'F');  // 0x5446
constexpr quint16 soundBankContent = tag('S', 'B');        // 0x5342
constexpr quint16 triggerBankContent = tag('T', 'B');      // 0x5442
constexpr quint16 importSoundBankContent = tag('I', 'S');  // 0x4953
constexpr quint16 importWaveSampleContent = tag('I', 'W'); // 0x4957
constexpr quint16 btFirmwareContent = tag('B', 'F');       // 0x4246

} // namespace zelta
