#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// Test commands and SysEx travel as MIDI events, so their controllers are positions as well; the message
// comes first, since it is recognised where the datagram is received.
// clang-format off
constexpr InboundRow rows[] = {
    {"test command", "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 5606",
     "positionChanged() | positionChanged() | testCommand(\"12\", \"34\", \"56\") | positionChanged()", "position=0x0656"},
    {"test command in small hex letters", "494D 4143 B90B 7F63 | 494D 4143 B90B 0A62 | 494D 4143 B90B 7D06",
     "positionChanged() | positionChanged() | testCommand(\"7f\", \"0a\", \"7d\") | positionChanged()", "position=0x067D"},
    {"value before the other parts", "494D 4143 B90B 7806", "positionChanged()", "position=0x0678"},
    {"value alone after a test command", "494D 4143 B90B 7806", "positionChanged()", "position=0x0678",
     "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 5606"},

    {"SysEx", "494D 4143 F004 4110 | 494D 4143 1004 4212 | 494D 4143 F705 0000",
     "sysEx(\"04f010410410124205f70000\")", ""},
    {"SysEx in one event", "494D 4143 F007 F77D", "", "", ""},
    {"SysEx ended by the next event", "494D 4143 0005 00F7", "sysEx(\"07f07df70500f700\")", "", "494D 4143 F007 F77D"},
    {"end of SysEx across a byte boundary", "494D 4143 0F70 0000", "sysEx(\"700f0000\")", ""},
    {"test command inside a SysEx belongs to it",
     "494D 4143 F004 4110 | 494D 4143 B90B 1263 | 494D 4143 F705 0000",
     "positionChanged() | sysEx(\"04f010410bb9631205f70000\")", "position=0x6312"},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> messageRows{rows};

} // namespace inbound
} // namespace zelta
