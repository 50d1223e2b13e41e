#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Metronome: page 0x37, except the click and its level, which are settings of note 1, and the click routing.
//
//   IM 0003 0BB96337 0BB96265 0BB90604
//   |  |    |        |        +-------- controller 06, value 4
//   |  |    |        +----------------- controller 62, parameter 0x65: numerator of the time signature
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x37
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setMetronomeClick", "0", "lowest", "IM 0003 0BB96317 0BB96201 0BB90600"},
    {"setMetronomeClick", "5", "typical", "IM 0003 0BB96317 0BB96201 0BB90605"},
    {"setMetronomeClick", "127", "highest", "IM 0003 0BB96317 0BB96201 0BB9067F"},
    {"setMetronomeClick", "200", "bit 7 kept", "IM 0003 0BB96317 0BB96201 0BB906C8"},
    {"setMetronomeClickLevel", "0", "lowest", "IM 0003 0BB9631A 0BB96201 0BB90600"},
    {"setMetronomeClickLevel", "80", "typical", "IM 0003 0BB9631A 0BB96201 0BB90650"},
    {"setMetronomeClickLevel", "127", "highest", "IM 0003 0BB9631A 0BB96201 0BB9067F"},
    {"setMetronomeClickLevel", "200", "bit 7 kept", "IM 0003 0BB9631A 0BB96201 0BB906C8"},

    // (tempo - 20) / 2 is the upper data byte. The remainder is bit 6 of the lower one.
    {"setMetronomeTempo", "120", "typical", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90632"},
    {"setMetronomeTempo", "121", "odd", "IM 0004 0BB96337 0BB96264 0BB92640 0BB90632"},
    {"setMetronomeTempo", "20", "lowest", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90600"},
    {"setMetronomeTempo", "21", "lowest odd", "IM 0004 0BB96337 0BB96264 0BB92640 0BB90600"},
    {"setMetronomeTempo", "273", "fast, odd", "IM 0004 0BB96337 0BB96264 0BB92640 0BB9067E"},
    {"setMetronomeTempo", "274", "highest even", "IM 0004 0BB96337 0BB96264 0BB92600 0BB9067F"},
    {"setMetronomeTempo", "275", "highest odd", "IM 0004 0BB96337 0BB96264 0BB92640 0BB9067F"},
    {"setMetronomeTempo", "276", "bit 7 kept", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90680"},
    {"setMetronomeTempo", "532", "ninth bit lost", "IM 0004 0BB96337 0BB96264 0BB92600 0BB90600"},
    {"setMetronomeTempo", "19", "wraps below 20", "IM 0004 0BB96337 0BB96264 0BB92640 0BB906FF"},
    {"setMetronomeTempo", "18", "wraps below 20, even", "IM 0004 0BB96337 0BB96264 0BB92600 0BB906FF"},
    {"setMetronomeTempo", "0", "wraps at 0", "IM 0004 0BB96337 0BB96264 0BB92600 0BB906F6"},
    {"setMetronomeTempo", "65535", "highest number", "IM 0004 0BB96337 0BB96264 0BB92640 0BB906F5"},

    {"setMetronomeTimeSignatureNum", "0", "lowest", "IM 0003 0BB96337 0BB96265 0BB90600"},
    {"setMetronomeTimeSignatureNum", "7", "typical", "IM 0003 0BB96337 0BB96265 0BB90607"},
    {"setMetronomeTimeSignatureNum", "127", "highest", "IM 0003 0BB96337 0BB96265 0BB9067F"},
    {"setMetronomeTimeSignatureNum", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96265 0BB906C8"},
    {"setMetronomeTimeSignatureDen", "0", "lowest", "IM 0003 0BB96337 0BB96266 0BB90600"},
    {"setMetronomeTimeSignatureDen", "8", "typical", "IM 0003 0BB96337 0BB96266 0BB90608"},
    {"setMetronomeTimeSignatureDen", "127", "highest", "IM 0003 0BB96337 0BB96266 0BB9067F"},
    {"setMetronomeTimeSignatureDen", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96266 0BB906C8"},
    {"setMetronomeInterval", "0", "lowest", "IM 0003 0BB96337 0BB96267 0BB90600"},
    {"setMetronomeInterval", "3", "typical", "IM 0003 0BB96337 0BB96267 0BB90603"},
    {"setMetronomeInterval", "127", "highest", "IM 0003 0BB96337 0BB96267 0BB9067F"},
    {"setMetronomeInterval", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96267 0BB906C8"},
    {"setMetronomeActive", "true", "on", "IM 0003 0BB96337 0BB96263 0BB90601"},
    {"setMetronomeActive", "false", "off", "IM 0003 0BB96337 0BB96263 0BB90600"},
    {"setMetronomeActive", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB96263 0BB90601"},
    {"setMetronomeTap", "true", "on", "IM 0003 0BB96337 0BB9626A 0BB90601"},
    {"setMetronomeTap", "false", "off", "IM 0003 0BB96337 0BB9626A 0BB90600"},
    {"setMetronomeTap", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB9626A 0BB90601"},
    {"setMetronomeClickRouting", "2, 5", "low half first on the wire",
     "IM 0004 0BB9630F 0BB96201 0BB92605 0BB90602"},
    {"setMetronomeClickRouting", "0, 0", "lowest", "IM 0004 0BB9630F 0BB96201 0BB92600 0BB90600"},
    {"setMetronomeClickRouting", "127, 64", "typical", "IM 0004 0BB9630F 0BB96201 0BB92640 0BB9067F"},
    {"setMetronomeClickRouting", "255, 128", "not masked", "IM 0004 0BB9630F 0BB96201 0BB92680 0BB906FF"},
    {"setMetronomeTapNote1", "0", "lowest", "IM 0003 0BB96337 0BB9626B 0BB90600"},
    {"setMetronomeTapNote1", "38", "typical", "IM 0003 0BB96337 0BB9626B 0BB90626"},
    {"setMetronomeTapNote1", "127", "highest", "IM 0003 0BB96337 0BB9626B 0BB9067F"},
    {"setMetronomeTapNote1", "200", "bit 7 kept", "IM 0003 0BB96337 0BB9626B 0BB906C8"},
    {"setMetronomeTapNote2", "0", "lowest", "IM 0003 0BB96337 0BB9626C 0BB90600"},
    {"setMetronomeTapNote2", "36", "typical", "IM 0003 0BB96337 0BB9626C 0BB90624"},
    {"setMetronomeTapNote2", "127", "highest", "IM 0003 0BB96337 0BB9626C 0BB9067F"},
    {"setMetronomeTapNote2", "200", "bit 7 kept", "IM 0003 0BB96337 0BB9626C 0BB906C8"},
    {"setMetronomeAccent", "true", "on", "IM 0003 0BB96337 0BB96268 0BB90601"},
    {"setMetronomeAccent", "false", "off", "IM 0003 0BB96337 0BB96268 0BB90600"},
    {"setMetronomeAccent", "5", "any number but 0 is on", "IM 0003 0BB96337 0BB96268 0BB90601"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> metronomeRows{rows};

} // namespace wire
} // namespace zelta
