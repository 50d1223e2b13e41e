import QtQuick 2.12
import "."

// A surface that groups controls, with an optional heading.
Rectangle {
    id: card
    property string title
    property alias aside: asideText.text
    property int padding: Theme.gap
    default property alias content: body.data

    color: Theme.surface
    radius: Theme.radius
    border.color: Theme.line
    border.width: 1

    Text {
        id: heading
        x: card.padding
        y: card.padding - 2
        visible: text.length > 0
        text: card.title
        color: Theme.text
        font.pixelSize: Theme.body
        font.bold: true
    }
    Text {
        id: asideText
        anchors.right: parent.right
        anchors.rightMargin: card.padding
        anchors.baseline: heading.baseline
        color: Theme.dim
        font.pixelSize: Theme.caption
    }
    Item {
        id: body
        x: card.padding
        y: heading.visible ? heading.y + heading.height + Theme.tight + 2 : card.padding
        width: card.width - 2 * card.padding
        height: card.height - y - card.padding
    }
}
