#include "controllers/qconnectpad_extra.h"

#include "controllers/encodings.h"

namespace {

// The page selects the parameter, the pad's note is the second half of the number.
constexpr quint8 attackTimePage = 0x10;
constexpr quint8 envelopeReleaseTimePage = 0x11;
constexpr quint8 secondSoundActivePage = 0x13;
constexpr quint8 secondSoundVolumePage = 0x15;
constexpr quint8 secondSoundAttackPage = 0x0B;
constexpr quint8 secondSoundReleasePage = 0x0C;
constexpr quint8 midiNotePage = 0x0A;
constexpr quint8 secondSoundSelectHighPage = 0x12;
constexpr quint8 secondSoundSelectLowPage = 0x14;

} // namespace

void qconnectpad_extra::setPadExtraAttackTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({attackTimePage, note}, value, channel);
}

void qconnectpad_extra::setPadExtraEnvelopeReleaseTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({envelopeReleaseTimePage, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({secondSoundActivePage, note}, zelta::onOff(active), channel);
}

void qconnectpad_extra::setPadExtraSecondSoundVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({secondSoundVolumePage, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundAttack(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({secondSoundAttackPage, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundRelease(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({secondSoundReleasePage, note}, value, channel);
}

void qconnectpad_extra::setPadMidiNote(quint8 extNote, quint8 note, quint8 channel)
{
    sendParameter({midiNotePage, note}, extNote, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundSelect(quint32 value, quint8 note, quint8 channel)
{
    const zelta::DataEntry parts = zelta::fourteenBits(value);
    sendParameter({secondSoundSelectHighPage, note}, parts.msb, channel);
    sendParameter({secondSoundSelectLowPage, note}, parts.lsb, channel);
}

void qconnectpad_extra::setPadExtraCrossfeedBuzz(quint8 /*value*/, quint8 /*note*/, quint8 /*channel*/) {}
