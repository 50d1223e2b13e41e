#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Levels, balances and routing of the mixer: page 0x37 is general, 0x38 master, 0x39 monitor, 0x3A headphones, 0x3B
// direct outputs and S/PDIF.
//
//   IM 0003 0BB96337 0BB96204 0BB90602
//   |  |    |        |        +-------- controller 06, value 2
//   |  |    |        +----------------- controller 62, parameter 0x04: snare style
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x37
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setSnareStyle", "0", "first", "IM 0003 0BB96337 0BB96204 0BB90600"},
    {"setSnareStyle", "1", "second", "IM 0003 0BB96337 0BB96204 0BB90601"},
    {"setSnareStyle", "2", "last", "IM 0003 0BB96337 0BB96204 0BB90602"},
    {"setSnareStyle", "3", "one above the last", "IM 0003 0BB96337 0BB96204 0BB90602"},
    {"setSnareStyle", "127", "limited", "IM 0003 0BB96337 0BB96204 0BB90602"},
    {"setSnareStyle", "200", "limited above bit 7", "IM 0003 0BB96337 0BB96204 0BB90602"},

    {"setXFadeBalance", "0", "lowest", "IM 0003 0BB96337 0BB96205 0BB90600"},
    {"setXFadeBalance", "64", "typical", "IM 0003 0BB96337 0BB96205 0BB90640"},
    {"setXFadeBalance", "127", "highest", "IM 0003 0BB96337 0BB96205 0BB9067F"},
    {"setXFadeBalance", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96205 0BB906C8"},
    {"setMixInLevel", "0", "lowest", "IM 0003 0BB96337 0BB96206 0BB90600"},
    {"setMixInLevel", "100", "typical", "IM 0003 0BB96337 0BB96206 0BB90664"},
    {"setMixInLevel", "127", "highest", "IM 0003 0BB96337 0BB96206 0BB9067F"},
    {"setMixInLevel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96206 0BB906C8"},
    {"setSynthMasterLevel", "0", "lowest", "IM 0003 0BB96337 0BB96207 0BB90600"},
    {"setSynthMasterLevel", "99", "typical", "IM 0003 0BB96337 0BB96207 0BB90663"},
    {"setSynthMasterLevel", "127", "highest", "IM 0003 0BB96337 0BB96207 0BB9067F"},
    {"setSynthMasterLevel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96207 0BB906C8"},

    {"setMasterOutBalance", "0", "lowest", "IM 0003 0BB96338 0BB96206 0BB90600"},
    {"setMasterOutBalance", "1", "1 is sent as 0", "IM 0003 0BB96338 0BB96206 0BB90600"},
    {"setMasterOutBalance", "2", "2 stays 2", "IM 0003 0BB96338 0BB96206 0BB90602"},
    {"setMasterOutBalance", "64", "middle", "IM 0003 0BB96338 0BB96206 0BB90640"},
    {"setMasterOutBalance", "127", "highest", "IM 0003 0BB96338 0BB96206 0BB9067F"},
    {"setMasterOutBalance", "129", "only 1 itself is replaced", "IM 0003 0BB96338 0BB96206 0BB90681"},
    {"setMasterOutLevel", "0", "lowest", "IM 0003 0BB96338 0BB96207 0BB90600"},
    {"setMasterOutLevel", "101", "typical", "IM 0003 0BB96338 0BB96207 0BB90665"},
    {"setMasterOutLevel", "127", "highest", "IM 0003 0BB96338 0BB96207 0BB9067F"},
    {"setMasterOutLevel", "200", "bit 7 kept", "IM 0003 0BB96338 0BB96207 0BB906C8"},
    {"setMonitorOutBalance", "0", "lowest", "IM 0003 0BB96339 0BB96206 0BB90600"},
    {"setMonitorOutBalance", "1", "1 is sent as 0", "IM 0003 0BB96339 0BB96206 0BB90600"},
    {"setMonitorOutBalance", "2", "2 stays 2", "IM 0003 0BB96339 0BB96206 0BB90602"},
    {"setMonitorOutBalance", "64", "middle", "IM 0003 0BB96339 0BB96206 0BB90640"},
    {"setMonitorOutBalance", "127", "highest", "IM 0003 0BB96339 0BB96206 0BB9067F"},
    {"setMonitorOutBalance", "129", "only 1 itself is replaced", "IM 0003 0BB96339 0BB96206 0BB90681"},
    {"setMonitorOutLevel", "0", "lowest", "IM 0003 0BB96339 0BB96207 0BB90600"},
    {"setMonitorOutLevel", "87", "typical", "IM 0003 0BB96339 0BB96207 0BB90657"},
    {"setMonitorOutLevel", "127", "highest", "IM 0003 0BB96339 0BB96207 0BB9067F"},
    {"setMonitorOutLevel", "200", "bit 7 kept", "IM 0003 0BB96339 0BB96207 0BB906C8"},
    {"setHeadphoneOutBalance", "0", "lowest", "IM 0003 0BB9633A 0BB96206 0BB90600"},
    {"setHeadphoneOutBalance", "1", "1 is sent as 0", "IM 0003 0BB9633A 0BB96206 0BB90600"},
    {"setHeadphoneOutBalance", "2", "2 stays 2", "IM 0003 0BB9633A 0BB96206 0BB90602"},
    {"setHeadphoneOutBalance", "64", "middle", "IM 0003 0BB9633A 0BB96206 0BB90640"},
    {"setHeadphoneOutBalance", "127", "highest", "IM 0003 0BB9633A 0BB96206 0BB9067F"},
    {"setHeadphoneOutBalance", "129", "only 1 itself is replaced", "IM 0003 0BB9633A 0BB96206 0BB90681"},
    {"setHeadphoneOutLevel", "0", "lowest", "IM 0003 0BB9633A 0BB96207 0BB90600"},
    {"setHeadphoneOutLevel", "73", "typical", "IM 0003 0BB9633A 0BB96207 0BB90649"},
    {"setHeadphoneOutLevel", "127", "highest", "IM 0003 0BB9633A 0BB96207 0BB9067F"},
    {"setHeadphoneOutLevel", "200", "bit 7 kept", "IM 0003 0BB9633A 0BB96207 0BB906C8"},

    {"setSongLevel", "0", "lowest", "IM 0003 0BB96337 0BB9625F 0BB90600"},
    {"setSongLevel", "90", "typical", "IM 0003 0BB96337 0BB9625F 0BB9065A"},
    {"setSongLevel", "127", "highest", "IM 0003 0BB96337 0BB9625F 0BB9067F"},
    {"setSongLevel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB9625F 0BB906C8"},
    {"setPlaybackRouting", "2, 5", "low half first on the wire",
     "IM 0004 0BB96337 0BB9620F 0BB92605 0BB90602"},
    {"setPlaybackRouting", "0, 0", "lowest", "IM 0004 0BB96337 0BB9620F 0BB92600 0BB90600"},
    {"setPlaybackRouting", "127, 64", "typical", "IM 0004 0BB96337 0BB9620F 0BB92640 0BB9067F"},
    {"setPlaybackRouting", "255, 128", "not masked", "IM 0004 0BB96337 0BB9620F 0BB92680 0BB906FF"},

    {"setDirectOut1Level", "0", "lowest", "IM 0003 0BB9633B 0BB96200 0BB90600"},
    {"setDirectOut1Level", "33", "typical", "IM 0003 0BB9633B 0BB96200 0BB90621"},
    {"setDirectOut1Level", "127", "highest", "IM 0003 0BB9633B 0BB96200 0BB9067F"},
    {"setDirectOut1Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96200 0BB906C8"},
    {"setDirectOut2Level", "0", "lowest", "IM 0003 0BB9633B 0BB96201 0BB90600"},
    {"setDirectOut2Level", "34", "typical", "IM 0003 0BB9633B 0BB96201 0BB90622"},
    {"setDirectOut2Level", "127", "highest", "IM 0003 0BB9633B 0BB96201 0BB9067F"},
    {"setDirectOut2Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96201 0BB906C8"},
    {"setDirectOut3Level", "0", "lowest", "IM 0003 0BB9633B 0BB96202 0BB90600"},
    {"setDirectOut3Level", "35", "typical", "IM 0003 0BB9633B 0BB96202 0BB90623"},
    {"setDirectOut3Level", "127", "highest", "IM 0003 0BB9633B 0BB96202 0BB9067F"},
    {"setDirectOut3Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96202 0BB906C8"},
    {"setDirectOut4Level", "0", "lowest", "IM 0003 0BB9633B 0BB96203 0BB90600"},
    {"setDirectOut4Level", "36", "typical", "IM 0003 0BB9633B 0BB96203 0BB90624"},
    {"setDirectOut4Level", "127", "highest", "IM 0003 0BB9633B 0BB96203 0BB9067F"},
    {"setDirectOut4Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96203 0BB906C8"},
    {"setDirectOut5Level", "0", "lowest", "IM 0003 0BB9633B 0BB96204 0BB90600"},
    {"setDirectOut5Level", "37", "typical", "IM 0003 0BB9633B 0BB96204 0BB90625"},
    {"setDirectOut5Level", "127", "highest", "IM 0003 0BB9633B 0BB96204 0BB9067F"},
    {"setDirectOut5Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96204 0BB906C8"},
    {"setDirectOut6Level", "0", "lowest", "IM 0003 0BB9633B 0BB96205 0BB90600"},
    {"setDirectOut6Level", "38", "typical", "IM 0003 0BB9633B 0BB96205 0BB90626"},
    {"setDirectOut6Level", "127", "highest", "IM 0003 0BB9633B 0BB96205 0BB9067F"},
    {"setDirectOut6Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96205 0BB906C8"},
    {"setDirectOut7Level", "0", "lowest", "IM 0003 0BB9633B 0BB96206 0BB90600"},
    {"setDirectOut7Level", "39", "typical", "IM 0003 0BB9633B 0BB96206 0BB90627"},
    {"setDirectOut7Level", "127", "highest", "IM 0003 0BB9633B 0BB96206 0BB9067F"},
    {"setDirectOut7Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96206 0BB906C8"},
    {"setDirectOut8Level", "0", "lowest", "IM 0003 0BB9633B 0BB96207 0BB90600"},
    {"setDirectOut8Level", "40", "typical", "IM 0003 0BB9633B 0BB96207 0BB90628"},
    {"setDirectOut8Level", "127", "highest", "IM 0003 0BB9633B 0BB96207 0BB9067F"},
    {"setDirectOut8Level", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96207 0BB906C8"},
    {"setSpdifOutLevel", "0", "lowest", "IM 0003 0BB9633B 0BB96208 0BB90600"},
    {"setSpdifOutLevel", "41", "typical", "IM 0003 0BB9633B 0BB96208 0BB90629"},
    {"setSpdifOutLevel", "127", "highest", "IM 0003 0BB9633B 0BB96208 0BB9067F"},
    {"setSpdifOutLevel", "200", "bit 7 kept", "IM 0003 0BB9633B 0BB96208 0BB906C8"},
    {"setUsbInLevel", "0", "lowest", "IM 0003 0BB96337 0BB96210 0BB90600"},
    {"setUsbInLevel", "42", "typical", "IM 0003 0BB96337 0BB96210 0BB9062A"},
    {"setUsbInLevel", "127", "highest", "IM 0003 0BB96337 0BB96210 0BB9067F"},
    {"setUsbInLevel", "200", "bit 7 kept", "IM 0003 0BB96337 0BB96210 0BB906C8"},

    {"setDirectOutMode", "0, 0", "first output", "IM 0003 0BB9633B 0BB96210 0BB90600"},
    {"setDirectOutMode", "3, 1", "fourth output", "IM 0003 0BB9633B 0BB96213 0BB90601"},
    {"setDirectOutMode", "7, 127", "eighth output", "IM 0003 0BB9633B 0BB96217 0BB9067F"},
    {"setDirectOutMode", "240, 200", "output number wraps in eight bits",
     "IM 0003 0BB9633B 0BB96200 0BB906C8"},
    {"setDirectOutMode", "255, 2", "highest number", "IM 0003 0BB9633B 0BB9620F 0BB90602"},
    {"setDirectOutMode", "15, 0", "shares the number of the report request",
     "IM 0003 0BB9633B 0BB9621F 0BB90600"},

    {"requestOutsUpdate", "", "once", "IM 0003 0BB9633B 0BB9621F 0BB90600"},
    {"requestOutsUpdate", "", "each call sends one", "IM 0003 0BB9633B 0BB9621F 0BB90600", 2},
    {"requestOutsUpdate", "", "no limit on repetition", "IM 0003 0BB9633B 0BB9621F 0BB90600", 5},

    // Not a numbered parameter, but the volume of the channel.
    {"setDrumKitVolume", "0", "lowest", "IM 0001 0BB90700"},
    {"setDrumKitVolume", "100", "typical", "IM 0001 0BB90764"},
    {"setDrumKitVolume", "127", "highest", "IM 0001 0BB9077F"},
    {"setDrumKitVolume", "128", "limited", "IM 0001 0BB9077F"},
    {"setDrumKitVolume", "255", "limited at the top", "IM 0001 0BB9077F"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> mixerRows{rows};

} // namespace wire
} // namespace zelta
