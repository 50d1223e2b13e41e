import QtQuick 2.12
import "../device"

// The program. It is the last one that the screen chose or the engine reported.
QtObject {
    id: programs
    readonly property Parameter program: Parameter { label: "Program"; method: "setProgramNumber" }
    property int reported: -1

    function takeReport(number) {
        reported = number;
        program.learn(number);
    }
    Component.onCompleted: Device.module.programChanged.connect(takeReport)
}
