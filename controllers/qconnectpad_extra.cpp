#include "controllers/qconnectpad_extra.h"

#include "controllers/encodings.h"

void qconnectpad_extra::setPadExtraAttackTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x10, note}, value, channel);
}

void qconnectpad_extra::setPadExtraEnvelopeReleaseTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x11, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({0x13, note}, zelta::onOff(active), channel);
}

void qconnectpad_extra::setPadExtraSecondSoundVolume(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x15, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundAttack(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x0B, note}, value, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundRelease(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x0C, note}, value, channel);
}

void qconnectpad_extra::setPadMidiNote(quint8 extNote, quint8 note, quint8 channel)
{
    sendParameter({0x0A, note}, extNote, channel);
}

void qconnectpad_extra::setPadExtraSecondSoundSelect(quint32 value, quint8 note, quint8 channel)
{
    const zelta::DataEntry parts = zelta::fourteenBits(value);
    sendParameter({0x12, note}, parts.msb, channel);
    sendParameter({0x14, note}, parts.lsb, channel);
}

void qconnectpad_extra::setPadExtraCrossfeedBuzz(quint8 /*value*/, quint8 /*note*/, quint8 /*channel*/) {}
