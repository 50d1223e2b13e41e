#pragma once

#include "transfer/fileversions.h"
#include "transfer/transferwords.h"

#include <array>

namespace zelta {

/// What a transfer task does; the position in the table of traits.
enum TaskKind : int {
    ZeltaFirmwareTask,
    TriggerFirmwareTask,
    SoundBankTask,
    TriggerBankTask,
    ImportSoundBankTask,
    ImportWaveSampleTask,
    BtFirmwareTask,
    SoundBankVersionTask,
    TriggerBankVersionTask,
    HihatRawValueTask,
};

/// The fixed parameters of one kind of task.
struct TaskTraits
{
    quint16 query;           ///< word of the query that comes first, 0 for none
    FileVersion fileVersion; ///< the version that must exceed the reply, null for none
    quint16 content;         ///< content word of the file's packets, 0 when there is no file
    int chunkBytes;          ///< file bytes per data packet, an even number
    unsigned long pauseMs;   ///< after every tenth data packet
    int endWaitMs;           ///< longest wait for the end acknowledgement
    bool checksum;           ///< whether the end packet carries the sum of what was sent
    unsigned long afterEndS; ///< sleep after the end, while the engine restarts
};

constexpr int standardChunk = 512;
constexpr int soundBankChunk = 1024;
constexpr int standardEndWait = 15000;
// A sound bank is programmed into flash before it is acknowledged.
constexpr int soundBankEndWait = 600000;

// clang-format off
constexpr std::array<TaskTraits, 10> taskTraits = {{
    // query                  file version            content                  chunk           pause  end wait         sum    after
    {zeltaVersionQuery,       zeltaFirmwareVersion,   zeltaFirmwareContent,    standardChunk,  10,    standardEndWait,  false, 20},
    {triggerVersionQuery,     triggerFirmwareVersion, triggerFirmwareContent,  standardChunk,  10,    standardEndWait,  true,  0},
    {0,                       nullptr,                soundBankContent,        soundBankChunk, 7,     soundBankEndWait, true,  0},
    {0,                       nullptr,                triggerBankContent,      standardChunk,  15,    standardEndWait,  true,  0},
    {0,                       nullptr,                importSoundBankContent,  standardChunk,  7,     standardEndWait,  true,  0},
    {0,                       nullptr,                importWaveSampleContent, standardChunk,  7,     standardEndWait,  true,  0},
    {0,                       nullptr,                btFirmwareContent,       standardChunk,  1,     standardEndWait,  false, 0},
    {soundBankVersionQuery,   nullptr,                0,                       0,              0,     0,                false, 0},
    {triggerBankVersionQuery, nullptr,                0,                       0,              0,     0,                false, 0},
    {hihatRawValueQuery,      nullptr,                0,                       0,              0,     0,                false, 0},
}};
// clang-format on
static_assert(taskTraits[BtFirmwareTask].content == btFirmwareContent &&
                  taskTraits[HihatRawValueTask].query == hihatRawValueQuery,
              "the kinds number the rows");

/// The traits of a kind, null when there is no such kind.
constexpr const TaskTraits *traitsOf(int kind)
{
    return kind >= 0 && kind < int(taskTraits.size()) ? &taskTraits[std::size_t(kind)] : nullptr;
}

} // namespace zelta
