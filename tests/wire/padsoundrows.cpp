#include "wire/wirerow.h"

namespace zelta {
namespace wire {

namespace {

// clang-format off
// Instrument, envelope, second sound and mixer of a pad: the page is the parameter, the number in the page is the note.
//
//   IM 0003 0BB96316 0BB96226 0BB90603
//   |  |    |        |        +-------- controller 06, value 3
//   |  |    |        +----------------- controller 62, note 38
//   |  |    +-------------------------- code index 0B, status B9 (channel 10), controller 63, page 0x16: sound group
//   |  +------------------------------- three MIDI events
//   +---------------------------------- "IM": MIDI events
constexpr WireRow rows[] = {
    {"setSoundGroup", "3, 38", "typical", "IM 0003 0BB96316 0BB96226 0BB90603"},
    {"setSoundGroup", "0, 0", "lowest", "IM 0003 0BB96316 0BB96200 0BB90600"},
    {"setSoundGroup", "127, 127", "highest", "IM 0003 0BB96316 0BB9627F 0BB9067F"},
    {"setSoundGroup", "200, 255", "bit 7 kept in both", "IM 0003 0BB96316 0BB962FF 0BB906C8"},
    {"setSoundInstr", "41, 36", "typical", "IM 0003 0BB96317 0BB96224 0BB90629"},
    {"setSoundInstr", "0, 0", "lowest", "IM 0003 0BB96317 0BB96200 0BB90600"},
    {"setSoundInstr", "127, 127", "highest", "IM 0003 0BB96317 0BB9627F 0BB9067F"},
    {"setSoundInstr", "200, 255", "bit 7 kept in both", "IM 0003 0BB96317 0BB962FF 0BB906C8"},
    {"setInstrumentCoarseTuning", "-12, 38", "typical", "IM 0003 0BB96318 0BB96226 0BB90634"},
    {"setInstrumentCoarseTuning", "0, 38", "middle", "IM 0003 0BB96318 0BB96226 0BB90640"},
    {"setInstrumentCoarseTuning", "-64, 38", "lowest", "IM 0003 0BB96318 0BB96226 0BB90600"},
    {"setInstrumentCoarseTuning", "63, 38", "highest", "IM 0003 0BB96318 0BB96226 0BB9067F"},
    {"setInstrumentCoarseTuning", "64, 38", "not limited", "IM 0003 0BB96318 0BB96226 0BB90680"},
    {"setInstrumentCoarseTuning", "-65, 38", "wraps below", "IM 0003 0BB96318 0BB96226 0BB906FF"},
    {"setInstrumentCoarseTuning", "127, 38", "highest number", "IM 0003 0BB96318 0BB96226 0BB906BF"},
    {"setInstrumentCoarseTuning", "-128, 38", "lowest number", "IM 0003 0BB96318 0BB96226 0BB906C0"},
    {"setInstrumentCoarseTuning", "0, 200", "note not limited", "IM 0003 0BB96318 0BB962C8 0BB90640"},
    {"setInstrumentFineTuning", "65, 42", "typical", "IM 0003 0BB96319 0BB9622A 0BB90641"},
    {"setInstrumentFineTuning", "0, 0", "lowest", "IM 0003 0BB96319 0BB96200 0BB90600"},
    {"setInstrumentFineTuning", "127, 127", "highest", "IM 0003 0BB96319 0BB9627F 0BB9067F"},
    {"setInstrumentFineTuning", "200, 255", "bit 7 kept in both", "IM 0003 0BB96319 0BB962FF 0BB906C8"},
    {"setInstrumentVolume", "110, 46", "typical", "IM 0003 0BB9631A 0BB9622E 0BB9066E"},
    {"setInstrumentVolume", "0, 0", "lowest", "IM 0003 0BB9631A 0BB96200 0BB90600"},
    {"setInstrumentVolume", "127, 127", "highest", "IM 0003 0BB9631A 0BB9627F 0BB9067F"},
    {"setInstrumentVolume", "200, 255", "bit 7 kept in both", "IM 0003 0BB9631A 0BB962FF 0BB906C8"},
    {"setInstrumentSecondCoarseTuning", "-12, 38", "typical", "IM 0003 0BB96308 0BB96226 0BB90634"},
    {"setInstrumentSecondCoarseTuning", "0, 38", "middle", "IM 0003 0BB96308 0BB96226 0BB90640"},
    {"setInstrumentSecondCoarseTuning", "-64, 38", "lowest", "IM 0003 0BB96308 0BB96226 0BB90600"},
    {"setInstrumentSecondCoarseTuning", "63, 38", "highest", "IM 0003 0BB96308 0BB96226 0BB9067F"},
    {"setInstrumentSecondCoarseTuning", "64, 38", "not limited", "IM 0003 0BB96308 0BB96226 0BB90680"},
    {"setInstrumentSecondCoarseTuning", "-65, 38", "wraps below", "IM 0003 0BB96308 0BB96226 0BB906FF"},
    {"setInstrumentSecondCoarseTuning", "127, 38", "highest number", "IM 0003 0BB96308 0BB96226 0BB906BF"},
    {"setInstrumentSecondCoarseTuning", "-128, 38", "lowest number", "IM 0003 0BB96308 0BB96226 0BB906C0"},
    {"setInstrumentSecondCoarseTuning", "0, 36", "middle of another pad", "IM 0003 0BB96308 0BB96224 0BB90640"},
    {"setInstrumentSecondCoarseTuning", "0, 200", "note not limited", "IM 0003 0BB96308 0BB962C8 0BB90640"},
    {"setInstrumentSecondFineTuning", "66, 51", "typical", "IM 0003 0BB96309 0BB96233 0BB90642"},
    {"setInstrumentSecondFineTuning", "0, 0", "lowest", "IM 0003 0BB96309 0BB96200 0BB90600"},
    {"setInstrumentSecondFineTuning", "127, 127", "highest", "IM 0003 0BB96309 0BB9627F 0BB9067F"},
    {"setInstrumentSecondFineTuning", "200, 255", "bit 7 kept in both",
     "IM 0003 0BB96309 0BB962FF 0BB906C8"},

    {"setPadExtraAttackTime", "12, 38", "typical", "IM 0003 0BB96310 0BB96226 0BB9060C"},
    {"setPadExtraAttackTime", "0, 0", "lowest", "IM 0003 0BB96310 0BB96200 0BB90600"},
    {"setPadExtraAttackTime", "127, 127", "highest", "IM 0003 0BB96310 0BB9627F 0BB9067F"},
    {"setPadExtraAttackTime", "200, 255", "bit 7 kept in both", "IM 0003 0BB96310 0BB962FF 0BB906C8"},
    {"setPadExtraEnvelopeReleaseTime", "13, 36", "typical", "IM 0003 0BB96311 0BB96224 0BB9060D"},
    {"setPadExtraEnvelopeReleaseTime", "0, 0", "lowest", "IM 0003 0BB96311 0BB96200 0BB90600"},
    {"setPadExtraEnvelopeReleaseTime", "127, 127", "highest", "IM 0003 0BB96311 0BB9627F 0BB9067F"},
    {"setPadExtraEnvelopeReleaseTime", "200, 255", "bit 7 kept in both",
     "IM 0003 0BB96311 0BB962FF 0BB906C8"},

    // This method intentionally sends nothing.
    {"setPadExtraCrossfeedBuzz", "5, 38", "sends nothing", ""},
    {"setPadExtraCrossfeedBuzz", "0, 0", "nothing at the lowest", ""},
    {"setPadExtraCrossfeedBuzz", "127, 127", "nothing at the highest", ""},
    {"setPadExtraCrossfeedBuzz", "255, 255", "nothing at the top", ""},

    {"setPadExtraSecondSoundActive", "1, 38", "on", "IM 0003 0BB96313 0BB96226 0BB90601"},
    {"setPadExtraSecondSoundActive", "0, 38", "off", "IM 0003 0BB96313 0BB96226 0BB90600"},
    {"setPadExtraSecondSoundActive", "200, 38", "any number but 0 is on",
     "IM 0003 0BB96313 0BB96226 0BB90601"},
    {"setPadExtraSecondSoundActive", "true, 200", "true is on", "IM 0003 0BB96313 0BB962C8 0BB90601"},

    // Two datagrams, the high part first.
    {"setPadExtraSecondSoundSelect", "300, 38", "both parts",
     "IM 0003 0BB96312 0BB96226 0BB90602 | "
     "IM 0003 0BB96314 0BB96226 0BB9062C"},
    {"setPadExtraSecondSoundSelect", "0, 38", "lowest",
     "IM 0003 0BB96312 0BB96226 0BB90600 | "
     "IM 0003 0BB96314 0BB96226 0BB90600"},
    {"setPadExtraSecondSoundSelect", "127, 38", "low part full",
     "IM 0003 0BB96312 0BB96226 0BB90600 | "
     "IM 0003 0BB96314 0BB96226 0BB9067F"},
    {"setPadExtraSecondSoundSelect", "128, 38", "high part begins",
     "IM 0003 0BB96312 0BB96226 0BB90601 | "
     "IM 0003 0BB96314 0BB96226 0BB90600"},
    {"setPadExtraSecondSoundSelect", "16383, 38", "highest of fourteen bits",
     "IM 0003 0BB96312 0BB96226 0BB9067F | "
     "IM 0003 0BB96314 0BB96226 0BB9067F"},
    {"setPadExtraSecondSoundSelect", "16384, 38", "high part keeps bit 7",
     "IM 0003 0BB96312 0BB96226 0BB90680 | "
     "IM 0003 0BB96314 0BB96226 0BB90600"},
    {"setPadExtraSecondSoundSelect", "300, 0", "lowest note",
     "IM 0003 0BB96312 0BB96200 0BB90602 | "
     "IM 0003 0BB96314 0BB96200 0BB9062C"},
    {"setPadExtraSecondSoundSelect", "300, 200", "note not limited",
     "IM 0003 0BB96312 0BB962C8 0BB90602 | "
     "IM 0003 0BB96314 0BB962C8 0BB9062C"},
    {"setPadExtraSecondSoundSelect", "4294967295, 38", "upper bits lost",
     "IM 0003 0BB96312 0BB96226 0BB906FF | "
     "IM 0003 0BB96314 0BB96226 0BB9067F"},

    {"setPadExtraSecondSoundVolume", "14, 42", "typical", "IM 0003 0BB96315 0BB9622A 0BB9060E"},
    {"setPadExtraSecondSoundVolume", "0, 0", "lowest", "IM 0003 0BB96315 0BB96200 0BB90600"},
    {"setPadExtraSecondSoundVolume", "127, 127", "highest", "IM 0003 0BB96315 0BB9627F 0BB9067F"},
    {"setPadExtraSecondSoundVolume", "200, 255", "bit 7 kept in both", "IM 0003 0BB96315 0BB962FF 0BB906C8"},
    {"setPadExtraSecondSoundAttack", "15, 46", "typical", "IM 0003 0BB9630B 0BB9622E 0BB9060F"},
    {"setPadExtraSecondSoundAttack", "0, 0", "lowest", "IM 0003 0BB9630B 0BB96200 0BB90600"},
    {"setPadExtraSecondSoundAttack", "127, 127", "highest", "IM 0003 0BB9630B 0BB9627F 0BB9067F"},
    {"setPadExtraSecondSoundAttack", "200, 255", "bit 7 kept in both", "IM 0003 0BB9630B 0BB962FF 0BB906C8"},
    {"setPadExtraSecondSoundRelease", "16, 49", "typical", "IM 0003 0BB9630C 0BB96231 0BB90610"},
    {"setPadExtraSecondSoundRelease", "0, 0", "lowest", "IM 0003 0BB9630C 0BB96200 0BB90600"},
    {"setPadExtraSecondSoundRelease", "127, 127", "highest", "IM 0003 0BB9630C 0BB9627F 0BB9067F"},
    {"setPadExtraSecondSoundRelease", "200, 255", "bit 7 kept in both",
     "IM 0003 0BB9630C 0BB962FF 0BB906C8"},
    {"setPadMidiNote", "60, 38", "typical", "IM 0003 0BB9630A 0BB96226 0BB9063C"},
    {"setPadMidiNote", "0, 0", "lowest", "IM 0003 0BB9630A 0BB96200 0BB90600"},
    {"setPadMidiNote", "127, 127", "highest", "IM 0003 0BB9630A 0BB9627F 0BB9067F"},
    {"setPadMidiNote", "200, 255", "bit 7 kept in both", "IM 0003 0BB9630A 0BB962FF 0BB906C8"},

    {"setPadMixerVolume", "100, 38", "typical", "IM 0003 0BB96307 0BB96226 0BB90664"},
    {"setPadMixerVolume", "0, 0", "lowest", "IM 0003 0BB96307 0BB96200 0BB90600"},
    {"setPadMixerVolume", "127, 127", "highest", "IM 0003 0BB96307 0BB9627F 0BB9067F"},
    {"setPadMixerVolume", "200, 255", "bit 7 kept in both", "IM 0003 0BB96307 0BB962FF 0BB906C8"},
    {"setPadMixerAmbience", "31, 36", "typical", "IM 0003 0BB9631B 0BB96224 0BB9061F"},
    {"setPadMixerAmbience", "0, 0", "lowest", "IM 0003 0BB9631B 0BB96200 0BB90600"},
    {"setPadMixerAmbience", "127, 127", "highest", "IM 0003 0BB9631B 0BB9627F 0BB9067F"},
    {"setPadMixerAmbience", "200, 255", "bit 7 kept in both", "IM 0003 0BB9631B 0BB962FF 0BB906C8"},
    {"setPadMixerPanning", "64, 38", "middle", "IM 0003 0BB9631C 0BB96226 0BB90640"},
    {"setPadMixerPanning", "1, 38", "1 is sent as 0", "IM 0003 0BB9631C 0BB96226 0BB90600"},
    {"setPadMixerPanning", "0, 38", "lowest", "IM 0003 0BB9631C 0BB96226 0BB90600"},
    {"setPadMixerPanning", "2, 38", "2 stays 2", "IM 0003 0BB9631C 0BB96226 0BB90602"},
    {"setPadMixerPanning", "127, 38", "highest", "IM 0003 0BB9631C 0BB96226 0BB9067F"},
    {"setPadMixerPanning", "129, 38", "only 1 itself is replaced", "IM 0003 0BB9631C 0BB96226 0BB90681"},
    {"setPadMixerPanning", "64, 1", "a note of 1 stays", "IM 0003 0BB9631C 0BB96201 0BB90640"},
    {"setPadMixerRoomReverb", "32, 42", "typical", "IM 0003 0BB9631D 0BB9622A 0BB90620"},
    {"setPadMixerRoomReverb", "0, 0", "lowest", "IM 0003 0BB9631D 0BB96200 0BB90600"},
    {"setPadMixerRoomReverb", "127, 127", "highest", "IM 0003 0BB9631D 0BB9627F 0BB9067F"},
    {"setPadMixerRoomReverb", "200, 255", "bit 7 kept in both", "IM 0003 0BB9631D 0BB962FF 0BB906C8"},
    {"setPadMixerInstrumentReverb", "33, 46", "typical", "IM 0003 0BB9631E 0BB9622E 0BB90621"},
    {"setPadMixerInstrumentReverb", "0, 0", "lowest", "IM 0003 0BB9631E 0BB96200 0BB90600"},
    {"setPadMixerInstrumentReverb", "127, 127", "highest", "IM 0003 0BB9631E 0BB9627F 0BB9067F"},
    {"setPadMixerInstrumentReverb", "200, 255", "bit 7 kept in both", "IM 0003 0BB9631E 0BB962FF 0BB906C8"},
    {"setPadMixerMultiFX", "34, 49", "typical", "IM 0003 0BB9631F 0BB96231 0BB90622"},
    {"setPadMixerMultiFX", "0, 0", "lowest", "IM 0003 0BB9631F 0BB96200 0BB90600"},
    {"setPadMixerMultiFX", "127, 127", "highest", "IM 0003 0BB9631F 0BB9627F 0BB9067F"},
    {"setPadMixerMultiFX", "200, 255", "bit 7 kept in both", "IM 0003 0BB9631F 0BB962FF 0BB906C8"},
    {"setPadMixerMultiFXDirect", "1, 2, 38", "low half first on the wire",
     "IM 0004 0BB9630F 0BB96226 0BB92602 0BB90601"},
    {"setPadMixerMultiFXDirect", "0, 0, 0", "lowest", "IM 0004 0BB9630F 0BB96200 0BB92600 0BB90600"},
    {"setPadMixerMultiFXDirect", "127, 127, 127", "highest", "IM 0004 0BB9630F 0BB9627F 0BB9267F 0BB9067F"},
    {"setPadMixerMultiFXDirect", "200, 129, 255", "not masked",
     "IM 0004 0BB9630F 0BB962FF 0BB92681 0BB906C8"},
};
// clang-format on

} // namespace

const testsupport::Table<WireRow> padSoundRows{rows};

} // namespace wire
} // namespace zelta
