import QtQuick 2.12
import "device"
import "panel"
import "settings"
import "style"

// Navigation, the page, and the status strip.
Item {
    id: shell
    // The entries of pages.json.
    property var pages
    property int current: 0
    property string startPage
    property url startFolder
    property string engineAddress
    readonly property string connectionText: strip.connectionText
    // For the program that shows the screen.
    readonly property Item device: Device
    readonly property QtObject settings: Settings
    readonly property QtObject transfers: Transfers

    function open(name) {
        for (var i = 0; i < pages.length; ++i) {
            if (pages[i].name === name)
                current = i;
        }
    }
    Component.onCompleted: {
        Transfers.startFolder = startFolder;
        Settings.startFolder = startFolder;
        open(startPage);
    }

    NavBar {
        id: bar
        height: parent.height
        pages: shell.pages
        current: shell.current
        onChosen: shell.current = index
    }
    Item {
        id: stack
        anchors { left: bar.right; right: parent.right; top: parent.top; bottom: strip.top }
        Repeater {
            model: shell.pages
            Loader {
                objectName: "page-" + modelData.name
                anchors.fill: parent
                visible: index === shell.current
                source: "pages/" + modelData.file
            }
        }
    }
    StatusStrip {
        id: strip
        objectName: "status"
        anchors { left: bar.right; right: parent.right; bottom: parent.bottom }
        address: shell.engineAddress
    }
}
