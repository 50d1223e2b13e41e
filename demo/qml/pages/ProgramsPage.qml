import QtQuick 2.12
import "../controls"
import "../settings"
import "../style"

// The program, and the catalogues of the banks.
Item {
    id: page
    readonly property ProgramSettings programs: Settings.programs

    Card {
        id: chooser
        anchors { left: parent.left; top: parent.top; bottom: parent.bottom; margins: Theme.margin }
        width: 304
        title: "Program"
        Text {
            id: figure
            anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 110 }
            text: page.programs.program.text
            color: Theme.text
            font.pixelSize: 120
            font.bold: true
        }
        Caption {
            anchors { horizontalCenter: parent.horizontalCenter; top: figure.bottom }
            text: page.programs.reported < 0 ? "no program chosen at the engine yet"
                                             : "last chosen at the engine: " + page.programs.reported
        }
        Slider {
            objectName: "programSlider"
            anchors { left: parent.left; right: parent.right; bottom: stepper.top; bottomMargin: 24 }
            parameter: page.programs.program
        }
        Stepper {
            id: stepper
            anchors { left: parent.left; right: parent.right; bottom: parent.bottom }
            label: "Choose"
            parameter: page.programs.program
        }
    }
    CatalogueCard {
        anchors {
            left: chooser.right; leftMargin: Theme.gap; right: parent.right; rightMargin: Theme.margin
            top: chooser.top; bottom: chooser.bottom
        }
    }
}
