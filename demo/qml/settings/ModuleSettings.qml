import QtQuick 2.12
import "../device"

// MIDI, bluetooth, LEDs and the switches of the module. The meaning of most numbers is not known.
QtObject {
    id: setup
    readonly property list<Parameter> midi: [
        Parameter { label: "MIDI channel"; method: "setMidiChannel"; value: 10 },
        Parameter { label: "Hi-hat pedal channel"; method: "setHiHatPedalChannel"; value: 10 },
        Parameter { label: "Snare channel"; method: "setSnareChannel"; value: 10 },
        Parameter { label: "Ride channel"; method: "setRideChannel"; value: 10 },
        Parameter { label: "Tom and aux channel"; method: "setTomAuxChannel"; value: 10 },
        Parameter { label: "Kit volume channel"; method: "setKitVolumeChannel"; value: 10 },
        Parameter { label: "MIDI input"; method: "setMidiInput"; value: 1 },
        Parameter { label: "USB MIDI"; method: "setUsbMidi"; value: 1 },
        Parameter { label: "Local control"; method: "setLocalControl"; value: 1 }
    ]
    // Two pairs of values of one parameter: 0 and 1, 63 and 64.
    readonly property Parameter bluetoothSwitch: Parameter { label: "Switch"; method: "setBluetoothSwitch"; to: 1 }
    readonly property Parameter bluetoothEnable: Parameter { label: "Enable"; method: "setBluetoothEnable"; to: 1 }
    property string bluetoothName

    readonly property Parameter fixedHiHat: Parameter { label: "Fixed hi-hat"; method: "setFixedHiHat"; to: 1 }
    readonly property Parameter autoOff: Parameter { label: "Auto-off"; method: "setAutoOff"; value: 30 }
    readonly property Parameter brightness: Parameter { label: "Brightness"; method: "setLedBrightness"; value: 96 }

    function nameBluetooth(name) {
        bluetoothName = name;
        Device.send("setBluetoothName", [name]);
    }
    function powerOff() {
        Device.send("sendPowerOff", []);
    }

    // One switch for each LED, created when it is first used.
    readonly property Component ledFactory: Component { Parameter { method: "setLedEnabled"; to: 1 } }
    property var leds: ({})
    function led(number) {
        if (!leds[number])
            leds[number] = ledFactory.createObject(setup, { label: "LED " + number, before: [number] });
        return leds[number];
    }
}
