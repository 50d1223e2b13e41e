import QtQuick 2.12
import "../style"

// For technicians: versions, free messages in both directions, and all events.
Item {
    VersionCard {
        id: versions
        anchors { left: parent.left; top: parent.top; margins: Theme.margin }
        width: 304
        height: 356
    }
    BluetoothFilesCard {
        anchors {
            left: versions.left; right: versions.right; top: versions.bottom; topMargin: Theme.gap
            bottom: parent.bottom; bottomMargin: Theme.margin
        }
    }
    SysExCard {
        id: sysEx
        anchors { left: versions.right; leftMargin: Theme.gap; top: versions.top; bottom: nrpn.top; bottomMargin: Theme.gap }
        width: 400
    }
    NrpnCard {
        id: nrpn
        anchors { left: sysEx.left; right: sysEx.right; bottom: parent.bottom; bottomMargin: Theme.margin }
        height: 230
    }
    EventCard {
        anchors {
            left: sysEx.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin
            top: sysEx.top; bottom: nrpn.bottom
        }
    }
}
