#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// IM, AC, then a MIDI event with its bytes swapped in pairs: status, code index, second data byte, first data
// byte. A pad event holds velocity or pressure, note, pad and zone, from the lowest byte up.
// clang-format off
constexpr InboundRow rows[] = {
    {"strike of note 38 at 100", "494D 4143 9909 6426", "noteChanged()", "note=0x00012664"},
    {"strike of note 53 at 1", "494D 4143 9909 0135", "noteChanged()", "note=0x02063501"},
    {"strike of note 36 at 127", "494D 4143 9909 7F24", "noteChanged()", "note=0x0000247F"},
    {"strike with velocity 0", "494D 4143 9909 0026", "noteChanged()", "note=0x00012600"},
    {"strike with bit 7 in the velocity", "494D 4143 9909 FF26", "noteChanged()", "note=0x000126FF"},
    {"same strike again", "494D 4143 9909 6426", "noteChanged()", "", "494D 4143 9909 6426"},
    {"same strike twice", "494D 4143 9909 6426 | 494D 4143 9909 6426", "noteChanged() | noteChanged()",
     "note=0x00012664"},
    {"note 20 belongs to no pad", "494D 4143 9909 6414", "", ""},
    {"note 60 belongs to no pad", "494D 4143 9909 643C", "", ""},
    {"note 16 is below the pads", "494D 4143 9909 6410", "", ""},
    {"note 96 is above the pads", "494D 4143 9909 6460", "", ""},
    {"note 166, which is 38 with bit 7", "494D 4143 9909 64A6", "", ""},

    {"pressure 127 on note 49", "494D 4143 A90A 7F31", "afterTouchNoteChanged()", "afterTouchNote=0x0408317F"},
    {"pressure 0 on note 49", "494D 4143 A90A 0031", "afterTouchNoteChanged()", "afterTouchNote=0x04083100"},
    {"same pressure again", "494D 4143 A90A 7F31", "", "", "494D 4143 A90A 7F31"},
    {"pressure gone", "494D 4143 A90A 0031", "afterTouchNoteChanged()", "afterTouchNote=0x04083100",
     "494D 4143 A90A 7F31"},
    {"same pressure on the other zone", "494D 4143 A90A 7F37", "afterTouchNoteChanged()",
     "afterTouchNote=0x0408377F", "494D 4143 A90A 7F31"},
    {"pressure on a drum, note 38", "494D 4143 A90A 7F26", "", ""},
    {"pressure below the pads", "494D 4143 A90A 7F10", "", ""},
    {"pressure above the pads", "494D 4143 A90A 7F60", "", ""},

    {"pedal position", "494D 4143 B90B 4004", "positionChanged()", "position=0x0440"},
    {"pedal position, lowest", "494D 4143 B90B 0004", "positionChanged()", "position=0x0400"},
    {"position of controller 0 at 0 is the state at the start", "494D 4143 B90B 0000", "", ""},
    {"position cut to seven bits", "494D 4143 B90B FF84", "positionChanged()", "position=0x047F"},
    {"controller cut to seven bits", "494D 4143 B90B 01FF", "positionChanged()", "position=0x7F01"},
    {"same position again", "494D 4143 B90B 4004", "", "", "494D 4143 B90B 4004"},
    {"same position but for bit 7", "494D 4143 B90B C084", "", "", "494D 4143 B90B 4004"},
    {"same value of another controller", "494D 4143 B90B 4005", "positionChanged()", "position=0x0540",
     "494D 4143 B90B 4004"},

    {"program 5", "494D 4143 C90C 0005", "programChanged(5)", ""},
    {"program 0", "494D 4143 C90C 0000", "programChanged(0)", ""},
    {"program 127", "494D 4143 C90C 007F", "programChanged(127)", ""},
    {"program cut to seven bits", "494D 4143 C90C FF85", "programChanged(5)", ""},
    {"same program again", "494D 4143 C90C 0005", "programChanged(5)", "", "494D 4143 C90C 0005"},

    {"note off is ignored", "494D 4143 8908 0026", "", ""},
    {"note on of channel 9", "494D 4143 9809 6426", "", ""},
    {"note on of channel 11", "494D 4143 9A09 6426", "", ""},
    {"note on with the bytes not swapped", "494D 4143 0999 2664", "", ""},
    {"note on of another cable", "494D 4143 9919 6426", "", ""},
    {"pressure of channel 9", "494D 4143 A80A 7F31", "", ""},
    {"controller of channel 9", "494D 4143 B80B 4004", "", ""},
    {"program of channel 9", "494D 4143 C80C 0005", "", ""},
    {"pitch bend is ignored", "494D 4143 E90E 4000", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> padRows{rows};

} // namespace inbound
} // namespace zelta
