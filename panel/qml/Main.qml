import QtQuick 2.12
import QtQuick.Window 2.12
import "controls"
import "front"
import "inside"
import "style"

// The window: the module's front on the left, its inside as pages on the right.
Window {
    id: window
    property string page: pageNames[0]
    readonly property var pageNames: ["messages", "parameters", "failures", "meters", "answers"]
    readonly property var pageLabels: ["Messages", "Parameters", "Failures", "Meters", "Answers"]

    width: 1024
    height: 600
    minimumWidth: 1024
    minimumHeight: 600
    visible: true
    title: "Simulated engine " + panel.listening
    color: Theme.background

    Header {
        id: header
        width: parent.width
    }
    FrontView {
        id: front
        anchors { left: parent.left; top: header.bottom; bottom: bar.top; margins: Theme.gap }
        width: Math.round((parent.width - 3 * Theme.gap) / 2)
        focus: true
    }
    Row {
        id: tabs
        anchors { left: front.right; leftMargin: Theme.gap; top: header.bottom; topMargin: Theme.gap }
        spacing: Theme.tight
        Repeater {
            model: window.pageLabels
            PushButton {
                objectName: "tab-" + window.pageNames[index]
                text: modelData
                lit: window.page === window.pageNames[index]
                onClicked: window.page = window.pageNames[index]
            }
        }
    }
    Item {
        id: pages
        anchors {
            left: tabs.left; right: parent.right; rightMargin: Theme.gap
            top: tabs.bottom; topMargin: Theme.gap; bottom: transfer.top; bottomMargin: Theme.gap
        }
        MessagesPage { anchors.fill: parent; visible: window.page === "messages" }
        ParametersPage { anchors.fill: parent; visible: window.page === "parameters" }
        FailuresPage { anchors.fill: parent; visible: window.page === "failures" }
        MetersPage { anchors.fill: parent; visible: window.page === "meters" }
        AnswersPage { anchors.fill: parent; visible: window.page === "answers" }
    }
    TransferStrip {
        id: transfer
        anchors { left: tabs.left; right: parent.right; rightMargin: Theme.gap; bottom: bar.top; bottomMargin: Theme.gap }
    }
    Repeater {
        model: window.pageNames.length
        Item {
            Shortcut {
                sequence: "Ctrl+" + (index + 1)
                onActivated: window.page = window.pageNames[index]
            }
        }
    }
    Shortcut {
        sequence: "Ctrl+L"
        onActivated: bar.focusCommand()
    }
    CommandBar {
        id: bar
        y: parent.height - height
        width: parent.width
    }
}
