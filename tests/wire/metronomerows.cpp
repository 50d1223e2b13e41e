#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// Metronome: page 0x37 but for click and click level, which are those of note 1, and the click routing.
// clang-format off
constexpr WireRow rows[] = {
    {"setMetronomeClick", "0", "lowest", "494D0003 0BB96317 0BB96201 0BB90600"},
    {"setMetronomeClick", "5", "typical", "494D0003 0BB96317 0BB96201 0BB90605"},
    {"setMetronomeClick", "127", "highest", "494D0003 0BB96317 0BB96201 0BB9067F"},
    {"setMetronomeClick", "200", "bit 7 kept", "494D0003 0BB96317 0BB96201 0BB906C8"},
    {"setMetronomeClickLevel", "0", "lowest", "494D0003 0BB9631A 0BB96201 0BB90600"},
    {"setMetronomeClickLevel", "80", "typical", "494D0003 0BB9631A 0BB96201 0BB90650"},
    {"setMetronomeClickLevel", "127", "highest", "494D0003 0BB9631A 0BB96201 0BB9067F"},
    {"setMetronomeClickLevel", "200", "bit 7 kept", "494D0003 0BB9631A 0BB96201 0BB906C8"},

    // From 20 in halves: the odd bit is bit 6 of the lower data byte, the rest the upper one.
    {"setMetronomeTempo", "120", "typical", "494D0004 0BB96337 0BB96264 0BB92600 0BB90632"},
    {"setMetronomeTempo", "121", "odd", "494D0004 0BB96337 0BB96264 0BB92640 0BB90632"},
    {"setMetronomeTempo", "20", "lowest", "494D0004 0BB96337 0BB96264 0BB92600 0BB90600"},
    {"setMetronomeTempo", "21", "lowest odd", "494D0004 0BB96337 0BB96264 0BB92640 0BB90600"},
    {"setMetronomeTempo", "273", "fast, odd", "494D0004 0BB96337 0BB96264 0BB92640 0BB9067E"},
    {"setMetronomeTempo", "274", "highest even", "494D0004 0BB96337 0BB96264 0BB92600 0BB9067F"},
    {"setMetronomeTempo", "275", "highest odd", "494D0004 0BB96337 0BB96264 0BB92640 0BB9067F"},
    {"setMetronomeTempo", "276", "bit 7 kept", "494D0004 0BB96337 0BB96264 0BB92600 0BB90680"},
    {"setMetronomeTempo", "532", "ninth bit lost", "494D0004 0BB96337 0BB96264 0BB92600 0BB90600"},
    {"setMetronomeTempo", "19", "wraps below 20", "494D0004 0BB96337 0BB96264 0BB92640 0BB906FF"},
    {"setMetronomeTempo", "18", "wraps below 20, even", "494D0004 0BB96337 0BB96264 0BB92600 0BB906FF"},
    {"setMetronomeTempo", "0", "wraps at 0", "494D0004 0BB96337 0BB96264 0BB92600 0BB906F6"},
    {"setMetronomeTempo", "65535", "highest number", "494D0004 0BB96337 0BB96264 0BB92640 0BB906F5"},

    {"setMetronomeTimeSignatureNum", "0", "lowest", "494D0003 0BB96337 0BB96265 0BB90600"},
    {"setMetronomeTimeSignatureNum", "7", "typical", "494D0003 0BB96337 0BB96265 0BB90607"},
    {"setMetronomeTimeSignatureNum", "127", "highest", "494D0003 0BB96337 0BB96265 0BB9067F"},
    {"setMetronomeTimeSignatureNum", "200", "bit 7 kept", "494D0003 0BB96337 0BB96265 0BB906C8"},
    {"setMetronomeTimeSignatureDen", "0", "lowest", "494D0003 0BB96337 0BB96266 0BB90600"},
    {"setMetronomeTimeSignatureDen", "8", "typical", "494D0003 0BB96337 0BB96266 0BB90608"},
    {"setMetronomeTimeSignatureDen", "127", "highest", "494D0003 0BB96337 0BB96266 0BB9067F"},
    {"setMetronomeTimeSignatureDen", "200", "bit 7 kept", "494D0003 0BB96337 0BB96266 0BB906C8"},
    {"setMetronomeInterval", "0", "lowest", "494D0003 0BB96337 0BB96267 0BB90600"},
    {"setMetronomeInterval", "3", "typical", "494D0003 0BB96337 0BB96267 0BB90603"},
    {"setMetronomeInterval", "127", "highest", "494D0003 0BB96337 0BB96267 0BB9067F"},
    {"setMetronomeInterval", "200", "bit 7 kept", "494D0003 0BB96337 0BB96267 0BB906C8"},
    {"setMetronomeActive", "true", "on", "494D0003 0BB96337 0BB96263 0BB90601"},
    {"setMetronomeActive", "false", "off", "494D0003 0BB96337 0BB96263 0BB90600"},
    {"setMetronomeActive", "5", "any number but 0 is on", "494D0003 0BB96337 0BB96263 0BB90601"},
    {"setMetronomeTap", "true", "on", "494D0003 0BB96337 0BB9626A 0BB90601"},
    {"setMetronomeTap", "false", "off", "494D0003 0BB96337 0BB9626A 0BB90600"},
    {"setMetronomeTap", "5", "any number but 0 is on", "494D0003 0BB96337 0BB9626A 0BB90601"},
    {"setMetronomeClickRouting", "2, 5", "low half first on the wire",
     "494D0004 0BB9630F 0BB96201 0BB92605 0BB90602"},
    {"setMetronomeClickRouting", "0, 0", "lowest", "494D0004 0BB9630F 0BB96201 0BB92600 0BB90600"},
    {"setMetronomeClickRouting", "127, 64", "typical", "494D0004 0BB9630F 0BB96201 0BB92640 0BB9067F"},
    {"setMetronomeClickRouting", "255, 128", "not masked", "494D0004 0BB9630F 0BB96201 0BB92680 0BB906FF"},
    {"setMetronomeTapNote1", "0", "lowest", "494D0003 0BB96337 0BB9626B 0BB90600"},
    {"setMetronomeTapNote1", "38", "typical", "494D0003 0BB96337 0BB9626B 0BB90626"},
    {"setMetronomeTapNote1", "127", "highest", "494D0003 0BB96337 0BB9626B 0BB9067F"},
    {"setMetronomeTapNote1", "200", "bit 7 kept", "494D0003 0BB96337 0BB9626B 0BB906C8"},
    {"setMetronomeTapNote2", "0", "lowest", "494D0003 0BB96337 0BB9626C 0BB90600"},
    {"setMetronomeTapNote2", "36", "typical", "494D0003 0BB96337 0BB9626C 0BB90624"},
    {"setMetronomeTapNote2", "127", "highest", "494D0003 0BB96337 0BB9626C 0BB9067F"},
    {"setMetronomeTapNote2", "200", "bit 7 kept", "494D0003 0BB96337 0BB9626C 0BB906C8"},
    {"setMetronomeAccent", "true", "on", "494D0003 0BB96337 0BB96268 0BB90601"},
    {"setMetronomeAccent", "false", "off", "494D0003 0BB96337 0BB96268 0BB90600"},
    {"setMetronomeAccent", "5", "any number but 0 is on", "494D0003 0BB96337 0BB96268 0BB90601"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> metronomeRows{rows};

} // namespace wire
} // namespace zelta
