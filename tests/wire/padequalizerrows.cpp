#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Equalisers of the pads: the page is the parameter, the number in the page is the note.
//
//   IM 0003 0BB96320 0BB96224 0BB90601
//   |  |    |        |        +-------- controller 06, value 1: on
//   |  |    |        +----------------- controller 62, note 36
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x20: on or off
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setPadEqActive", "36, true", "on", "IM 0003 0BB96320 0BB96224 0BB90601"},
    {"setPadEqActive", "38, false", "off", "IM 0003 0BB96320 0BB96226 0BB90600"},
    {"setPadEqActive", "0, true", "lowest note", "IM 0003 0BB96320 0BB96200 0BB90601"},
    {"setPadEqActive", "127, true", "highest note", "IM 0003 0BB96320 0BB9627F 0BB90601"},
    {"setPadEqActive", "200, 5", "note not limited, any number is on", "IM 0003 0BB96320 0BB962C8 0BB90601"},

    {"setPadEqLowFreq", "38, 1000", "typical", "IM 0004 0BB96324 0BB96226 0BB92668 0BB90607"},
    {"setPadEqLowFreq", "38, 0", "lowest", "IM 0004 0BB96324 0BB96226 0BB92600 0BB90600"},
    {"setPadEqLowFreq", "38, 16383", "highest of fourteen bits",
     "IM 0004 0BB96324 0BB96226 0BB9267F 0BB9067F"},
    {"setPadEqLowFreq", "38, 16000", "lower byte empty", "IM 0004 0BB96324 0BB96226 0BB92600 0BB9067D"},
    {"setPadEqLowFreq", "38, 16384", "bit 7 kept", "IM 0004 0BB96324 0BB96226 0BB92600 0BB90680"},
    {"setPadEqLowFreq", "38, 20000", "not limited", "IM 0004 0BB96324 0BB96226 0BB92620 0BB9069C"},
    {"setPadEqLowFreq", "38, 4294967295", "upper bits lost", "IM 0004 0BB96324 0BB96226 0BB9267F 0BB906FF"},
    {"setPadEqLowFreq", "255, 1000", "note not limited", "IM 0004 0BB96324 0BB962FF 0BB92668 0BB90607"},
    {"setPadEqLowGain", "38, -15", "lowest", "IM 0003 0BB96321 0BB96226 0BB90600"},
    {"setPadEqLowGain", "38, -1", "just below the middle", "IM 0003 0BB96321 0BB96226 0BB9063B"},
    {"setPadEqLowGain", "38, 0", "middle, rounded down", "IM 0003 0BB96321 0BB96226 0BB9063F"},
    {"setPadEqLowGain", "38, 1", "just above the middle", "IM 0003 0BB96321 0BB96226 0BB90643"},
    {"setPadEqLowGain", "38, 7", "typical", "IM 0003 0BB96321 0BB96226 0BB9065D"},
    {"setPadEqLowGain", "38, 15", "highest", "IM 0003 0BB96321 0BB96226 0BB9067F"},
    {"setPadEqLowGain", "38, 40", "limited", "IM 0003 0BB96321 0BB96226 0BB9067F"},
    {"setPadEqLowGain", "38, -40", "limited below", "IM 0003 0BB96321 0BB96226 0BB90600"},
    {"setPadEqLowGain", "5, -3", "note first", "IM 0003 0BB96321 0BB96205 0BB90632"},
    {"setPadEqLowGain", "0, 0", "lowest note", "IM 0003 0BB96321 0BB96200 0BB9063F"},
    {"setPadEqHighFreq", "0, 1000", "lowest note", "IM 0004 0BB96326 0BB96200 0BB92668 0BB90607"},
    {"setPadEqHighFreq", "200, 1000", "note not limited", "IM 0004 0BB96326 0BB962C8 0BB92668 0BB90607"},
    {"setPadEqHighFreq", "95, 1000", "typical", "IM 0004 0BB96326 0BB9625F 0BB92668 0BB90607"},
    {"setPadEqHighFreq", "95, 0", "lowest", "IM 0004 0BB96326 0BB9625F 0BB92600 0BB90600"},
    {"setPadEqHighFreq", "95, 16383", "highest of fourteen bits",
     "IM 0004 0BB96326 0BB9625F 0BB9267F 0BB9067F"},
    {"setPadEqHighFreq", "95, 20000", "not limited", "IM 0004 0BB96326 0BB9625F 0BB92620 0BB9069C"},
    {"setPadEqHighGain", "0, 7", "lowest note", "IM 0003 0BB96323 0BB96200 0BB9065D"},
    {"setPadEqHighGain", "200, 7", "note not limited", "IM 0003 0BB96323 0BB962C8 0BB9065D"},
    {"setPadEqHighGain", "95, -15", "lowest", "IM 0003 0BB96323 0BB9625F 0BB90600"},
    {"setPadEqHighGain", "95, 0", "middle, rounded down", "IM 0003 0BB96323 0BB9625F 0BB9063F"},
    {"setPadEqHighGain", "95, 7", "typical", "IM 0003 0BB96323 0BB9625F 0BB9065D"},
    {"setPadEqHighGain", "95, 15", "highest", "IM 0003 0BB96323 0BB9625F 0BB9067F"},
    {"setPadEqHighGain", "95, 40", "limited", "IM 0003 0BB96323 0BB9625F 0BB9067F"},
    {"setPadEqMid1Freq", "0, 1000", "lowest note", "IM 0004 0BB96325 0BB96200 0BB92668 0BB90607"},
    {"setPadEqMid1Freq", "200, 1000", "note not limited", "IM 0004 0BB96325 0BB962C8 0BB92668 0BB90607"},
    {"setPadEqMid1Freq", "17, 1000", "typical", "IM 0004 0BB96325 0BB96211 0BB92668 0BB90607"},
    {"setPadEqMid1Freq", "17, 0", "lowest", "IM 0004 0BB96325 0BB96211 0BB92600 0BB90600"},
    {"setPadEqMid1Freq", "17, 16383", "highest of fourteen bits",
     "IM 0004 0BB96325 0BB96211 0BB9267F 0BB9067F"},
    {"setPadEqMid1Freq", "17, 20000", "not limited", "IM 0004 0BB96325 0BB96211 0BB92620 0BB9069C"},
    {"setPadEqMid1Gain", "0, 7", "lowest note", "IM 0003 0BB96322 0BB96200 0BB9065D"},
    {"setPadEqMid1Gain", "200, 7", "note not limited", "IM 0003 0BB96322 0BB962C8 0BB9065D"},
    {"setPadEqMid1Gain", "17, -15", "lowest", "IM 0003 0BB96322 0BB96211 0BB90600"},
    {"setPadEqMid1Gain", "17, 0", "middle, rounded down", "IM 0003 0BB96322 0BB96211 0BB9063F"},
    {"setPadEqMid1Gain", "17, 7", "typical", "IM 0003 0BB96322 0BB96211 0BB9065D"},
    {"setPadEqMid1Gain", "17, 15", "highest", "IM 0003 0BB96322 0BB96211 0BB9067F"},
    {"setPadEqMid1Gain", "17, 40", "limited", "IM 0003 0BB96322 0BB96211 0BB9067F"},
    {"setPadEqMid1Q", "0, 0.7", "lowest note", "IM 0003 0BB96327 0BB96200 0BB90609"},
    {"setPadEqMid1Q", "200, 0.7", "note not limited", "IM 0003 0BB96327 0BB962C8 0BB90609"},
    {"setPadEqMid1Q", "38, 0.1", "lowest", "IM 0003 0BB96327 0BB96226 0BB90600"},
    {"setPadEqMid1Q", "38, 0.7", "typical", "IM 0003 0BB96327 0BB96226 0BB90609"},
    {"setPadEqMid1Q", "38, 1.0", "rounded down", "IM 0003 0BB96327 0BB96226 0BB9060E"},
    {"setPadEqMid1Q", "38, 2.0", "two", "IM 0003 0BB96327 0BB96226 0BB9061E"},
    {"setPadEqMid1Q", "38, 4.0", "four", "IM 0003 0BB96327 0BB96226 0BB9063E"},
    {"setPadEqMid1Q", "38, 7.9", "just below the highest", "IM 0003 0BB96327 0BB96226 0BB9067D"},
    {"setPadEqMid1Q", "38, 8.0", "highest", "IM 0003 0BB96327 0BB96226 0BB9067F"},
    {"setPadEqMid1Q", "38, 0.05", "limited below", "IM 0003 0BB96327 0BB96226 0BB90600"},
    {"setPadEqMid1Q", "38, 12.0", "limited", "IM 0003 0BB96327 0BB96226 0BB9067F"},
    {"setPadEqMid1Q", "38, NaN", "not a number", "IM 0003 0BB96327 0BB96226 0BB90600"},
    {"setPadEqMid1Q", "38, Infinity", "infinite", "IM 0003 0BB96327 0BB96226 0BB9067F"},
    {"setPadEqMid1Q", "38, -Infinity", "infinite below", "IM 0003 0BB96327 0BB96226 0BB90600"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> padEqualizerRows{rows};

} // namespace wire
} // namespace zelta
