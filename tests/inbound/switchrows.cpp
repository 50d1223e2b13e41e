#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// clang-format off
// The state of a switch:
//
//   SW AC PW 0001
//   |  |  |  +--- pressed: any number except 0
//   |  |  +------ "PW": the power switch
//   +--+--------- "SW", "AC": the event of a switch
constexpr InboundRow rows[] = {
    {"power pressed", "SW AC PW 0001", "powerChanged()", "powerPressed=true"},
    {"foot 1 pressed", "SW AC F1 0001", "foot1Changed()", "foot1Pressed=true"},
    {"foot 2 pressed", "SW AC F2 0001", "foot2Changed()", "foot2Pressed=true"},
    {"aux 3 pressed", "SW AC A3 0001", "aux3Changed()", "aux3Pressed=true"},
    {"aux 4 pressed", "SW AC A4 0001", "aux4Changed()", "aux4Pressed=true"},
    {"headphones plugged in", "SW AC HP 0001", "hpDetectChanged()", "hpDetectPressed=true"},
    {"mix input plugged in", "SW AC MI 0001", "mixInDetectChanged()", "mixInDetectPressed=true"},
    {"home pressed", "SW AC HM 0001", "homeButtonChanged(0)", "homeButtonPressed=true"},

    {"power released", "SW AC PW 0000", "powerChanged()", "powerPressed=false", "SW AC PW 0001"},
    {"foot 1 released", "SW AC F1 0000", "foot1Changed()", "foot1Pressed=false", "SW AC F1 0001"},
    {"foot 2 released", "SW AC F2 0000", "foot2Changed()", "foot2Pressed=false", "SW AC F2 0001"},
    {"aux 3 released", "SW AC A3 0000", "aux3Changed()", "aux3Pressed=false", "SW AC A3 0001"},
    {"aux 4 released", "SW AC A4 0000", "aux4Changed()", "aux4Pressed=false", "SW AC A4 0001"},
    {"headphones unplugged", "SW AC HP 0000", "hpDetectChanged()", "hpDetectPressed=false", "SW AC HP 0001"},
    {"mix input unplugged", "SW AC MI 0000", "mixInDetectChanged()", "mixInDetectPressed=false",
     "SW AC MI 0001"},
    {"home released, the argument stays 0", "SW AC HM 0000", "homeButtonChanged(0)",
     "homeButtonPressed=false", "SW AC HM 0001"},

    {"power with value 5", "SW AC PW 0005", "powerChanged()", "powerPressed=true"},
    {"power with value 5 twice", "SW AC PW 0005 | SW AC PW 0005", "powerChanged()", "powerPressed=true"},
    {"power with another value while pressed", "SW AC PW 0001", "", "", "SW AC PW 0005"},
    {"power with the highest value", "SW AC PW FFFF", "powerChanged()", "powerPressed=true"},
    {"power with a high byte alone", "SW AC PW 0100", "powerChanged()", "powerPressed=true"},
    {"home with the highest value", "SW AC HM FFFF", "homeButtonChanged(0)", "homeButtonPressed=true"},

    {"power pressed again", "SW AC PW 0001", "", "", "SW AC PW 0001"},
    {"foot 1 pressed again", "SW AC F1 0001", "", "", "SW AC F1 0001"},
    {"foot 2 pressed again", "SW AC F2 0001", "", "", "SW AC F2 0001"},
    {"aux 3 pressed again", "SW AC A3 0001", "", "", "SW AC A3 0001"},
    {"aux 4 pressed again", "SW AC A4 0001", "", "", "SW AC A4 0001"},
    {"headphones plugged in again", "SW AC HP 0001", "", "", "SW AC HP 0001"},
    {"mix input plugged in again", "SW AC MI 0001", "", "", "SW AC MI 0001"},
    {"home pressed again", "SW AC HM 0001", "", "", "SW AC HM 0001"},
    {"power released before it was pressed", "SW AC PW 0000", "", ""},
    {"home released before it was pressed", "SW AC HM 0000", "", ""},

    {"press and release", "SW AC F1 0001 | SW AC F1 0000", "foot1Changed() | foot1Changed()", ""},
    {"two switches", "SW AC F2 0001 | SW AC F1 0001", "foot2Changed() | foot1Changed()",
     "foot1Pressed=true | foot2Pressed=true"},
    {"a switch while another is held", "SW AC A4 0001", "aux4Changed()", "aux4Pressed=true",
     "SW AC A3 0001"},

    {"unknown switch A5", "SW AC 4135 0001", "", ""},
    {"unknown switch 0", "SW AC 0000 0001", "", ""},
    {"highest switch number", "SW AC FFFF 0001", "", ""},
    {"power in lower case", "SW AC 7077 0001", "", ""},
    {"power with its letters swapped", "SW AC 5750 0001", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> switchRows{rows};

} // namespace inbound
} // namespace zelta
