import QtQuick 2.12
import QtQuick.Templates 2.12 as Templates
import "../controls"
import "../style"

// A list with the latest line on top. It follows new lines unless it is scrolled away from the top.
ListView {
    id: list
    property string emptyText
    property bool following: true

    clip: true
    activeFocusOnTab: true
    boundsBehavior: Flickable.StopAtBounds
    currentIndex: -1
    Templates.ScrollBar.vertical: Scroller {}

    function page(direction) {
        contentY = Math.max(originY, Math.min(originY + contentHeight - height, contentY + direction * (height - 20)));
        following = atYBeginning;
    }
    Keys.onUpPressed: page(-0.2)
    Keys.onDownPressed: page(0.2)
    Keys.onPressed: {
        if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
            page(event.key === Qt.Key_PageUp ? -1 : 1);
        else if (event.key === Qt.Key_Home)
            page(-1e6);
        else
            return;
        event.accepted = true;
    }
    onMovementEnded: following = atYBeginning
    onCountChanged: {
        if (following)
            positionViewAtBeginning();
    }

    Rectangle {
        anchors.fill: parent
        radius: Theme.radius
        color: "transparent"
        border.color: Theme.line
        FocusFrame {
            anchors.margins: 0
            shown: list.activeFocus
        }
    }
    Caption {
        anchors.centerIn: parent
        visible: list.count === 0
        text: list.emptyText
    }
}
