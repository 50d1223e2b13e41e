#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Compressors: page 0x38 is master, 0x3A headphones, 0x39 monitor. For pads, each parameter has its own page.
//
//   IM 0003 0BB96338 0BB9621B 0BB9060C
//   |  |    |        |        +-------- controller 06, value 12
//   |  |    |        +----------------- controller 62, parameter 0x1B: threshold
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x38: master
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setMasterCpActive", "true", "on", "IM 0003 0BB96338 0BB96218 0BB90601"},
    {"setMasterCpActive", "false", "off", "IM 0003 0BB96338 0BB96218 0BB90600"},
    {"setMasterCpActive", "5", "any number but 0 is on", "IM 0003 0BB96338 0BB96218 0BB90601"},
    {"setMasterCpAttackTime", "0", "lowest", "IM 0003 0BB96338 0BB96219 0BB90600"},
    {"setMasterCpAttackTime", "10", "typical", "IM 0003 0BB96338 0BB96219 0BB9060A"},
    {"setMasterCpAttackTime", "127", "highest", "IM 0003 0BB96338 0BB96219 0BB9067F"},
    {"setMasterCpAttackTime", "200", "bit 7 kept", "IM 0003 0BB96338 0BB96219 0BB906C8"},
    {"setMasterCpReleaseTime", "0", "lowest", "IM 0003 0BB96338 0BB9621A 0BB90600"},
    {"setMasterCpReleaseTime", "11", "typical", "IM 0003 0BB96338 0BB9621A 0BB9060B"},
    {"setMasterCpReleaseTime", "127", "highest", "IM 0003 0BB96338 0BB9621A 0BB9067F"},
    {"setMasterCpReleaseTime", "200", "bit 7 kept", "IM 0003 0BB96338 0BB9621A 0BB906C8"},
    {"setMasterCpThreshold", "0", "lowest", "IM 0003 0BB96338 0BB9621B 0BB90600"},
    {"setMasterCpThreshold", "12", "typical", "IM 0003 0BB96338 0BB9621B 0BB9060C"},
    {"setMasterCpThreshold", "127", "highest", "IM 0003 0BB96338 0BB9621B 0BB9067F"},
    {"setMasterCpThreshold", "200", "bit 7 kept", "IM 0003 0BB96338 0BB9621B 0BB906C8"},
    {"setMasterCpRatio", "0", "lowest", "IM 0003 0BB96338 0BB9621C 0BB90600"},
    {"setMasterCpRatio", "4", "typical", "IM 0003 0BB96338 0BB9621C 0BB90604"},
    {"setMasterCpRatio", "127", "highest", "IM 0003 0BB96338 0BB9621C 0BB9067F"},
    {"setMasterCpRatio", "200", "bit 7 kept", "IM 0003 0BB96338 0BB9621C 0BB906C8"},
    {"setMasterCpBoost", "0", "lowest", "IM 0003 0BB96338 0BB9621D 0BB90600"},
    {"setMasterCpBoost", "14", "typical", "IM 0003 0BB96338 0BB9621D 0BB9060E"},
    {"setMasterCpBoost", "127", "highest", "IM 0003 0BB96338 0BB9621D 0BB9067F"},
    {"setMasterCpBoost", "200", "bit 7 kept", "IM 0003 0BB96338 0BB9621D 0BB906C8"},
    {"setMasterCpKnee", "0", "lowest", "IM 0003 0BB96338 0BB9621E 0BB90600"},
    {"setMasterCpKnee", "15", "typical", "IM 0003 0BB96338 0BB9621E 0BB9060F"},
    {"setMasterCpKnee", "127", "highest", "IM 0003 0BB96338 0BB9621E 0BB9067F"},
    {"setMasterCpKnee", "200", "bit 7 kept", "IM 0003 0BB96338 0BB9621E 0BB906C8"},

    {"setHeadCpActive", "true", "on", "IM 0003 0BB9633A 0BB96218 0BB90601"},
    {"setHeadCpActive", "false", "off", "IM 0003 0BB9633A 0BB96218 0BB90600"},
    {"setHeadCpActive", "5", "any number but 0 is on", "IM 0003 0BB9633A 0BB96218 0BB90601"},
    {"setHeadCpAttackTime", "0", "lowest", "IM 0003 0BB9633A 0BB96219 0BB90600"},
    {"setHeadCpAttackTime", "30", "typical", "IM 0003 0BB9633A 0BB96219 0BB9061E"},
    {"setHeadCpAttackTime", "127", "highest", "IM 0003 0BB9633A 0BB96219 0BB9067F"},
    {"setHeadCpAttackTime", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB96219 0BB906C8"},
    {"setHeadCpReleaseTime", "0", "lowest", "IM 0003 0BB9633A 0BB9621A 0BB90600"},
    {"setHeadCpReleaseTime", "31", "typical", "IM 0003 0BB9633A 0BB9621A 0BB9061F"},
    {"setHeadCpReleaseTime", "127", "highest", "IM 0003 0BB9633A 0BB9621A 0BB9067F"},
    {"setHeadCpReleaseTime", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB9621A 0BB906C8"},
    {"setHeadCpThreshold", "0", "lowest", "IM 0003 0BB9633A 0BB9621B 0BB90600"},
    {"setHeadCpThreshold", "32", "typical", "IM 0003 0BB9633A 0BB9621B 0BB90620"},
    {"setHeadCpThreshold", "127", "highest", "IM 0003 0BB9633A 0BB9621B 0BB9067F"},
    {"setHeadCpThreshold", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB9621B 0BB906C8"},
    {"setHeadCpRatio", "0", "lowest", "IM 0003 0BB9633A 0BB9621C 0BB90600"},
    {"setHeadCpRatio", "33", "typical", "IM 0003 0BB9633A 0BB9621C 0BB90621"},
    {"setHeadCpRatio", "127", "highest", "IM 0003 0BB9633A 0BB9621C 0BB9067F"},
    {"setHeadCpRatio", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB9621C 0BB906C8"},
    {"setHeadCpBoost", "0", "lowest", "IM 0003 0BB9633A 0BB9621D 0BB90600"},
    {"setHeadCpBoost", "34", "typical", "IM 0003 0BB9633A 0BB9621D 0BB90622"},
    {"setHeadCpBoost", "127", "highest", "IM 0003 0BB9633A 0BB9621D 0BB9067F"},
    {"setHeadCpBoost", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB9621D 0BB906C8"},
    {"setHeadCpKnee", "0", "lowest", "IM 0003 0BB9633A 0BB9621E 0BB90600"},
    {"setHeadCpKnee", "35", "typical", "IM 0003 0BB9633A 0BB9621E 0BB90623"},
    {"setHeadCpKnee", "127", "highest", "IM 0003 0BB9633A 0BB9621E 0BB9067F"},
    {"setHeadCpKnee", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB9621E 0BB906C8"},

    {"setMonitorCpActive", "true", "on", "IM 0003 0BB96339 0BB96218 0BB90601"},
    {"setMonitorCpActive", "false", "off", "IM 0003 0BB96339 0BB96218 0BB90600"},
    {"setMonitorCpActive", "5", "any number but 0 is on", "IM 0003 0BB96339 0BB96218 0BB90601"},
    {"setMonitorCpAttackTime", "0", "lowest", "IM 0003 0BB96339 0BB96219 0BB90600"},
    {"setMonitorCpAttackTime", "50", "typical", "IM 0003 0BB96339 0BB96219 0BB90632"},
    {"setMonitorCpAttackTime", "127", "highest", "IM 0003 0BB96339 0BB96219 0BB9067F"},
    {"setMonitorCpAttackTime", "200", "bit 7 kept", "IM 0003 0BB96339 0BB96219 0BB906C8"},
    {"setMonitorCpReleaseTime", "0", "lowest", "IM 0003 0BB96339 0BB9621A 0BB90600"},
    {"setMonitorCpReleaseTime", "51", "typical", "IM 0003 0BB96339 0BB9621A 0BB90633"},
    {"setMonitorCpReleaseTime", "127", "highest", "IM 0003 0BB96339 0BB9621A 0BB9067F"},
    {"setMonitorCpReleaseTime", "200", "bit 7 kept", "IM 0003 0BB96339 0BB9621A 0BB906C8"},
    {"setMonitorCpThreshold", "0", "lowest", "IM 0003 0BB96339 0BB9621B 0BB90600"},
    {"setMonitorCpThreshold", "52", "typical", "IM 0003 0BB96339 0BB9621B 0BB90634"},
    {"setMonitorCpThreshold", "127", "highest", "IM 0003 0BB96339 0BB9621B 0BB9067F"},
    {"setMonitorCpThreshold", "200", "bit 7 kept", "IM 0003 0BB96339 0BB9621B 0BB906C8"},
    {"setMonitorCpRatio", "0", "lowest", "IM 0003 0BB96339 0BB9621C 0BB90600"},
    {"setMonitorCpRatio", "53", "typical", "IM 0003 0BB96339 0BB9621C 0BB90635"},
    {"setMonitorCpRatio", "127", "highest", "IM 0003 0BB96339 0BB9621C 0BB9067F"},
    {"setMonitorCpRatio", "200", "bit 7 kept", "IM 0003 0BB96339 0BB9621C 0BB906C8"},
    {"setMonitorCpBoost", "0", "lowest", "IM 0003 0BB96339 0BB9621D 0BB90600"},
    {"setMonitorCpBoost", "54", "typical", "IM 0003 0BB96339 0BB9621D 0BB90636"},
    {"setMonitorCpBoost", "127", "highest", "IM 0003 0BB96339 0BB9621D 0BB9067F"},
    {"setMonitorCpBoost", "200", "bit 7 kept", "IM 0003 0BB96339 0BB9621D 0BB906C8"},
    {"setMonitorCpKnee", "0", "lowest", "IM 0003 0BB96339 0BB9621E 0BB90600"},
    {"setMonitorCpKnee", "55", "typical", "IM 0003 0BB96339 0BB9621E 0BB90637"},
    {"setMonitorCpKnee", "127", "highest", "IM 0003 0BB96339 0BB9621E 0BB9067F"},
    {"setMonitorCpKnee", "200", "bit 7 kept", "IM 0003 0BB96339 0BB9621E 0BB906C8"},

    {"requestMasterCpUpdate", "", "once", "IM 0003 0BB96338 0BB9621F 0BB90600"},
    {"requestMasterCpUpdate", "", "each call sends one", "IM 0003 0BB96338 0BB9621F 0BB90600", 2},
    {"requestMasterCpUpdate", "", "no limit on repetition", "IM 0003 0BB96338 0BB9621F 0BB90600", 5},
    {"requestHeadCpUpdate", "", "once", "IM 0003 0BB9633A 0BB9621F 0BB90600"},
    {"requestHeadCpUpdate", "", "each call sends one", "IM 0003 0BB9633A 0BB9621F 0BB90600", 2},
    {"requestHeadCpUpdate", "", "no limit on repetition", "IM 0003 0BB9633A 0BB9621F 0BB90600", 5},
    {"requestMonitorCpUpdate", "", "once", "IM 0003 0BB96339 0BB9621F 0BB90600"},
    {"requestMonitorCpUpdate", "", "each call sends one", "IM 0003 0BB96339 0BB9621F 0BB90600", 2},
    {"requestMonitorCpUpdate", "", "no limit on repetition", "IM 0003 0BB96339 0BB9621F 0BB90600", 5},

    // Pads: the note is the last argument.
    {"setPadCpActive", "true, 38", "on", "IM 0003 0BB96328 0BB96226 0BB90601"},
    {"setPadCpActive", "false, 38", "off", "IM 0003 0BB96328 0BB96226 0BB90600"},
    {"setPadCpActive", "9, 255", "any number but 0 is on", "IM 0003 0BB96328 0BB962FF 0BB90601"},
    {"setPadCpAttackTime", "20, 38", "typical", "IM 0003 0BB96329 0BB96226 0BB90614"},
    {"setPadCpAttackTime", "0, 0", "lowest", "IM 0003 0BB96329 0BB96200 0BB90600"},
    {"setPadCpAttackTime", "127, 127", "highest", "IM 0003 0BB96329 0BB9627F 0BB9067F"},
    {"setPadCpAttackTime", "200, 255", "bit 7 kept in both", "IM 0003 0BB96329 0BB962FF 0BB906C8"},
    {"setPadCpReleaseTime", "21, 36", "typical", "IM 0003 0BB9632A 0BB96224 0BB90615"},
    {"setPadCpReleaseTime", "0, 0", "lowest", "IM 0003 0BB9632A 0BB96200 0BB90600"},
    {"setPadCpReleaseTime", "127, 127", "highest", "IM 0003 0BB9632A 0BB9627F 0BB9067F"},
    {"setPadCpReleaseTime", "200, 255", "bit 7 kept in both", "IM 0003 0BB9632A 0BB962FF 0BB906C8"},
    {"setPadCpThreshold", "22, 42", "typical", "IM 0003 0BB9632B 0BB9622A 0BB90616"},
    {"setPadCpThreshold", "0, 0", "lowest", "IM 0003 0BB9632B 0BB96200 0BB90600"},
    {"setPadCpThreshold", "127, 127", "highest", "IM 0003 0BB9632B 0BB9627F 0BB9067F"},
    {"setPadCpThreshold", "200, 255", "bit 7 kept in both", "IM 0003 0BB9632B 0BB962FF 0BB906C8"},
    {"setPadCpRatio", "4, 5", "typical", "IM 0003 0BB9632C 0BB96205 0BB90604"},
    {"setPadCpRatio", "0, 0", "lowest", "IM 0003 0BB9632C 0BB96200 0BB90600"},
    {"setPadCpRatio", "127, 127", "highest", "IM 0003 0BB9632C 0BB9627F 0BB9067F"},
    {"setPadCpRatio", "200, 255", "bit 7 kept in both", "IM 0003 0BB9632C 0BB962FF 0BB906C8"},
    {"setPadCpBoost", "24, 49", "typical", "IM 0003 0BB9632D 0BB96231 0BB90618"},
    {"setPadCpBoost", "0, 0", "lowest", "IM 0003 0BB9632D 0BB96200 0BB90600"},
    {"setPadCpBoost", "127, 127", "highest", "IM 0003 0BB9632D 0BB9627F 0BB9067F"},
    {"setPadCpBoost", "200, 255", "bit 7 kept in both", "IM 0003 0BB9632D 0BB962FF 0BB906C8"},
    {"setPadCpKnee", "10, 38", "typical", "IM 0003 0BB9632E 0BB96226 0BB9060A"},
    {"setPadCpKnee", "0, 0", "lowest", "IM 0003 0BB9632E 0BB96200 0BB90600"},
    {"setPadCpKnee", "127, 127", "highest", "IM 0003 0BB9632E 0BB9627F 0BB9067F"},
    {"setPadCpKnee", "200, 255", "bit 7 kept in both", "IM 0003 0BB9632E 0BB962FF 0BB906C8"},
    {"requestPadUpdate", "38", "typical", "IM 0003 0BB9632F 0BB96226 0BB90600"},
    {"requestPadUpdate", "0", "lowest note", "IM 0003 0BB9632F 0BB96200 0BB90600"},
    {"requestPadUpdate", "127", "highest note", "IM 0003 0BB9632F 0BB9627F 0BB90600"},
    {"requestPadUpdate", "200", "note not limited", "IM 0003 0BB9632F 0BB962C8 0BB90600"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> compressorRows{rows};

} // namespace wire
} // namespace zelta
