#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// MIDI set-up, program change and the module's switches.
//
//   IM 0003 0BB96337 0BB96222 0BB90601
//   |  |    |        |        +-------- controller 06, value 1
//   |  |    |        +----------------- controller 62, parameter 0x22: MIDI input
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x37
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setMidiInput", "0", "lowest", "IM 0003 0BB96337 0BB96222 0BB90600"},
    {"setMidiInput", "1", "typical", "IM 0003 0BB96337 0BB96222 0BB90601"},
    {"setMidiInput", "127", "highest", "IM 0003 0BB96337 0BB96222 0BB9067F"},
    {"setMidiInput", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96222 0BB906C8"},
    {"setLocalControl", "0", "lowest", "IM 0003 0BB96337 0BB96221 0BB90600"},
    {"setLocalControl", "1", "typical", "IM 0003 0BB96337 0BB96221 0BB90601"},
    {"setLocalControl", "127", "highest", "IM 0003 0BB96337 0BB96221 0BB9067F"},
    {"setLocalControl", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96221 0BB906C8"},
    {"setUsbMidi", "0", "lowest", "IM 0003 0BB96337 0BB96223 0BB90600"},
    {"setUsbMidi", "1", "typical", "IM 0003 0BB96337 0BB96223 0BB90601"},
    {"setUsbMidi", "127", "highest", "IM 0003 0BB96337 0BB96223 0BB9067F"},
    {"setUsbMidi", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96223 0BB906C8"},
    {"setMidiChannel", "0", "lowest", "IM 0003 0BB96337 0BB96220 0BB90600"},
    {"setMidiChannel", "9", "typical", "IM 0003 0BB96337 0BB96220 0BB90609"},
    {"setMidiChannel", "127", "highest", "IM 0003 0BB96337 0BB96220 0BB9067F"},
    {"setMidiChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96220 0BB906C8"},
    {"setHiHatPedalChannel", "0", "lowest", "IM 0003 0BB96337 0BB96224 0BB90600"},
    {"setHiHatPedalChannel", "10", "typical", "IM 0003 0BB96337 0BB96224 0BB9060A"},
    {"setHiHatPedalChannel", "127", "highest", "IM 0003 0BB96337 0BB96224 0BB9067F"},
    {"setHiHatPedalChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96224 0BB906C8"},
    {"setSnareChannel", "0", "lowest", "IM 0003 0BB96337 0BB96225 0BB90600"},
    {"setSnareChannel", "9", "typical", "IM 0003 0BB96337 0BB96225 0BB90609"},
    {"setSnareChannel", "127", "highest", "IM 0003 0BB96337 0BB96225 0BB9067F"},
    {"setSnareChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96225 0BB906C8"},
    {"setRideChannel", "0", "lowest", "IM 0003 0BB96337 0BB96226 0BB90600"},
    {"setRideChannel", "12", "typical", "IM 0003 0BB96337 0BB96226 0BB9060C"},
    {"setRideChannel", "127", "highest", "IM 0003 0BB96337 0BB96226 0BB9067F"},
    {"setRideChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96226 0BB906C8"},
    {"setTomAuxChannel", "0", "lowest", "IM 0003 0BB96337 0BB96227 0BB90600"},
    {"setTomAuxChannel", "13", "typical", "IM 0003 0BB96337 0BB96227 0BB9060D"},
    {"setTomAuxChannel", "127", "highest", "IM 0003 0BB96337 0BB96227 0BB9067F"},
    {"setTomAuxChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96227 0BB906C8"},
    {"setKitVolumeChannel", "0", "lowest", "IM 0003 0BB96337 0BB96228 0BB90600"},
    {"setKitVolumeChannel", "14", "typical", "IM 0003 0BB96337 0BB96228 0BB9060E"},
    {"setKitVolumeChannel", "127", "highest", "IM 0003 0BB96337 0BB96228 0BB9067F"},
    {"setKitVolumeChannel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96228 0BB906C8"},

    {"setProgramNumber", "5", "typical", "IM 0001 0CC90500"},
    {"setProgramNumber", "0", "first", "IM 0001 0CC90000"},
    {"setProgramNumber", "127", "last", "IM 0001 0CC97F00"},
    {"setProgramNumber", "200", "not limited", "IM 0001 0CC9C800"},

    // Tag PW, two events and no value: the parameter itself is the command.
    {"sendPowerOff", "", "once", "PW 0002 0BB9634F 0BB96246"},
    {"sendPowerOff", "", "each call sends one", "PW 0002 0BB9634F 0BB96246", 2},
    {"sendPowerOff", "", "no limit on repetition", "PW 0002 0BB9634F 0BB96246", 5},

    // Two pairs of values for one parameter.
    {"setBluetoothSwitch", "true", "on", "IM 0003 0BB96337 0BB96241 0BB90601"},
    {"setBluetoothSwitch", "false", "off", "IM 0003 0BB96337 0BB96241 0BB90600"},
    {"setBluetoothSwitch", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB96241 0BB90601"},
    {"setBluetoothEnable", "true", "on", "IM 0003 0BB96337 0BB96241 0BB90640"},
    {"setBluetoothEnable", "false", "off", "IM 0003 0BB96337 0BB96241 0BB9063F"},
    {"setBluetoothEnable", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB96241 0BB90640"},
    {"setAutoOff", "30", "typical", "IM 0003 0BB96337 0BB96242 0BB9061E"},
    {"setAutoOff", "0", "lowest", "IM 0003 0BB96337 0BB96242 0BB90600"},
    {"setAutoOff", "127", "highest", "IM 0003 0BB96337 0BB96242 0BB9067F"},
    {"setAutoOff", "255", "not limited", "IM 0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "300", "low byte", "IM 0003 0BB96337 0BB96242 0BB9062C"},
    {"setAutoOff", "-1", "negative", "IM 0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "2147483647", "highest number", "IM 0003 0BB96337 0BB96242 0BB906FF"},
    {"setAutoOff", "-2147483648", "lowest number", "IM 0003 0BB96337 0BB96242 0BB90600"},
    {"setFixedHiHat", "true", "on", "IM 0003 0BB96337 0BB96203 0BB90601"},
    {"setFixedHiHat", "false", "off", "IM 0003 0BB96337 0BB96203 0BB90600"},
    {"setFixedHiHat", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB96203 0BB90601"},

    // Tag BN and 32 bytes: cut to 32 characters, padded with zeros.
    {"setBluetoothName", "\"Kit\"", "short",
     "BN 4B69740000000000 0000000000000000 "
     "0000000000000000 0000000000000000"},
    {"setBluetoothName", "\"\"", "empty",
     "BN 0000000000000000 0000000000000000 "
     "0000000000000000 0000000000000000"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcde\"", "one character below the limit",
     "BN 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646500"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcdef\"", "exactly the limit, no terminator",
     "BN 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646566"},
    {"setBluetoothName", "\"0123456789abcdef0123456789abcdef01234567\"", "cut to 32 characters",
     "BN 3031323334353637 3839616263646566 "
     "3031323334353637 3839616263646566"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> systemRows{rows};

} // namespace wire
} // namespace zelta
