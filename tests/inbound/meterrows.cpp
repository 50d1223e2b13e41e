#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// clang-format off
// Levels are 16-bit numbers; 70 is 1.0. DR is followed by the eighteen levels of the outputs, CR by a section and the
// six levels of its compressor:
//
//   CR 0001 0007 000E 0015 001C 0023 002A
//   |  |    |    |    |    |    +----+--- output, left and right: 0.5, 0.6
//   |  |    |    |    +----+------------- gain reduction, left and right: 0.3, 0.4
//   |  |    +----+----------------------- input, left and right: 0.1, 0.2
//   |  +--------------------------------- section 1: monitor
//   +------------------------------------ "CR": levels of a compressor
constexpr InboundRow rows[] = {
    {"master compressor", "CR 0000 0007 000E 0015 001C 0023 002A", "masterCpChanged()",
     "masterCpInL=0.1 | masterCpInR=0.2 | masterCpGrL=0.3 | masterCpGrR=0.4 | masterCpOutL=0.5 | masterCpOutR=0.6"},
    {"monitor compressor", "CR 0001 0007 000E 0015 001C 0023 002A", "monitorCpChanged()",
     "monitorCpInL=0.1 | monitorCpInR=0.2 | monitorCpGrL=0.3 | monitorCpGrR=0.4 | monitorCpOutL=0.5 | monitorCpOutR=0.6"},
    {"headphone compressor", "CR 0002 0007 000E 0015 001C 0023 002A", "headCpChanged()",
     "headCpInL=0.1 | headCpInR=0.2 | headCpGrL=0.3 | headCpGrR=0.4 | headCpOutL=0.5 | headCpOutR=0.6"},
    {"pad compressor", "CR 0003 0007 000E 0015 001C 0023 002A", "padCpChanged()",
     "padCpInL=0.1 | padCpInR=0.2 | padCpGrL=0.3 | padCpGrR=0.4 | padCpOutL=0.5 | padCpOutR=0.6"},
    {"section 7 counts as pad", "CR 0007 0046 0000 008C 0000 0000 0000", "padCpChanged()", "padCpInL=1 | padCpGrL=2"},
    {"section 255 counts as pad", "CR 00FF 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},
    {"section 256 counts as pad", "CR 0100 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},
    {"section 65535 counts as pad", "CR FFFF 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},

    {"level 0", "CR 0000 0000 0000 0000 0000 0000 0000", "masterCpChanged()", ""},
    {"level 70", "CR 0000 0000 0000 0000 0000 0000 0046", "masterCpChanged()", "masterCpOutR=1"},
    {"level 140, not limited", "CR 0000 0000 0000 0000 0000 008C 0000", "masterCpChanged()", "masterCpOutL=2"},
    {"level 65535", "CR 0000 0000 FFFF 0000 0000 0000 0000", "masterCpChanged()", "masterCpInR=936.214285714"},
    {"level 1", "CR 0001 0000 0000 0000 0001 0000 0000", "monitorCpChanged()", "monitorCpGrR=0.0142857142857"},
    {"master report, same again", "CR 0000 0046 0046 0046 0046 0046 0046", "masterCpChanged()", "",
     "CR 0000 0046 0046 0046 0046 0046 0046"},
    {"monitor report, same again", "CR 0001 0046 0046 0046 0046 0046 0046", "monitorCpChanged()", "",
     "CR 0001 0046 0046 0046 0046 0046 0046"},
    {"headphone report, same again", "CR 0002 0046 0046 0046 0046 0046 0046", "headCpChanged()", "",
     "CR 0002 0046 0046 0046 0046 0046 0046"},
    {"pad report, same again", "CR 0003 0046 0046 0046 0046 0046 0046", "padCpChanged()", "",
     "CR 0003 0046 0046 0046 0046 0046 0046"},
    {"levels return to 0", "CR 0002 0000 0000 0000 0000 0000 0000", "headCpChanged()", "headCpInL=0",
     "CR 0002 0046 0000 0000 0000 0000 0000"},
    {"two sections", "CR 0002 0046 0000 0000 0000 0000 0000 | CR 0000 0046 0000 0000 0000 0000 0000",
     "headCpChanged() | masterCpChanged()", "masterCpInL=1 | headCpInL=1"},

    {"a different level for each output",
     "DR 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC",
     "outputLevelsChanged()",
     "masterOutL=1 | masterOutR=2 | monitorOutL=3 | monitorOutR=4 | headOutL=5 | headOutR=6 | "
     "out1Level=7 | out2Level=8 | out3Level=9 | out4Level=10 | out5Level=11 | out6Level=12 | out7Level=13 | "
     "out8Level=14 | spdifLLevel=15 | spdifRLevel=16 | usbInLLevel=17 | usbInRLevel=18"},
    {"outputs at 0", "DR 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", ""},
    {"first output alone, 140",
     "DR 008C 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "masterOutL=2"},
    {"last output alone, 65535",
     "DR 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 FFFF",
     "outputLevelsChanged()", "usbInRLevel=936.214285714"},
    {"outputs, same again",
     "DR 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "",
     "DR 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"},
    {"outputs return to 0",
     "DR 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "masterOutL=0",
     "DR 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"},

    {"DR with the length of CR", "DR 0000 0046 0046 0046 0046 0046 0046", "", ""},
    {"CR with the length of DR",
     "CR 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046", "", ""},
    {"compressor report one byte short", "CR 0000 0046 0046 0046 0046 0046 00", "", ""},
    {"compressor report one byte long", "CR 0000 0046 0046 0046 0046 0046 0046 00", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> meterRows{rows};

} // namespace inbound
} // namespace zelta
