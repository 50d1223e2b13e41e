#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// Eight bytes: two letters for the kind, AC, two words.
// clang-format off
constexpr InboundRow rows[] = {
    // BT: beat of the metronome in the first word.
    {"beat", "4254 4143 0001 0000", "beatChanged()", "beat=1"},
    {"beat, second word not looked at", "4254 4143 0003 FFFF", "beatChanged()", "beat=3"},
    {"beat, highest", "4254 4143 FFFF 0000", "beatChanged()", "beat=65535"},
    {"beat 0 is dropped", "4254 4143 0000 0001", "", ""},
    {"beat 0 after another", "4254 4143 0000 0000", "", "", "4254 4143 0002 0000"},
    {"same beat again", "4254 4143 0002 0000", "", "", "4254 4143 0002 0000"},
    {"next beats", "4254 4143 0003 0000 | 4254 4143 0004 0000", "beatChanged() | beatChanged()", "beat=4",
     "4254 4143 0002 0000"},

    // TM: tempo in the first word.
    {"tempo", "544D 4143 0078 0000", "tempoChanged()", "tempo=120"},
    {"tempo, second word not looked at", "544D 4143 0014 1234", "tempoChanged()", "tempo=20"},
    {"tempo, highest", "544D 4143 FFFF 0000", "tempoChanged()", "tempo=65535"},
    {"tempo 0 is dropped", "544D 4143 0000 0000", "", ""},
    {"tempo 0 after another", "544D 4143 0000 0000", "", "", "544D 4143 0078 0000"},
    {"same tempo again", "544D 4143 0078 0000", "", "", "544D 4143 0078 0000"},
    {"another tempo", "544D 4143 0079 0000", "tempoChanged()", "tempo=121", "544D 4143 0078 0000"},

    // FR: both words make the total in 16-bit words, the second alone the samples' blocks of 128 KiB.
    {"flash sizes", "4652 4143 0001 0002", "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()",
     "flashSize=262144 | totalFlashSize=131076"},
    {"flash sizes, same again", "4652 4143 0001 0002", "", "", "4652 4143 0001 0002"},
    {"flash sizes, total alone", "4652 4143 0002 0002", "totalSampleFlashSizeChanged()", "totalFlashSize=262148",
     "4652 4143 0001 0002"},
    {"flash sizes, highest bit of the block count lost", "4652 4143 0000 8001", "totalSampleFlashSizeChanged()",
     "totalFlashSize=65538", "4652 4143 0000 0001"},
    {"flash sizes, highest bit of the total lost", "4652 4143 8000 0002", "", "", "4652 4143 0000 0002"},
    {"flash sizes, largest", "4652 4143 FFFF FFFF", "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()",
     "flashSize=4294836224 | totalFlashSize=4294967294"},
    {"flash sizes, overflow in 32 bits", "4652 4143 8000 FFFF",
     "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()", "flashSize=4294836224 | totalFlashSize=131070"},
    {"flash sizes back to nothing", "4652 4143 0000 0000",
     "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()", "flashSize=0 | totalFlashSize=0",
     "4652 4143 0001 0002"},
    {"flash sizes of nothing at the start", "4652 4143 0000 0000", "", ""},

    // CO: number of the pot, then 0 for a step down or anything else for a step up.
    {"pot 0 up", "434F 4143 0000 0001", "triggerPot0Inc()", ""},
    {"pot 1 up", "434F 4143 0001 0001", "triggerPot1Inc()", ""},
    {"pot 2 up", "434F 4143 0002 0001", "triggerPot2Inc()", ""},
    {"pot 3 up", "434F 4143 0003 0001", "triggerPot3Inc()", ""},
    {"pot 0 down", "434F 4143 0000 0000", "triggerPot0Dec()", ""},
    {"pot 1 down", "434F 4143 0001 0000", "triggerPot1Dec()", ""},
    {"pot 2 down", "434F 4143 0002 0000", "triggerPot2Dec()", ""},
    {"pot 3 down", "434F 4143 0003 0000", "triggerPot3Dec()", ""},
    {"pot 0 up by the highest number", "434F 4143 0000 FFFF", "triggerPot0Inc()", ""},
    {"pot 3 up, high byte alone", "434F 4143 0003 0100", "triggerPot3Inc()", ""},
    {"pot 2 up twice", "434F 4143 0002 0001 | 434F 4143 0002 0001", "triggerPot2Inc() | triggerPot2Inc()", ""},
    {"pot 1 down after up", "434F 4143 0001 0000", "triggerPot1Dec()", "", "434F 4143 0001 0001"},
    {"no pot 4", "434F 4143 0004 0001", "", ""},
    {"no pot 4, down", "434F 4143 0004 0000", "", ""},
    {"no pot 256", "434F 4143 0100 0001", "", ""},
    {"no pot 65535", "434F 4143 FFFF 0001", "", ""},

    // Whatever is of no kind above goes on untouched.
    {"AB is passed on", "4142 4143 0001 0002", "udpPacketArrived(16706, 1, 2)", ""},
    {"AB with the highest words", "4142 4143 FFFF FFFE", "udpPacketArrived(16706, 65535, 65534)", ""},
    {"AB twice", "4142 4143 0001 0002 | 4142 4143 0001 0002",
     "udpPacketArrived(16706, 1, 2) | udpPacketArrived(16706, 1, 2)", ""},
    {"kind 0 is passed on", "0000 4143 0000 0000", "udpPacketArrived(0, 0, 0)", ""},
    {"highest kind is passed on", "FFFF 4143 0102 0304", "udpPacketArrived(65535, 258, 772)", ""},
    {"RF, the flash sizes' letters swapped", "5246 4143 0001 0002", "udpPacketArrived(21062, 1, 2)", ""},
    {"tm in small letters", "746D 4143 0078 0000", "udpPacketArrived(29805, 120, 0)", ""},
    {"CR in an event's length", "4352 4143 0000 0046", "udpPacketArrived(17234, 0, 70)", ""},
    {"DR in an event's length", "4452 4143 0046 0046", "udpPacketArrived(17490, 70, 70)", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> eventRows{rows};

} // namespace inbound
} // namespace zelta
