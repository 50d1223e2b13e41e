import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../controls"
import "../style"

// The failure modes. Each can be switched on and off at any time, also while a file arrives.
Item {
    id: page

    Caption {
        height: Theme.row
        text: panel.failures.activeCount === 0 ? "All failure modes are off."
                                               : "Failure modes that are on: " + panel.failures.activeCount
    }
    PushButton {
        id: none
        objectName: "failures-none"
        anchors.right: parent.right
        text: "All off"
        enabled: panel.failures.activeCount > 0
        onClicked: panel.run("fail none")
    }
    ListView {
        id: list
        objectName: "failures-list"
        anchors { top: none.bottom; topMargin: Theme.gap; bottom: parent.bottom }
        width: page.width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        Templates.ScrollBar.vertical: Scroller {}
        // All rows exist, so that the Tab key reaches each of them.
        cacheBuffer: 4000
        spacing: 3
        model: panel.failures
        delegate: Rectangle {
            id: mode
            width: page.width - 14
            height: 56
            radius: Theme.radius
            color: Theme.surface
            border.color: active ? Theme.alarm : Theme.line

            function turnOn(count) {
                panel.run("fail " + name + (takesNumber ? "=" + count : ""));
            }
            function turnOff() {
                panel.run("fail " + name + " off");
            }
            // Scrolls to what has the focus.
            function reveal() {
                list.positionViewAtIndex(index, ListView.Contain);
            }

            PushButton {
                objectName: "failure-" + name
                x: 6
                y: (parent.height - height) / 2
                width: 44
                text: active ? "on" : "off"
                lit: active
                onClicked: {
                    if (active)
                        mode.turnOff();
                    else
                        mode.turnOn(box.typed());
                }
                onActiveFocusChanged: {
                    if (activeFocus)
                        mode.reveal();
                }
            }
            Text {
                x: 60
                y: 4
                width: (takesNumber ? box.x : parent.width) - x - Theme.gap
                text: name
                color: active ? Theme.alarm : Theme.text
                font { pixelSize: Theme.body; bold: true }
                elide: Text.ElideRight
            }
            Text {
                x: 60
                y: 21
                width: (takesNumber ? box.x : parent.width) - x - Theme.gap
                height: 31
                verticalAlignment: Text.AlignVCenter
                text: description
                color: Theme.dim
                font.pixelSize: 11
                wrapMode: Text.Wrap
                maximumLineCount: 2
                elide: Text.ElideRight
            }
            NumberBox {
                id: box
                objectName: "failure-number-" + name
                visible: takesNumber
                x: parent.width - width - 6
                y: (parent.height - height) / 2
                width: 104
                to: 0xFFFFFF
                value: number
                // A mode that is on starts again with the new number.
                onEntered: change(typed())
                onValueModified: change(value)
                function change(count) {
                    if (active && count !== number) {
                        mode.turnOff();
                        mode.turnOn(count);
                    } else {
                        panel.failures.setNumber(index, count);
                    }
                }
                onActiveFocusChanged: {
                    if (activeFocus)
                        mode.reveal();
                }
            }
        }
    }
}
