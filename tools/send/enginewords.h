#pragma once

#include <QtGlobal>

/// Events of the engine, as QML sees them in udpPacketArrived: two letters each.
namespace EngineWord {
constexpr ushort EndAnswer = 0x4445;                // DE
constexpr ushort DataAnswer = 0x4443;               // DC
constexpr ushort EngineVersionAnswer = 0x564E;      // VN
constexpr ushort TriggerVersionAnswer = 0x5456;     // TV
constexpr ushort SoundBankVersionAnswer = 0x534E;   // SN
constexpr ushort TriggerBankVersionAnswer = 0x544E; // TN
constexpr ushort HiHatRawAnswer = 0x484C;           // HL
} // namespace EngineWord
