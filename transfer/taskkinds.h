#pragma once

#include "transfer/fileversions.h"

#include <QThread>

class DATA_PACKET;
class qconnectfirmware;
struct FirmwareDesc;

namespace zelta {

/// What a task does; the index of its row in the table of traits.
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
    TaskKindCount
};

/// How the transfer of a file ended.
struct FileEnd
{
    bool failed;         ///< the end was not acknowledged, or acknowledged with an error
    quint16 status;      ///< latest status of the engine
    quint32 retransmits; ///< number of resends that the engine requested
};

/// The fixed parameters of one kind of task. A null function is a step that the kind does not have.
struct TaskTraits
{
    TaskKind kind;
    quint16 query;                     ///< tag of the query that is sent first, 0 for none
    FileVersion fileVersion = nullptr; ///< version of the file; must be higher than the reply
    quint16 content = 0;               ///< content tag of the file's packets, 0 for a kind without a file
    int chunkBytes = 0;                ///< file bytes per data packet, an even number
    int pauseMs = 0;                   ///< after every tenth data packet
    int endWaitMs = 0;                 ///< longest wait for the end acknowledgement
    bool checksum = false;             ///< the end packet carries the sum of the sent chunks, otherwise 0
    unsigned long afterEndS = 0;       ///< pause after the end

    /// Appends the fields after the slot number of the start packet. Null: no start packet with a slot.
    void (*appendName)(qconnectfirmware &engine, DATA_PACKET &packet, const FirmwareDesc &task) = nullptr;
    /// Signal that is emitted after the start packet.
    void (qconnectfirmware::*started)(int deviceVersion, int fileVersion) = nullptr;
    /// Emits the progress of one data packet.
    void (*reportProgress)(qconnectfirmware &engine, int slot, qreal fraction) = nullptr;
    /// Emits the signals at the end of a file.
    void (*reportEnd)(qconnectfirmware &engine, const FileEnd &end, int slot, int fileVersion) = nullptr;
    bool reportsAbort = false;                            ///< reportEnd is also called after an abort
    QThread::Priority priority = QThread::NormalPriority; ///< of the thread when the task starts it
};

/// Returns the traits of a kind, or null if there is no such kind.
const TaskTraits *traitsOf(int kind);

} // namespace zelta
