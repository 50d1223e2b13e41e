#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Trigger settings: the page is the parameter, the number in the page is the note, which is the first argument.
//
//   IM 0003 0BB96341 0BB96226 0BB90614
//   |  |    |        |        +-------- controller 06, value 20
//   |  |    |        +----------------- controller 62, note 38
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x41: gain
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"sendTriggerBankPreset", "38, 3", "typical", "IM 0003 0BB96340 0BB96226 0BB90603"},
    {"sendTriggerBankPreset", "0, 0", "lowest", "IM 0003 0BB96340 0BB96200 0BB90600"},
    {"sendTriggerBankPreset", "127, 127", "highest", "IM 0003 0BB96340 0BB9627F 0BB9067F"},
    {"sendTriggerBankPreset", "255, 200", "bit 7 kept in both", "IM 0003 0BB96340 0BB962FF 0BB906C8"},
    {"sendTriggerGain", "38, 20", "typical", "IM 0003 0BB96341 0BB96226 0BB90614"},
    {"sendTriggerGain", "0, 0", "lowest", "IM 0003 0BB96341 0BB96200 0BB90600"},
    {"sendTriggerGain", "127, 127", "highest", "IM 0003 0BB96341 0BB9627F 0BB9067F"},
    {"sendTriggerGain", "255, 200", "bit 7 kept in both", "IM 0003 0BB96341 0BB962FF 0BB906C8"},
    {"sendTriggerGain", "3, 40", "low input number", "IM 0003 0BB96341 0BB96203 0BB90628"},
    {"sendTriggerThreshold", "36, 21", "typical", "IM 0003 0BB96342 0BB96224 0BB90615"},
    {"sendTriggerThreshold", "0, 0", "lowest", "IM 0003 0BB96342 0BB96200 0BB90600"},
    {"sendTriggerThreshold", "127, 127", "highest", "IM 0003 0BB96342 0BB9627F 0BB9067F"},
    {"sendTriggerThreshold", "255, 200", "bit 7 kept in both", "IM 0003 0BB96342 0BB962FF 0BB906C8"},
    {"sendTriggerXTalk", "42, 22", "typical", "IM 0003 0BB96343 0BB9622A 0BB90616"},
    {"sendTriggerXTalk", "0, 0", "lowest", "IM 0003 0BB96343 0BB96200 0BB90600"},
    {"sendTriggerXTalk", "127, 127", "highest", "IM 0003 0BB96343 0BB9627F 0BB9067F"},
    {"sendTriggerXTalk", "255, 200", "bit 7 kept in both", "IM 0003 0BB96343 0BB962FF 0BB906C8"},
    {"sendTriggerHighLevel", "49, 23", "typical", "IM 0003 0BB96344 0BB96231 0BB90617"},
    {"sendTriggerHighLevel", "0, 0", "lowest", "IM 0003 0BB96344 0BB96200 0BB90600"},
    {"sendTriggerHighLevel", "127, 127", "highest", "IM 0003 0BB96344 0BB9627F 0BB9067F"},
    {"sendTriggerHighLevel", "255, 200", "bit 7 kept in both", "IM 0003 0BB96344 0BB962FF 0BB906C8"},
    {"sendTriggerHHLowPosition", "44, 24", "typical", "IM 0003 0BB96345 0BB9622C 0BB90618"},
    {"sendTriggerHHLowPosition", "0, 0", "lowest", "IM 0003 0BB96345 0BB96200 0BB90600"},
    {"sendTriggerHHLowPosition", "127, 127", "highest", "IM 0003 0BB96345 0BB9627F 0BB9067F"},
    {"sendTriggerHHLowPosition", "255, 200", "bit 7 kept in both", "IM 0003 0BB96345 0BB962FF 0BB906C8"},
    {"sendTriggerHHHighPosition", "44, 25", "typical", "IM 0003 0BB96346 0BB9622C 0BB90619"},
    {"sendTriggerHHHighPosition", "0, 0", "lowest", "IM 0003 0BB96346 0BB96200 0BB90600"},
    {"sendTriggerHHHighPosition", "127, 127", "highest", "IM 0003 0BB96346 0BB9627F 0BB9067F"},
    {"sendTriggerHHHighPosition", "255, 200", "bit 7 kept in both", "IM 0003 0BB96346 0BB962FF 0BB906C8"},
    {"sendTriggerHHChickSensitivity", "44, 26", "typical", "IM 0003 0BB9634D 0BB9622C 0BB9061A"},
    {"sendTriggerHHChickSensitivity", "0, 0", "lowest", "IM 0003 0BB9634D 0BB96200 0BB90600"},
    {"sendTriggerHHChickSensitivity", "127, 127", "highest", "IM 0003 0BB9634D 0BB9627F 0BB9067F"},
    {"sendTriggerHHChickSensitivity", "255, 200", "bit 7 kept in both",
     "IM 0003 0BB9634D 0BB962FF 0BB906C8"},
    {"sendTriggerHHSplashSensitivity", "44, 27", "typical", "IM 0003 0BB9634E 0BB9622C 0BB9061B"},
    {"sendTriggerHHSplashSensitivity", "0, 0", "lowest", "IM 0003 0BB9634E 0BB96200 0BB90600"},
    {"sendTriggerHHSplashSensitivity", "127, 127", "highest", "IM 0003 0BB9634E 0BB9627F 0BB9067F"},
    {"sendTriggerHHSplashSensitivity", "255, 200", "bit 7 kept in both",
     "IM 0003 0BB9634E 0BB962FF 0BB906C8"},
    {"sendTriggerScanTime", "51, 28", "typical", "IM 0003 0BB96347 0BB96233 0BB9061C"},
    {"sendTriggerScanTime", "0, 0", "lowest", "IM 0003 0BB96347 0BB96200 0BB90600"},
    {"sendTriggerScanTime", "127, 127", "highest", "IM 0003 0BB96347 0BB9627F 0BB9067F"},
    {"sendTriggerScanTime", "255, 200", "bit 7 kept in both", "IM 0003 0BB96347 0BB962FF 0BB906C8"},
    {"sendTriggerRetriggerMask", "57, 29", "typical", "IM 0003 0BB96348 0BB96239 0BB9061D"},
    {"sendTriggerRetriggerMask", "0, 0", "lowest", "IM 0003 0BB96348 0BB96200 0BB90600"},
    {"sendTriggerRetriggerMask", "127, 127", "highest", "IM 0003 0BB96348 0BB9627F 0BB9067F"},
    {"sendTriggerRetriggerMask", "255, 200", "bit 7 kept in both", "IM 0003 0BB96348 0BB962FF 0BB906C8"},
    {"sendTriggerTriggerType", "88, 5", "typical", "IM 0003 0BB96349 0BB96258 0BB90605"},
    {"sendTriggerTriggerType", "0, 0", "lowest", "IM 0003 0BB96349 0BB96200 0BB90600"},
    {"sendTriggerTriggerType", "127, 127", "highest", "IM 0003 0BB96349 0BB9627F 0BB9067F"},
    {"sendTriggerTriggerType", "255, 200", "bit 7 kept in both", "IM 0003 0BB96349 0BB962FF 0BB906C8"},
    {"sendTriggerPositionalSensing", "38, 1", "typical", "IM 0003 0BB9634A 0BB96226 0BB90601"},
    {"sendTriggerPositionalSensing", "0, 0", "lowest", "IM 0003 0BB9634A 0BB96200 0BB90600"},
    {"sendTriggerPositionalSensing", "127, 127", "highest", "IM 0003 0BB9634A 0BB9627F 0BB9067F"},
    {"sendTriggerPositionalSensing", "255, 200", "bit 7 kept in both", "IM 0003 0BB9634A 0BB962FF 0BB906C8"},
    {"sendTriggerCurvePreset", "90, 6", "typical", "IM 0003 0BB9634C 0BB9625A 0BB90606"},
    {"sendTriggerCurvePreset", "0, 0", "lowest", "IM 0003 0BB9634C 0BB96200 0BB90600"},
    {"sendTriggerCurvePreset", "127, 127", "highest", "IM 0003 0BB9634C 0BB9627F 0BB9067F"},
    {"sendTriggerCurvePreset", "255, 200", "bit 7 kept in both", "IM 0003 0BB9634C 0BB962FF 0BB906C8"},
    {"sendTriggerDynLevel", "92, 30", "typical", "IM 0003 0BB96350 0BB9625C 0BB9061E"},
    {"sendTriggerDynLevel", "0, 0", "lowest", "IM 0003 0BB96350 0BB96200 0BB90600"},
    {"sendTriggerDynLevel", "127, 127", "highest", "IM 0003 0BB96350 0BB9627F 0BB9067F"},
    {"sendTriggerDynLevel", "255, 200", "bit 7 kept in both", "IM 0003 0BB96350 0BB962FF 0BB906C8"},
    {"sendTriggerDynTime", "94, 31", "typical", "IM 0003 0BB96351 0BB9625E 0BB9061F"},
    {"sendTriggerDynTime", "0, 0", "lowest", "IM 0003 0BB96351 0BB96200 0BB90600"},
    {"sendTriggerDynTime", "127, 127", "highest", "IM 0003 0BB96351 0BB9627F 0BB9067F"},
    {"sendTriggerDynTime", "255, 200", "bit 7 kept in both", "IM 0003 0BB96351 0BB962FF 0BB906C8"},

    // Nine points, each with a high byte of 0.
    {"sendTriggerCurveData", "0x0102, [0, 16, 32, 48, 64, 80, 96, 112, 127]", "typical",
     "TC 0102 0000 0010 0020 0030 0040 0050 0060 0070 007F"},
    {"sendTriggerCurveData", "0, [0, 0, 0, 0, 0, 0, 0, 0, 0]", "lowest",
     "TC 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000"},
    {"sendTriggerCurveData", "65535, [127, 127, 127, 127, 127, 127, 127, 127, 127]", "highest",
     "TC FFFF 007F 007F 007F 007F 007F 007F 007F 007F 007F"},
    {"sendTriggerCurveData", "1, [300, -1, 255, 256, 1, 2, 3, 4, 5]", "high bytes dropped",
     "TC 0001 002C 00FF 00FF 0000 0001 0002 0003 0004 0005"},
    {"sendTriggerCurveData", "0x12345678, [9, 8, 7, 6, 5, 4, 3, 2, 1]", "upper bits of the preset lost",
     "TC 5678 0009 0008 0007 0006 0005 0004 0003 0002 0001"},
    {"sendTriggerCurveData", "7, [1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11]", "further points ignored",
     "TC 0007 0001 0002 0003 0004 0005 0006 0007 0008 0009"},
    {"sendTriggerCurveData", "7, [1, 2, 3, 4, 5, 6, 7, 8]", "too short, nothing is sent", "", 1, "trigger curve 7 not sent: it has 8 of 9 points"},
    {"sendTriggerCurveData", "7, []", "no points, nothing is sent", "", 1, "trigger curve 7 not sent: it has 0 of 9 points"},

    {"sendTriggerTransferEnd", "38", "typical", "IM 0003 0BB9634F 0BB96226 0BB90600"},
    {"sendTriggerTransferEnd", "0", "lowest", "IM 0003 0BB9634F 0BB96200 0BB90600"},
    {"sendTriggerTransferEnd", "127", "highest", "IM 0003 0BB9634F 0BB9627F 0BB90600"},
    {"sendTriggerTransferEnd", "200", "not limited", "IM 0003 0BB9634F 0BB962C8 0BB90600"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> triggerRows{rows};

} // namespace wire
} // namespace zelta
