#include "contract/surface.h"

namespace zelta {
namespace contract {

namespace {

constexpr const char *signalRows[] = {
    "triggerPot0Inc()",
    "triggerPot1Inc()",
    "triggerPot2Inc()",
    "triggerPot3Inc()",
    "triggerPot0Dec()",
    "triggerPot1Dec()",
    "triggerPot2Dec()",
    "triggerPot3Dec()",
    "noteChanged()",
    "afterTouchNoteChanged()",
    "positionChanged()",
    "beatChanged()",
    "udpPacketArrived(ushort id, ushort idx, ushort data)",
    "potPacketArrived(ushort id, ushort idx, ushort data)",
    "notePacketArrived(ushort id, ushort idx, ushort data)",
    "zeltaVersionChanged()",
    "triggerVersionChanged()",
    "soundbankVersionChanged()",
    "triggerbankVersionChanged()",
    "hihatRawValueChanged(ushort value)",
    "padCpChanged()",
    "masterCpChanged()",
    "monitorCpChanged()",
    "headCpChanged()",
    "outputLevelsChanged()",
    "powerChanged()",
    "foot1Changed()",
    "foot2Changed()",
    "aux3Changed()",
    "aux4Changed()",
    "hpDetectChanged()",
    "mixInDetectChanged()",
    "homeButtonChanged(int value)",
    "tempoChanged()",
    "soundProgressChanged()",
    "triggerProgressChanged()",
    "sampleFlashSizeChanged()",
    "totalSampleFlashSizeChanged()",
    "btfwProgressChanged()",
    "updateZeltaFwComplete()",
    "waveTransferProgress(int slot, double progress)",
    "waveTransferComplete(int slot, ushort complete)",
    "slotInfoReceived(int slot, QString fileId, QString slotType)",
    "memInfoReceived(int value)",
    "soundbankTransferComplete(ushort complete, uint retransmitCount)",
    "triggerbankTransferComplete(ushort complete)",
    "bluetoothTransferComplete(ushort complete)",
    "testCommand(QString high, QString low, QString value)",
    "sysEx(QString value)",
    "intFwUpdateStarted()",
    "intFwUpdateFinished()",
    "programChanged(int program)",
    "intZeltaFirmwareUpdateStarted(int currentVersion, int newVersion)",
    "intTriggerFirmwareUpdateStarted(int currentVersion, int newVersion)",
    "intZeltaFirmwareUpdateFinished()",
    "intTriggerFirmwareUpdateFinished()",
};

constexpr const char *updateCompSlot =
    "updateComp(ushort channelId, ushort inL, ushort inR, ushort grL, ushort grR, ushort outL, ushort "
    "outR)";

constexpr const char *updateOutsSlot =
    "updateOuts(ushort mainL, ushort mainR, ushort monL, ushort monR, ushort headL, ushort headR, "
    "ushort out1, ushort out2, ushort out3, ushort out4, ushort out5, ushort out6, ushort out7, "
    "ushort out8, ushort spdifL, ushort spdifR, ushort usbL, ushort usbR)";

// The meta-object knows quint16 and its like by the plain type that they stand for.
constexpr const char *slotRows[] = {
    "udpPacket(ushort id, ushort idx, ushort data)",
    "updateNote(uint note)",
    "updateAfterTouchNote(uint note)",
    "updatePadPosition(uint controller, uint position)",
    "updateBeat(ushort beat)",
    "updateSampleFlashSize(ushort lo, ushort hi)",
    updateCompSlot,
    updateOutsSlot,
    "updateSwitch(ushort switchNumber, ushort value)",
    "updateTempo(ushort tempo)",
    "updateSoundTransferProgress(double progress)",
    "updateTriggerTransferProgress(double progress)",
    "updateBtFwTransferProgress(double progress)",
    "updateImportSlotProgress(int slot, double progress)",
    "updateImportSlotComplete(int slot, ushort complete)",
    "updateImportSBComplete(ushort complete, uint retransmitCount)",
    "updateImportTBComplete(ushort complete)",
    "updateImportBTComplete(ushort complete)",
    "updateProgram(uchar program)",
    "zeltaFwUpdated()",
    "internalFwUpdateStarted()",
    "internalFwUpdateFinished()",
    "internalZeltaFirmwareUpdateStarted(int currentVersion, int newVersion)",
    "internalTriggerFirmwareUpdateStarted(int currentVersion, int newVersion)",
    "internalZeltaFirmwareUpdateFinished()",
    "internalTriggerFirmwareUpdateFinished()",
    "forwardTestCommand(QString high, QString low, QString value)",
    "forwardSysEx(QString sysEx)",
};

} // namespace

const testsupport::Table<const char *> signalSignatures{signalRows};
const testsupport::Table<const char *> slotSignatures{slotRows};

} // namespace contract
} // namespace zelta
