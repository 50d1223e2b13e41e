#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// clang-format off
// An event has eight bytes: two tags and two 16-bit numbers, the high byte first.
//
//   BT AC 0003 0000
//   |  |  |    +--- second number, not used by this event
//   |  |  +-------- first number: beat 3
//   |  +----------- "AC": an event
//   +-------------- "BT": the beat of the metronome
constexpr InboundRow rows[] = {
    // BT: the first number is the beat of the metronome.
    {"beat", "BT AC 0001 0000", "beatChanged()", "beat=1"},
    {"beat, second number ignored", "BT AC 0003 FFFF", "beatChanged()", "beat=3"},
    {"beat, highest", "BT AC FFFF 0000", "beatChanged()", "beat=65535"},
    {"beat 0 is ignored", "BT AC 0000 0001", "", ""},
    {"beat 0 after another", "BT AC 0000 0000", "", "", "BT AC 0002 0000"},
    {"same beat again", "BT AC 0002 0000", "", "", "BT AC 0002 0000"},
    {"next beats", "BT AC 0003 0000 | BT AC 0004 0000", "beatChanged() | beatChanged()", "beat=4",
     "BT AC 0002 0000"},

    // TM: the first number is the tempo.
    {"tempo", "TM AC 0078 0000", "tempoChanged()", "tempo=120"},
    {"tempo, second number ignored", "TM AC 0014 1234", "tempoChanged()", "tempo=20"},
    {"tempo, highest", "TM AC FFFF 0000", "tempoChanged()", "tempo=65535"},
    {"tempo 0 is ignored", "TM AC 0000 0000", "", ""},
    {"tempo 0 after another", "TM AC 0000 0000", "", "", "TM AC 0078 0000"},
    {"same tempo again", "TM AC 0078 0000", "", "", "TM AC 0078 0000"},
    {"another tempo", "TM AC 0079 0000", "tempoChanged()", "tempo=121", "TM AC 0078 0000"},

    // FR: both numbers form the total size in units of 2 bytes, the second one is the size for samples in blocks of
    // 128 KiB.
    {"flash sizes", "FR AC 0001 0002", "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()",
     "flashSize=262144 | totalFlashSize=131076"},
    {"flash sizes, same again", "FR AC 0001 0002", "", "", "FR AC 0001 0002"},
    {"flash sizes, total alone", "FR AC 0002 0002", "totalSampleFlashSizeChanged()", "totalFlashSize=262148",
     "FR AC 0001 0002"},
    {"flash sizes, highest bit of the block count ignored", "FR AC 0000 8001", "totalSampleFlashSizeChanged()",
     "totalFlashSize=65538", "FR AC 0000 0001"},
    {"flash sizes, highest bit of the total ignored", "FR AC 8000 0002", "", "", "FR AC 0000 0002"},
    {"flash sizes, largest", "FR AC FFFF FFFF", "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()",
     "flashSize=4294836224 | totalFlashSize=4294967294"},
    {"flash sizes, overflow in 32 bits", "FR AC 8000 FFFF",
     "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()", "flashSize=4294836224 | totalFlashSize=131070"},
    {"flash sizes back to 0", "FR AC 0000 0000",
     "totalSampleFlashSizeChanged() | sampleFlashSizeChanged()", "flashSize=0 | totalFlashSize=0",
     "FR AC 0001 0002"},
    {"flash sizes 0 at the start", "FR AC 0000 0000", "", ""},

    // CO: the number of the pot, then 0 for a step down or any other value for a step up.
    {"pot 0 up", "CO AC 0000 0001", "triggerPot0Inc()", ""},
    {"pot 1 up", "CO AC 0001 0001", "triggerPot1Inc()", ""},
    {"pot 2 up", "CO AC 0002 0001", "triggerPot2Inc()", ""},
    {"pot 3 up", "CO AC 0003 0001", "triggerPot3Inc()", ""},
    {"pot 0 down", "CO AC 0000 0000", "triggerPot0Dec()", ""},
    {"pot 1 down", "CO AC 0001 0000", "triggerPot1Dec()", ""},
    {"pot 2 down", "CO AC 0002 0000", "triggerPot2Dec()", ""},
    {"pot 3 down", "CO AC 0003 0000", "triggerPot3Dec()", ""},
    {"pot 0 up by the highest number", "CO AC 0000 FFFF", "triggerPot0Inc()", ""},
    {"pot 3 up, high byte alone", "CO AC 0003 0100", "triggerPot3Inc()", ""},
    {"pot 2 up twice", "CO AC 0002 0001 | CO AC 0002 0001", "triggerPot2Inc() | triggerPot2Inc()", ""},
    {"pot 1 down after up", "CO AC 0001 0000", "triggerPot1Dec()", "", "CO AC 0001 0001"},
    {"no pot 4", "CO AC 0004 0001", "", ""},
    {"no pot 4, down", "CO AC 0004 0000", "", ""},
    {"no pot 256", "CO AC 0100 0001", "", ""},
    {"no pot 65535", "CO AC FFFF 0001", "", ""},

    // Events with other tags are forwarded unchanged.
    {"AB is forwarded", "AB AC 0001 0002", "udpPacketArrived(16706, 1, 2)", ""},
    {"AB with the highest numbers", "AB AC FFFF FFFE", "udpPacketArrived(16706, 65535, 65534)", ""},
    {"AB twice", "AB AC 0001 0002 | AB AC 0001 0002",
     "udpPacketArrived(16706, 1, 2) | udpPacketArrived(16706, 1, 2)", ""},
    {"tag 0 is forwarded", "0000 4143 0000 0000", "udpPacketArrived(0, 0, 0)", ""},
    {"highest tag is forwarded", "FFFF 4143 0102 0304", "udpPacketArrived(65535, 258, 772)", ""},
    {"RF, the letters of FR swapped", "RF AC 0001 0002", "udpPacketArrived(21062, 1, 2)", ""},
    {"tm in lower case", "746D 4143 0078 0000", "udpPacketArrived(29805, 120, 0)", ""},
    {"CR with the length of an event", "CR AC 0000 0046", "udpPacketArrived(17234, 0, 70)", ""},
    {"DR with the length of an event", "DR AC 0046 0046", "udpPacketArrived(17490, 70, 70)", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> eventRows{rows};

} // namespace inbound
} // namespace zelta
