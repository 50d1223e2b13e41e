import QtQuick 2.12
import "../controls"
import "../style"

// What the module set, the latest on top.
Item {
    id: page

    TextBox {
        id: search
        objectName: "parameters-search"
        width: page.width - count.width - Theme.gap
        placeholderText: "Search a name or a number, for example reverb or 0x38"
        onTextChanged: panel.parameters.search = text
    }
    Caption {
        id: count
        anchors.right: parent.right
        height: search.height
        text: list.count + (list.count === 1 ? " parameter" : " parameters")
    }
    LineList {
        id: list
        objectName: "parameters-list"
        anchors { top: search.bottom; topMargin: Theme.gap; bottom: parent.bottom }
        width: page.width
        model: panel.parameters
        emptyText: search.length > 0 ? "No parameter has this name or number." : "The module has set nothing yet."
        delegate: Item {
            width: page.width - 12
            height: 22
            Text {
                id: address
                x: 6
                height: parent.height
                text: number
                color: Theme.dim
                font { pixelSize: Theme.small; family: Theme.mono }
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                anchors { left: address.right; leftMargin: Theme.gap; right: figure.left; rightMargin: Theme.tight }
                height: parent.height
                text: name
                color: Theme.text
                font.pixelSize: Theme.small
                elide: Text.ElideRight
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                id: figure
                anchors { right: clock.left; rightMargin: Theme.gap }
                height: parent.height
                text: value
                color: Theme.received
                font { pixelSize: Theme.body; bold: true }
                verticalAlignment: Text.AlignVCenter
            }
            Text {
                id: clock
                anchors.right: parent.right
                height: parent.height
                text: time
                color: Theme.dim
                font { pixelSize: Theme.small; family: Theme.mono }
                verticalAlignment: Text.AlignVCenter
            }
        }
    }
}
