#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Notes, SysEx messages, direct parameters, LEDs and the mix-input gain.
//
//   IM 0001 09993C64
//   |  |    | | | +- velocity 100
//   |  |    | | +--- note 60
//   |  |    | +----- status 99: note on, channel 10
//   |  |    +------- code index 09
//   |  +------------ one MIDI event
//   +--------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"sendMidiNote", "60, 100", "note on, then note off", "IM 0001 09993C64 | IM 0001 08893C00"},
    {"sendMidiNote", "60, 200", "velocity limited", "IM 0001 09993C7F | IM 0001 08893C00"},
    {"sendMidiNote", "0, 0", "lowest", "IM 0001 09990000 | IM 0001 08890000"},
    {"sendMidiNote", "127, 127", "highest", "IM 0001 09997F7F | IM 0001 08897F00"},
    {"sendMidiNote", "38, 128", "velocity limited from bit 7 on", "IM 0001 0999267F | IM 0001 08892600"},
    {"sendMidiNote", "255, 1", "tone not limited", "IM 0001 0999FF01 | IM 0001 0889FF00"},

    // The code index depends on the number of remaining values, so it does not always fit the event.
    {"sendSysEx", "[]", "empty", "IM 0001 05F0F700"},
    {"sendSysEx", "[0x01]", "one value", "IM 0001 06F001F7"},
    {"sendSysEx", "[0x01, 0x02]", "two values", "IM 0002 07F00102 05F70000"},
    {"sendSysEx", "[0x01, 0x02, 0x03]", "three values", "IM 0002 04F00102 0603F700"},
    {"sendSysEx", "[0x7E, 0x7F, 0x06, 0x01]", "four values", "IM 0002 04F07E7F 070601F7"},
    {"sendSysEx", "[0x01, 0x02, 0x03, 0x04, 0x05]", "five values", "IM 0003 04F00102 04030405 05F70000"},
    {"sendSysEx", "[0x01, 0x02, 0x03, 0x04, 0x05, 0x06]", "six values",
     "IM 0003 04F00102 04030405 0606F700"},
    {"sendSysEx", "[255, 256, 300, -1]", "low bytes", "IM 0002 04F0FF00 072CFFF7"},

    {"sendDirectNrpn", "55, 4, 1", "typical", "IM 0003 0BB96337 0BB96204 0BB90601"},
    {"sendDirectNrpn", "0, 0, 0", "lowest", "IM 0003 0BB96300 0BB96200 0BB90600"},
    {"sendDirectNrpn", "127, 127, 127", "highest", "IM 0003 0BB9637F 0BB9627F 0BB9067F"},
    {"sendDirectNrpn", "1, 2, 128", "value limited", "IM 0003 0BB96301 0BB96202 0BB9067F"},
    {"sendDirectNrpn", "200, 255, 255", "number not limited, value limited",
     "IM 0003 0BB963C8 0BB962FF 0BB9067F"},

    {"setLedEnabled", "3, true", "on", "LD 0003 0001"},
    {"setLedEnabled", "3, false", "off", "LD 0003 0000"},
    {"setLedEnabled", "0, true", "first", "LD 0000 0001"},
    {"setLedEnabled", "65535, true", "highest", "LD FFFF 0001"},
    {"setLedEnabled", "65539, true", "cut to 16 bits", "LD 0003 0001"},
    {"setLedEnabled", "-1, false", "negative", "LD FFFF 0000"},
    {"setLedEnabled", "0x1234, true", "high byte first", "LD 1234 0001"},
    {"setLedBrightness", "0", "lowest", "IM 0003 0BB96337 0BB96240 0BB90600"},
    {"setLedBrightness", "90", "typical", "IM 0003 0BB96337 0BB96240 0BB9065A"},
    {"setLedBrightness", "127", "highest", "IM 0003 0BB96337 0BB96240 0BB9067F"},
    {"setLedBrightness", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96240 0BB906C8"},

    {"sendMidiMixInputGain", "0", "lowest",
     "IM 0003 0BB9633C 0BB96221 0BB90600 | "
     "IM 0003 0BB9633F 0BB96221 0BB90600"},
    {"sendMidiMixInputGain", "64", "both inputs",
     "IM 0003 0BB9633C 0BB96221 0BB90640 | "
     "IM 0003 0BB9633F 0BB96221 0BB90640"},
    {"sendMidiMixInputGain", "127", "highest",
     "IM 0003 0BB9633C 0BB96221 0BB9067F | "
     "IM 0003 0BB9633F 0BB96221 0BB9067F"},
    {"sendMidiMixInputGain", "200", "bit 7 kept",
     "IM 0003 0BB9633C 0BB96221 0BB906C8 | "
     "IM 0003 0BB9633F 0BB96221 0BB906C8"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> directRows{rows};

} // namespace wire
} // namespace zelta
