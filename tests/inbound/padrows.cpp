#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// clang-format off
// A MIDI event with its bytes swapped in pairs:
//
//   IM AC 9909 6426
//   |  |  | |  | +- first data byte: note 38
//   |  |  | |  +--- second data byte: velocity 100
//   |  |  | +------ code index 09
//   |  |  +-------- status 99: note on, channel 10
//   +--+----------- "IM", "AC": a MIDI event
//
// A property for pads holds velocity or pressure, note, pad and zone, from the lowest byte up.
constexpr InboundRow rows[] = {
    {"strike of note 38 at 100", "IM AC 9909 6426", "noteChanged()", "note=0x00012664"},
    {"strike of note 53 at 1", "IM AC 9909 0135", "noteChanged()", "note=0x02063501"},
    {"strike of note 36 at 127", "IM AC 9909 7F24", "noteChanged()", "note=0x0000247F"},
    {"strike with velocity 0", "IM AC 9909 0026", "noteChanged()", "note=0x00012600"},
    {"strike with bit 7 in the velocity", "IM AC 9909 FF26", "noteChanged()", "note=0x000126FF"},
    {"same strike again", "IM AC 9909 6426", "noteChanged()", "", "IM AC 9909 6426"},
    {"same strike twice", "IM AC 9909 6426 | IM AC 9909 6426", "noteChanged() | noteChanged()",
     "note=0x00012664"},
    {"note 20 belongs to no pad", "IM AC 9909 6414", "", ""},
    {"note 60 belongs to no pad", "IM AC 9909 643C", "", ""},
    {"note 16 is below the pads", "IM AC 9909 6410", "", ""},
    {"note 96 is above the pads", "IM AC 9909 6460", "", ""},
    {"note 166, which is 38 with bit 7", "IM AC 9909 64A6", "", ""},

    {"pressure 127 on note 49", "IM AC A90A 7F31", "afterTouchNoteChanged()", "afterTouchNote=0x0408317F"},
    {"pressure 0 on note 49", "IM AC A90A 0031", "afterTouchNoteChanged()", "afterTouchNote=0x04083100"},
    {"same pressure again", "IM AC A90A 7F31", "", "", "IM AC A90A 7F31"},
    {"pressure released", "IM AC A90A 0031", "afterTouchNoteChanged()", "afterTouchNote=0x04083100",
     "IM AC A90A 7F31"},
    {"same pressure on the other zone", "IM AC A90A 7F37", "afterTouchNoteChanged()",
     "afterTouchNote=0x0408377F", "IM AC A90A 7F31"},
    {"pressure on a drum, note 38", "IM AC A90A 7F26", "", ""},
    {"pressure below the pads", "IM AC A90A 7F10", "", ""},
    {"pressure above the pads", "IM AC A90A 7F60", "", ""},

    {"pedal position", "IM AC B90B 4004", "positionChanged()", "position=0x0440"},
    {"pedal position, lowest", "IM AC B90B 0004", "positionChanged()", "position=0x0400"},
    {"controller 0 at 0 is the initial position", "IM AC B90B 0000", "", ""},
    {"position cut to seven bits", "IM AC B90B FF84", "positionChanged()", "position=0x047F"},
    {"controller cut to seven bits", "IM AC B90B 01FF", "positionChanged()", "position=0x7F01"},
    {"same position again", "IM AC B90B 4004", "", "", "IM AC B90B 4004"},
    {"same position except bit 7", "IM AC B90B C084", "", "", "IM AC B90B 4004"},
    {"same value of another controller", "IM AC B90B 4005", "positionChanged()", "position=0x0540",
     "IM AC B90B 4004"},

    {"program 5", "IM AC C90C 0005", "programChanged(5)", ""},
    {"program 0", "IM AC C90C 0000", "programChanged(0)", ""},
    {"program 127", "IM AC C90C 007F", "programChanged(127)", ""},
    {"program cut to seven bits", "IM AC C90C FF85", "programChanged(5)", ""},
    {"same program again", "IM AC C90C 0005", "programChanged(5)", "", "IM AC C90C 0005"},

    {"note off is ignored", "IM AC 8908 0026", "", ""},
    {"note on of channel 9", "IM AC 9809 6426", "", ""},
    {"note on of channel 11", "IM AC 9A09 6426", "", ""},
    {"note on with the bytes not swapped", "IM AC 0999 2664", "", ""},
    {"note on of another cable", "IM AC 9919 6426", "", ""},
    {"pressure of channel 9", "IM AC A80A 7F31", "", ""},
    {"controller of channel 9", "IM AC B80B 4004", "", ""},
    {"program of channel 9", "IM AC C80C 0005", "", ""},
    {"pitch bend is ignored", "IM AC E90E 4000", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> padRows{rows};

} // namespace inbound
} // namespace zelta
