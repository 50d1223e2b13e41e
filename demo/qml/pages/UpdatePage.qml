import QtQuick 2.12
import "../style"

// The versions, the transfer of files to the engine, and the engine's memory.
Item {
    id: page
    VersionCard {
        id: versions
        anchors { left: parent.left; top: parent.top; margins: Theme.margin }
        width: 304
        height: 356
    }
    MemoryCard {
        anchors {
            left: versions.left; top: versions.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
        width: versions.width
    }
    TransferCard {
        id: transfer
        anchors {
            left: versions.right; leftMargin: Theme.gap
            top: parent.top; topMargin: Theme.margin; bottom: parent.bottom; bottomMargin: Theme.margin
        }
        width: 520
    }
    SlotCard {
        anchors {
            left: transfer.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin
            top: transfer.top; bottom: transfer.bottom
        }
    }
}
