.pragma library

// The kinds of files, in the order of FileTransfer.Kind. Sizes and times are those of the module.
var all = [
    null,
    { noun: "sound-engine firmware", method: "sendZeltaFirmware", firmware: true, engineFirmware: true,
      packetBytes: 512, pauseMs: 10, endWaitMs: 15000, afterEndMs: 20000 },
    { noun: "trigger-board firmware", method: "sendTriggerFirmware", firmware: true,
      packetBytes: 512, pauseMs: 10, endWaitMs: 15000 },
    { noun: "sound bank", method: "sendSoundBank",
      packetBytes: 1024, pauseMs: 7, endWaitMs: 600000 },
    { noun: "trigger bank", method: "sendTriggerBank",
      packetBytes: 512, pauseMs: 15, endWaitMs: 15000 },
    { noun: "sound bank for a slot", method: "sendImportSoundBank", slotted: true, named: true,
      packetBytes: 512, pauseMs: 7, endWaitMs: 15000 },
    { noun: "wave sample for a slot", method: "sendImportWaveSample", slotted: true,
      packetBytes: 512, pauseMs: 7, endWaitMs: 15000 },
    { noun: "bluetooth firmware", method: "sendBtFw",
      packetBytes: 512, pauseMs: 1, endWaitMs: 15000 }
];

var largestSlot = 0xffff;
var largestSize = 0xffffffff;

function of(kind) {
    return all[kind] || null;
}

// Sending takes at least this time, because the module pauses after every ten packets.
function shortestMs(kind, size) {
    return Math.floor(Math.ceil(size / kind.packetBytes) / 10) * kind.pauseMs;
}

// Scheduling and sending take longer than the pauses alone.
function usualMs(kind, size) {
    return Math.ceil(size / kind.packetBytes / 10) * (kind.pauseMs + 1) + 200;
}
