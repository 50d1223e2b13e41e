import QtQml 2.12
import ZeltaConnect 1.0
import ZeltaConnect.Companion 1.0

// The module and the transfer of one file after the other, for the program in C++.
QtObject {
    id: sender
    readonly property ZeltaConnect zelta: ZeltaConnect {}
    readonly property FileTransfer transfer: FileTransfer {
        engine: sender.zelta
    }
    readonly property bool isSent: transfer.state === FileTransfer.Done
    readonly property bool isNotNewer: transfer.state === FileTransfer.NotNewer
    // All data has been sent, but the end is not acknowledged yet.
    readonly property bool isAllSent: transfer.state === FileTransfer.Finishing && transfer.progress === 1
    readonly property bool isWithoutVersion: transfer.reason === FileTransfer.NoVersion
    readonly property bool isUnusable: isWithoutVersion || transfer.reason === FileTransfer.FileMissing
                                       || transfer.reason === FileTransfer.NotAFile
                                       || transfer.reason === FileTransfer.FileEmpty
                                       || transfer.reason === FileTransfer.FileTooLarge
                                       || transfer.reason === FileTransfer.FileUnreadable
    readonly property bool isSilent: transfer.reason === FileTransfer.EngineSilent

    function send(kind, path, slot, name) {
        transfer.kind = FileTransfer[kind];
        transfer.source = path;
        transfer.slot = slot;
        transfer.name = name;
        transfer.start();
    }
}
