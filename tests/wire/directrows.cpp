#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// Notes, SysEx and free parameters; LEDs and the mix-input gain.
// clang-format off
constexpr WireRow rows[] = {
    {"sendMidiNote", "60, 100", "note on, then note off", "494D0001 09993C64 | 494D0001 08893C00"},
    {"sendMidiNote", "60, 200", "velocity limited", "494D0001 09993C7F | 494D0001 08893C00"},
    {"sendMidiNote", "0, 0", "lowest", "494D0001 09990000 | 494D0001 08890000"},
    {"sendMidiNote", "127, 127", "highest", "494D0001 09997F7F | 494D0001 08897F00"},
    {"sendMidiNote", "38, 128", "velocity limited from bit 7 on", "494D0001 0999267F | 494D0001 08892600"},
    {"sendMidiNote", "255, 1", "tone not limited", "494D0001 0999FF01 | 494D0001 0889FF00"},

    // The code index looks at the number of values still to come, so it does not always fit the event.
    {"sendSysEx", "[]", "empty", "494D0001 05F0F700"},
    {"sendSysEx", "[0x01]", "one value", "494D0001 06F001F7"},
    {"sendSysEx", "[0x01, 0x02]", "two values", "494D0002 07F00102 05F70000"},
    {"sendSysEx", "[0x01, 0x02, 0x03]", "three values", "494D0002 04F00102 0603F700"},
    {"sendSysEx", "[0x7E, 0x7F, 0x06, 0x01]", "four values", "494D0002 04F07E7F 070601F7"},
    {"sendSysEx", "[0x01, 0x02, 0x03, 0x04, 0x05]", "five values", "494D0003 04F00102 04030405 05F70000"},
    {"sendSysEx", "[0x01, 0x02, 0x03, 0x04, 0x05, 0x06]", "six values",
     "494D0003 04F00102 04030405 0606F700"},
    {"sendSysEx", "[255, 256, 300, -1]", "low bytes", "494D0002 04F0FF00 072CFFF7"},

    {"sendDirectNrpn", "55, 4, 1", "typical", "494D0003 0BB96337 0BB96204 0BB90601"},
    {"sendDirectNrpn", "0, 0, 0", "lowest", "494D0003 0BB96300 0BB96200 0BB90600"},
    {"sendDirectNrpn", "127, 127, 127", "highest", "494D0003 0BB9637F 0BB9627F 0BB9067F"},
    {"sendDirectNrpn", "1, 2, 128", "value limited", "494D0003 0BB96301 0BB96202 0BB9067F"},
    {"sendDirectNrpn", "200, 255, 255", "number not limited, value limited",
     "494D0003 0BB963C8 0BB962FF 0BB9067F"},

    {"setLedEnabled", "3, true", "on", "4C44 0003 0001"},
    {"setLedEnabled", "3, false", "off", "4C44 0003 0000"},
    {"setLedEnabled", "0, true", "first", "4C44 0000 0001"},
    {"setLedEnabled", "65535, true", "highest", "4C44 FFFF 0001"},
    {"setLedEnabled", "65539, true", "cut to 16 bits", "4C44 0003 0001"},
    {"setLedEnabled", "-1, false", "negative", "4C44 FFFF 0000"},
    {"setLedEnabled", "0x1234, true", "high byte first", "4C44 1234 0001"},
    {"setLedBrightness", "0", "lowest", "494D0003 0BB96337 0BB96240 0BB90600"},
    {"setLedBrightness", "90", "typical", "494D0003 0BB96337 0BB96240 0BB9065A"},
    {"setLedBrightness", "127", "highest", "494D0003 0BB96337 0BB96240 0BB9067F"},
    {"setLedBrightness", "200", "bit 7 kept", "494D0003 0BB96337 0BB96240 0BB906C8"},

    {"sendMidiMixInputGain", "0", "lowest",
     "494D0003 0BB9633C 0BB96221 0BB90600 | "
     "494D0003 0BB9633F 0BB96221 0BB90600"},
    {"sendMidiMixInputGain", "64", "both inputs",
     "494D0003 0BB9633C 0BB96221 0BB90640 | "
     "494D0003 0BB9633F 0BB96221 0BB90640"},
    {"sendMidiMixInputGain", "127", "highest",
     "494D0003 0BB9633C 0BB96221 0BB9067F | "
     "494D0003 0BB9633F 0BB96221 0BB9067F"},
    {"sendMidiMixInputGain", "200", "bit 7 kept",
     "494D0003 0BB9633C 0BB96221 0BB906C8 | "
     "494D0003 0BB9633F 0BB96221 0BB906C8"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> directRows{rows};

} // namespace wire
} // namespace zelta
