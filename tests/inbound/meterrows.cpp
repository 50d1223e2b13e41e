#include "inbound/inboundrow.h"

namespace zelta {
namespace inbound {

namespace {

// CR, section and six levels; DR and eighteen levels. Level 70 is 1.
// clang-format off
constexpr InboundRow rows[] = {
    {"master compressor", "4352 0000 0007 000E 0015 001C 0023 002A", "masterCpChanged()",
     "masterCpInL=0.1 | masterCpInR=0.2 | masterCpGrL=0.3 | masterCpGrR=0.4 | masterCpOutL=0.5 | masterCpOutR=0.6"},
    {"monitor compressor", "4352 0001 0007 000E 0015 001C 0023 002A", "monitorCpChanged()",
     "monitorCpInL=0.1 | monitorCpInR=0.2 | monitorCpGrL=0.3 | monitorCpGrR=0.4 | monitorCpOutL=0.5 | monitorCpOutR=0.6"},
    {"headphone compressor", "4352 0002 0007 000E 0015 001C 0023 002A", "headCpChanged()",
     "headCpInL=0.1 | headCpInR=0.2 | headCpGrL=0.3 | headCpGrR=0.4 | headCpOutL=0.5 | headCpOutR=0.6"},
    {"pad compressor", "4352 0003 0007 000E 0015 001C 0023 002A", "padCpChanged()",
     "padCpInL=0.1 | padCpInR=0.2 | padCpGrL=0.3 | padCpGrR=0.4 | padCpOutL=0.5 | padCpOutR=0.6"},
    {"section 7 is the pad's", "4352 0007 0046 0000 008C 0000 0000 0000", "padCpChanged()", "padCpInL=1 | padCpGrL=2"},
    {"section 255 is the pad's", "4352 00FF 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},
    {"section 256 is the pad's", "4352 0100 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},
    {"section 65535 is the pad's", "4352 FFFF 0046 0000 0000 0000 0000 0000", "padCpChanged()", "padCpInL=1"},

    {"level 0", "4352 0000 0000 0000 0000 0000 0000 0000", "masterCpChanged()", ""},
    {"level 70", "4352 0000 0000 0000 0000 0000 0000 0046", "masterCpChanged()", "masterCpOutR=1"},
    {"level 140, not limited", "4352 0000 0000 0000 0000 0000 008C 0000", "masterCpChanged()", "masterCpOutL=2"},
    {"level 65535", "4352 0000 0000 FFFF 0000 0000 0000 0000", "masterCpChanged()", "masterCpInR=936.214285714"},
    {"level 1", "4352 0001 0000 0000 0000 0001 0000 0000", "monitorCpChanged()", "monitorCpGrR=0.0142857142857"},
    {"master report, same again", "4352 0000 0046 0046 0046 0046 0046 0046", "masterCpChanged()", "",
     "4352 0000 0046 0046 0046 0046 0046 0046"},
    {"monitor report, same again", "4352 0001 0046 0046 0046 0046 0046 0046", "monitorCpChanged()", "",
     "4352 0001 0046 0046 0046 0046 0046 0046"},
    {"headphone report, same again", "4352 0002 0046 0046 0046 0046 0046 0046", "headCpChanged()", "",
     "4352 0002 0046 0046 0046 0046 0046 0046"},
    {"pad report, same again", "4352 0003 0046 0046 0046 0046 0046 0046", "padCpChanged()", "",
     "4352 0003 0046 0046 0046 0046 0046 0046"},
    {"levels fall back", "4352 0002 0000 0000 0000 0000 0000 0000", "headCpChanged()", "headCpInL=0",
     "4352 0002 0046 0000 0000 0000 0000 0000"},
    {"two sections", "4352 0002 0046 0000 0000 0000 0000 0000 | 4352 0000 0046 0000 0000 0000 0000 0000",
     "headCpChanged() | masterCpChanged()", "masterCpInL=1 | headCpInL=1"},

    {"every output its own level",
     "4452 0046 008C 00D2 0118 015E 01A4 01EA 0230 0276 02BC 0302 0348 038E 03D4 041A 0460 04A6 04EC",
     "outputLevelsChanged()",
     "masterOutL=1 | masterOutR=2 | monitorOutL=3 | monitorOutR=4 | headOutL=5 | headOutR=6 | "
     "out1Level=7 | out2Level=8 | out3Level=9 | out4Level=10 | out5Level=11 | out6Level=12 | out7Level=13 | "
     "out8Level=14 | spdifLLevel=15 | spdifRLevel=16 | usbInLLevel=17 | usbInRLevel=18"},
    {"outputs at 0", "4452 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", ""},
    {"first output alone, 140",
     "4452 008C 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "masterOutL=2"},
    {"last output alone, 65535",
     "4452 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 FFFF",
     "outputLevelsChanged()", "usbInRLevel=936.214285714"},
    {"outputs, same again",
     "4452 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "",
     "4452 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"},
    {"outputs fall back",
     "4452 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000",
     "outputLevelsChanged()", "masterOutL=0",
     "4452 0046 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"},

    {"DR in a compressor's length", "4452 0000 0046 0046 0046 0046 0046 0046", "", ""},
    {"CR in the outputs' length",
     "4352 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046 0046", "", ""},
    {"compressor report a byte short", "4352 0000 0046 0046 0046 0046 0046 00", "", ""},
    {"compressor report a byte long", "4352 0000 0046 0046 0046 0046 0046 0046 00", "", ""},
};
// clang-format on

} // namespace

const testsupport::Table<InboundRow> meterRows{rows};

} // namespace inbound
} // namespace zelta
