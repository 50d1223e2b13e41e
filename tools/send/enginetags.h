#pragma once

#include <QtGlobal>

/// Tags of the engine's events, as udpPacketArrived reports them.
namespace EngineTag {
constexpr ushort EngineVersionAnswer = 0x564E;      // VN
constexpr ushort TriggerVersionAnswer = 0x5456;     // TV
constexpr ushort SoundBankVersionAnswer = 0x534E;   // SN
constexpr ushort TriggerBankVersionAnswer = 0x544E; // TN
constexpr ushort HiHatRawAnswer = 0x484C;           // HL

/// True for the answer to any query. It ends the current query, whichever that is.
inline bool answersQuery(ushort id)
{
    return id == EngineVersionAnswer || id == TriggerVersionAnswer || id == SoundBankVersionAnswer ||
           id == TriggerBankVersionAnswer || id == HiHatRawAnswer;
}
} // namespace EngineTag
