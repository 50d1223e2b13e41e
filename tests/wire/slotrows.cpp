#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Commands for sample slots and memory.
//
//   IM 0003 0BB9633D 0BB96270 0BB90605
//   |  |    |        |        +-------- controller 06, slot 5
//   |  |    |        +----------------- controller 62, parameter 0x70: delete an imported bank
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x3D: memory
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"deleteIsSlot", "0", "lowest", "IM 0003 0BB9633D 0BB96270 0BB90600"},
    {"deleteIsSlot", "5", "typical", "IM 0003 0BB9633D 0BB96270 0BB90605"},
    {"deleteIsSlot", "127", "highest", "IM 0003 0BB9633D 0BB96270 0BB9067F"},
    {"deleteIsSlot", "200", "bit 7 kept", "IM 0003 0BB9633D 0BB96270 0BB906C8"},
    {"deleteIwSlot", "0", "lowest", "IM 0003 0BB9633D 0BB96271 0BB90600"},
    {"deleteIwSlot", "5", "typical", "IM 0003 0BB9633D 0BB96271 0BB90605"},
    {"deleteIwSlot", "127", "highest", "IM 0003 0BB9633D 0BB96271 0BB9067F"},
    {"deleteIwSlot", "200", "bit 7 kept", "IM 0003 0BB9633D 0BB96271 0BB906C8"},
    {"requestIsSlotInfo", "0", "lowest", "IM 0003 0BB9633D 0BB96200 0BB90600"},
    {"requestIsSlotInfo", "5", "typical", "IM 0003 0BB9633D 0BB96200 0BB90605"},
    {"requestIsSlotInfo", "127", "highest", "IM 0003 0BB9633D 0BB96200 0BB9067F"},
    {"requestIsSlotInfo", "200", "bit 7 kept", "IM 0003 0BB9633D 0BB96200 0BB906C8"},
    {"requestIwSlotInfo", "0", "lowest", "IM 0003 0BB9633D 0BB96201 0BB90600"},
    {"requestIwSlotInfo", "5", "typical", "IM 0003 0BB9633D 0BB96201 0BB90605"},
    {"requestIwSlotInfo", "127", "highest", "IM 0003 0BB9633D 0BB96201 0BB9067F"},
    {"requestIwSlotInfo", "200", "bit 7 kept", "IM 0003 0BB9633D 0BB96201 0BB906C8"},

    {"deleteAllSlots", "", "once", "IM 0003 0BB9633D 0BB9627F 0BB9067E"},
    {"deleteAllSlots", "", "each call sends one", "IM 0003 0BB9633D 0BB9627F 0BB9067E", 2},
    {"deleteAllSlots", "", "no limit on repetition", "IM 0003 0BB9633D 0BB9627F 0BB9067E", 5},
    {"requestMemInfo", "", "once", "IM 0003 0BB9633D 0BB9620F 0BB90600"},
    {"requestMemInfo", "", "each call sends one", "IM 0003 0BB9633D 0BB9620F 0BB90600", 2},
    {"requestMemInfo", "", "no limit on repetition", "IM 0003 0BB9633D 0BB9620F 0BB90600", 5},
    {"deepErase", "", "once", "IM 0003 0BB96337 0BB96256 0BB90678"},
    {"deepErase", "", "each call sends one", "IM 0003 0BB96337 0BB96256 0BB90678", 2},
    {"deepErase", "", "no limit on repetition", "IM 0003 0BB96337 0BB96256 0BB90678", 5},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> slotRows{rows};

} // namespace wire
} // namespace zelta
