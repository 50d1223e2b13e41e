#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// MIDI set-up, program change and the module's switches.
// clang-format off
constexpr WireRow rows[] = {
    {"setMidiInput", "0", "lowest", "494D0003 0BB96337 0BB96222 0BB90600"},
    {"setMidiInput", "1", "typical", "494D0003 0BB96337 0BB96222 0BB90601"},
    {"setMidiInput", "127", "highest", "494D0003 0BB96337 0BB96222 0BB9067F"},
    {"setMidiInput", "200", "bit 7 kept", "494D0003 0BB96337 0BB96222 0BB906C8"},
    {"setLocalControl", "0", "lowest", "494D0003 0BB96337 0BB96221 0BB90600"},
    {"setLocalControl", "1", "typical", "494D0003 0BB96337 0BB96221 0BB90601"},
    {"setLocalControl", "127", "highest", "494D0003 0BB96337 0BB96221 0BB9067F"},
    {"setLocalControl", "200", "bit 7 kept", "494D0003 0BB96337 0BB96221 0BB906C8"},
    {"setUsbMidi", "0", "lowest", "494D0003 0BB96337 0BB96223 0BB90600"},
    {"setUsbMidi", "1", "typical", "494D0003 0BB96337 0BB96223 0BB90601"},
    {"setUsbMidi", "127", "highest", "494D0003 0BB96337 0BB96223 0BB9067F"},
    {"setUsbMidi", "200", "bit 7 kept", "494D0003 0BB96337 0BB96223 0BB906C8"},
    {"setMidiChannel", "0", "lowest", "494D0003 0BB96337 0BB96220 0BB90600"},
    {"setMidiChannel", "9", "typical", "494D0003 0BB96337 0BB96220 0BB90609"},
    {"setMidiChannel", "127", "highest", "494D0003 0BB96337 0BB96220 0BB9067F"},
    {"setMidiChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96220 0BB906C8"},
    {"setHiHatPedalChannel", "0", "lowest", "494D0003 0BB96337 0BB96224 0BB90600"},
    {"setHiHatPedalChannel", "10", "typical", "494D0003 0BB96337 0BB96224 0BB9060A"},
    {"setHiHatPedalChannel", "127", "highest", "494D0003 0BB96337 0BB96224 0BB9067F"},
    {"setHiHatPedalChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96224 0BB906C8"},
    {"setSnareChannel", "0", "lowest", "494D0003 0BB96337 0BB96225 0BB90600"},
    {"setSnareChannel", "9", "typical", "494D0003 0BB96337 0BB96225 0BB90609"},
    {"setSnareChannel", "127", "highest", "494D0003 0BB96337 0BB96225 0BB9067F"},
    {"setSnareChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96225 0BB906C8"},
    {"setRideChannel", "0", "lowest", "494D0003 0BB96337 0BB96226 0BB90600"},
    {"setRideChannel", "12", "typical", "494D0003 0BB96337 0BB96226 0BB9060C"},
    {"setRideChannel", "127", "highest", "494D0003 0BB96337 0BB96226 0BB9067F"},
    {"setRideChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96226 0BB906C8"},
    {"setTomAuxChannel", "0", "lowest", "494D0003 0BB96337 0BB96227 0BB90600"},
    {"setTomAuxChannel", "13", "typical", "494D0003 0BB96337 0BB96227 0BB9060D"},
    {"setTomAuxChannel", "127", "highest", "494D0003 0BB96337 0BB96227 0BB9067F"},
    {"setTomAuxChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96227 0BB906C8"},
    {"setKitVolumeChannel", "0", "lowest", "494D0003 0BB96337 0BB96228 0BB90600"},
    {"setKitVolumeChannel", "14", "typical", "494D0003 0BB96337 0BB96228 0BB9060E"},
    {"setKitVolumeChannel", "127", "highest", "494D0003 0BB96337 0BB96228 0BB9067F"},
    {"setKitVolumeChannel", "200", "bit 7 kept", "494D0003 0BB96337 0BB96228 0BB906C8"},

    {"setProgramNumber", "5", "typical", "494D0001 0CC90500"},
    {"setProgramNumber", "0", "first", "494D0001 0CC90000"},
    {"setProgramNumber", "127", "last", "494D0001 0CC97F00"},
    {"setProgramNumber", "200", "not limited", "494D0001 0CC9C800"},

    // Header PW, two events and no value: naming the parameter is the command.
    {"sendPowerOff", "", "once", "50570002 0BB9634F 0BB96246"},
    {"sendPowerOff", "", "each call sends one", "50570002 0BB9634F 0BB96246", 2},
    {"sendPowerOff", "", "no limit on repetition", "50570002 0BB9634F 0BB96246", 5},

    // Two pairs of values of one parameter.
    {"setBluetoothSwitch", "true", "on", "494D0003 0BB96337 0BB96241 0BB90601"},
    {"setBluetoothSwitch", "false", "off", "494D0003 0BB96337 0BB96241 0BB90600"},
    {"setBluetoothSwitch", "5", "any number but 0 is on", "494D0003 0BB96337 0BB96241 0BB90601"},
    {"setBluetoothEnable", "true", "on", "494D0003 0BB96337 0BB96241 0BB90640"},
    {"setBluetoothEnable", "false", "off", "494D0003 0BB96337 0BB96241 0BB9063F"},
    {"setBluetoothEnable", "5", "any number but 0 is on", "494D0003 0BB96337 0BB96241 0BB90640"},
    {"setAutoOff", "30", "typical", "494D0003 0BB96337 0BB96242 0BB9061E"},
    {"setAutoOff", "0", "lowest", "494D0003 0BB96337 0BB96242 0BB90600"},
    {"setAutoOff", "127", "highest", "494D0003 0BB96337 0BB96242 0BB9067F"},
    {"setAutoOff", "255", "not limited", "494D0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "300", "low byte", "494D0003 0BB96337 0BB96242 0BB9062C"},
    {"setAutoOff", "-1", "negative", "494D0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "2147483647", "highest number", "494D0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "-2147483648", "lowest number", "494D0003 0BB96337 0BB96242 0BB90600"},
    {"setFixedHiHat", "true", "on", "494D0003 0BB96337 0BB96203 0BB90601"},
    {"setFixedHiHat", "false", "off", "494D0003 0BB96337 0BB96203 0BB90600"},
    {"setFixedHiHat", "5", "any number but 0 is on", "494D0003 0BB96337 0BB96203 0BB90601"},

    // Letters BN and 32 bytes; cut to 32 characters, filled with zeros.
    {"setBluetoothName", "\"Kit\"", "short",
     "424E 4B69740000000000 0000000000000000 "
     "0000000000000000 0000000000000000"},
    {"setBluetoothName", "\"\"", "empty",
     "424E 0000000000000000 0000000000000000 "
     "0000000000000000 0000000000000000"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcde\"", "one character below the limit",
     "424E 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646500"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcdef\"", "exactly the limit, no terminator",
     "424E 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646566"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcdef01234567\"", "cut to 32 characters",
     "424E 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646566"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> systemRows{rows};

} // namespace wire
} // namespace zelta
