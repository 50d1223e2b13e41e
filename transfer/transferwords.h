#pragma once

#include "link/eventkind.h"

// The 16-bit words of the file-transfer protocol.

namespace zelta {

// Kinds of packets. Acknowledgements come back under the word of the packet they answer.
constexpr quint16 startPacketKind = eventKind('D', 'S'); // 0x4453
constexpr quint16 dataPacketKind = eventKind('D', 'C');  // 0x4443
constexpr quint16 endPacketKind = eventKind('D', 'E');   // 0x4445

// Queries; the replies come back under the same word.
constexpr quint16 zeltaVersionQuery = eventKind('V', 'N');       // 0x564E
constexpr quint16 triggerVersionQuery = eventKind('T', 'V');     // 0x5456
constexpr quint16 soundBankVersionQuery = eventKind('S', 'N');   // 0x534E
constexpr quint16 triggerBankVersionQuery = eventKind('T', 'N'); // 0x544E
constexpr quint16 hihatRawValueQuery = eventKind('H', 'L');      // 0x484C

// What a file holds.
constexpr quint16 zeltaFirmwareContent = eventKind('F', 'W');    // 0x4657
constexpr quint16 triggerFirmwareContent = eventKind('T', 'F');  // 0x5446
constexpr quint16 soundBankContent = eventKind('S', 'B');        // 0x5342
constexpr quint16 triggerBankContent = eventKind('T', 'B');      // 0x5442
constexpr quint16 importSoundBankContent = eventKind('I', 'S');  // 0x4953
constexpr quint16 importWaveSampleContent = eventKind('I', 'W'); // 0x4957
constexpr quint16 btFirmwareContent = eventKind('B', 'F');       // 0x4246

} // namespace zelta
