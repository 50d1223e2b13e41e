// Tests Screen.qml against the simulated engine, which plays screen.scenario.
import QtQuick 2.12
import QtTest 1.12

TestCase {
    id: test
    name: "Screen"
    width: 480
    height: 320
    when: windowShown
    visible: true

    // The longest wait for what must happen, on a busy machine.
    readonly property int patience: 30000

    Screen {
        id: screen
    }
    function test_1_hitIsShown() {
        tryCompare(findChild(screen, "signal"), "text", "connected", patience);
        tryCompare(findChild(screen, "hit"), "text", "Snare 100", patience);
    }
    // The engine answers the value 127 with a hit.
    function test_2_levelArrives() {
        var slider = findChild(screen, "level");
        mouseClick(slider, slider.width - 2, slider.height / 2);
        tryCompare(findChild(screen, "hit"), "text", "Crash 1 7", patience);
    }
}
