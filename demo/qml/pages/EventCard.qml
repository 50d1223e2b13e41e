import QtQuick 2.12
import QtQuick.Controls 2.12
import "../controls"
import "../device"
import "../style"

// All events from the engine, the latest one first.
Card {
    id: card
    title: "Events"
    aside: Device.log.count + " in all"

    Rectangle {
        anchors { left: parent.left; right: parent.right; top: parent.top; bottom: reports.top; bottomMargin: 8 }
        radius: 10
        color: Theme.background
        border.color: Theme.line
        ListView {
            anchors { fill: parent; margins: 10 }
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: Device.log.events
            delegate: EventRow { width: ListView.view.width }
            ScrollBar.vertical: ScrollBar { width: 8 }
        }
    }
    Caption {
        id: reports
        anchors { left: parent.left; bottom: buttons.top; bottomMargin: 12 }
        text: "Not listed: " + Device.log.levelReports + " level, " + Device.log.compressorReports
              + " compressor reports"
    }
    Row {
        id: buttons
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
        spacing: Theme.tight
        PushButton {
            objectName: "pauseEvents"
            width: (parent.width - parent.spacing) / 2
            text: Device.log.paused ? "Continue" : "Pause"
            onConfirmed: Device.log.paused = !Device.log.paused
        }
        PushButton {
            objectName: "clearEvents"
            width: (parent.width - parent.spacing) / 2
            text: "Clear"
            onConfirmed: Device.log.clear()
        }
    }
}
