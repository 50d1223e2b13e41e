#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// Eight bytes: SW, AC, two letters for the switch, its state.
// clang-format off
constexpr InboundRow rows[] = {
    {"power pressed", "5357 4143 5057 0001", "powerChanged()", "powerPressed=true"},
    {"foot 1 pressed", "5357 4143 4631 0001", "foot1Changed()", "foot1Pressed=true"},
    {"foot 2 pressed", "5357 4143 4632 0001", "foot2Changed()", "foot2Pressed=true"},
    {"aux 3 pressed", "5357 4143 4133 0001", "aux3Changed()", "aux3Pressed=true"},
    {"aux 4 pressed", "5357 4143 4134 0001", "aux4Changed()", "aux4Pressed=true"},
    {"headphones plugged in", "5357 4143 4850 0001", "hpDetectChanged()", "hpDetectPressed=true"},
    {"mix input plugged in", "5357 4143 4D49 0001", "mixInDetectChanged()", "mixInDetectPressed=true"},
    {"home pressed", "5357 4143 484D 0001", "homeButtonChanged(0)", "homeButtonPressed=true"},

    {"power released", "5357 4143 5057 0000", "powerChanged()", "powerPressed=false", "5357 4143 5057 0001"},
    {"foot 1 released", "5357 4143 4631 0000", "foot1Changed()", "foot1Pressed=false", "5357 4143 4631 0001"},
    {"foot 2 released", "5357 4143 4632 0000", "foot2Changed()", "foot2Pressed=false", "5357 4143 4632 0001"},
    {"aux 3 released", "5357 4143 4133 0000", "aux3Changed()", "aux3Pressed=false", "5357 4143 4133 0001"},
    {"aux 4 released", "5357 4143 4134 0000", "aux4Changed()", "aux4Pressed=false", "5357 4143 4134 0001"},
    {"headphones gone", "5357 4143 4850 0000", "hpDetectChanged()", "hpDetectPressed=false", "5357 4143 4850 0001"},
    {"mix input gone", "5357 4143 4D49 0000", "mixInDetectChanged()", "mixInDetectPressed=false",
     "5357 4143 4D49 0001"},
    {"home released, the argument stays 0", "5357 4143 484D 0000", "homeButtonChanged(0)",
     "homeButtonPressed=false", "5357 4143 484D 0001"},

    {"power with value 5", "5357 4143 5057 0005", "powerChanged()", "powerPressed=true"},
    {"power with value 5 twice", "5357 4143 5057 0005 | 5357 4143 5057 0005", "powerChanged()", "powerPressed=true"},
    {"power with another value while pressed", "5357 4143 5057 0001", "", "", "5357 4143 5057 0005"},
    {"power with the highest value", "5357 4143 5057 FFFF", "powerChanged()", "powerPressed=true"},
    {"power with a high byte alone", "5357 4143 5057 0100", "powerChanged()", "powerPressed=true"},
    {"home with the highest value", "5357 4143 484D FFFF", "homeButtonChanged(0)", "homeButtonPressed=true"},

    {"power pressed again", "5357 4143 5057 0001", "", "", "5357 4143 5057 0001"},
    {"foot 1 pressed again", "5357 4143 4631 0001", "", "", "5357 4143 4631 0001"},
    {"foot 2 pressed again", "5357 4143 4632 0001", "", "", "5357 4143 4632 0001"},
    {"aux 3 pressed again", "5357 4143 4133 0001", "", "", "5357 4143 4133 0001"},
    {"aux 4 pressed again", "5357 4143 4134 0001", "", "", "5357 4143 4134 0001"},
    {"headphones plugged in again", "5357 4143 4850 0001", "", "", "5357 4143 4850 0001"},
    {"mix input plugged in again", "5357 4143 4D49 0001", "", "", "5357 4143 4D49 0001"},
    {"home pressed again", "5357 4143 484D 0001", "", "", "5357 4143 484D 0001"},
    {"power released before it was pressed", "5357 4143 5057 0000", "", ""},
    {"home released before it was pressed", "5357 4143 484D 0000", "", ""},

    {"press and release", "5357 4143 4631 0001 | 5357 4143 4631 0000", "foot1Changed() | foot1Changed()", ""},
    {"two switches", "5357 4143 4632 0001 | 5357 4143 4631 0001", "foot2Changed() | foot1Changed()",
     "foot1Pressed=true | foot2Pressed=true"},
    {"a switch while another is held", "5357 4143 4134 0001", "aux4Changed()", "aux4Pressed=true",
     "5357 4143 4133 0001"},

    {"unknown switch A5", "5357 4143 4135 0001", "", ""},
    {"unknown switch 0", "5357 4143 0000 0001", "", ""},
    {"highest switch number", "5357 4143 FFFF 0001", "", ""},
    {"power in small letters", "5357 4143 7077 0001", "", ""},
    {"power with its letters swapped", "5357 4143 5750 0001", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> switchRows{rows};

} // namespace inbound
} // namespace zelta
