#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// clang-format off
// Test commands and SysEx messages arrive as MIDI events with their bytes swapped in pairs:
//
//   IM AC B90B 1263
//   |  |  |    +--- value 12, controller 63: the high part of a test command
//   |  |  +-------- status B9 (control change), code index 0B
//   +--+----------- "IM", "AC": a MIDI event
//
// The controllers of these events are also reported as positions. testCommand() precedes the last positionChanged(),
// because the receive thread parses the datagram.
constexpr InboundRow rows[] = {
    {"test command", "IM AC B90B 1263 | IM AC B90B 3462 | IM AC B90B 5606",
     "positionChanged() | positionChanged() | testCommand(\"12\", \"34\", \"56\") | positionChanged()", "position=0x0656"},
    {"test command in lower-case hex", "IM AC B90B 7F63 | IM AC B90B 0A62 | IM AC B90B 7D06",
     "positionChanged() | positionChanged() | testCommand(\"7f\", \"0a\", \"7d\") | positionChanged()", "position=0x067D"},
    {"value without the other parts", "IM AC B90B 7806", "positionChanged()", "position=0x0678"},
    {"value alone after a test command", "IM AC B90B 7806", "positionChanged()", "position=0x0678",
     "IM AC B90B 1263 | IM AC B90B 3462 | IM AC B90B 5606"},

    {"SysEx", "IM AC F004 4110 | IM AC 1004 4212 | IM AC F705 0000",
     "sysEx(\"04f010410410124205f70000\")", ""},
    {"SysEx in one event", "IM AC F007 F77D", "", "", ""},
    {"SysEx ended by the next event", "IM AC 0005 00F7", "sysEx(\"07f07df70500f700\")", "", "IM AC F007 F77D"},
    {"end of SysEx across a byte boundary", "IM AC 0F70 0000", "sysEx(\"700f0000\")", ""},
    {"test command inside a SysEx is part of it",
     "IM AC F004 4110 | IM AC B90B 1263 | IM AC F705 0000",
     "positionChanged() | sysEx(\"04f010410bb9631205f70000\")", "position=0x6312"},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> messageRows{rows};

} // namespace inbound
} // namespace zelta
