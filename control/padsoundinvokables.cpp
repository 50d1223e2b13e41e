#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Pad instrument

void QConnectQmlPlugin::setSoundGroup(uchar value, uchar note)
{
    m_padInstrument.setSoundGroup(value, note, parameterChannel);
}

void QConnectQmlPlugin::setSoundInstr(uchar value, uchar note)
{
    m_padInstrument.setSoundInstr(value, note, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentCoarseTuning(signed char tuning, uchar note)
{
    m_padInstrument.setInstrumentCoarseTuning(tuning, note, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentFineTuning(uchar fineTuning, uchar note)
{
    m_padInstrument.setInstrumentFineTuning(fineTuning, note, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentVolume(uchar value, uchar note)
{
    m_padInstrument.setInstrumentVolume(value, note, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentSecondCoarseTuning(signed char tuning, uchar note)
{
    m_padInstrument.setInstrumentSecondCoarseTuning(tuning, note, parameterChannel);
}

void QConnectQmlPlugin::setInstrumentSecondFineTuning(uchar fineTuning, uchar note)
{
    m_padInstrument.setInstrumentSecondFineTuning(fineTuning, note, parameterChannel);
}

// Pad envelope, second sound and MIDI note

void QConnectQmlPlugin::setPadExtraAttackTime(uchar value, uchar note)
{
    m_padExtra.setPadExtraAttackTime(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraEnvelopeReleaseTime(uchar value, uchar note)
{
    m_padExtra.setPadExtraEnvelopeReleaseTime(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraCrossfeedBuzz(uchar value, uchar note)
{
    m_padExtra.setPadExtraCrossfeedBuzz(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraSecondSoundActive(uchar value, uchar note)
{
    m_padExtra.setPadExtraSecondSoundActive(value != 0, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraSecondSoundSelect(uint value, uchar note)
{
    m_padExtra.setPadExtraSecondSoundSelect(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraSecondSoundVolume(uchar value, uchar note)
{
    m_padExtra.setPadExtraSecondSoundVolume(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraSecondSoundAttack(uchar value, uchar note)
{
    m_padExtra.setPadExtraSecondSoundAttack(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadExtraSecondSoundRelease(uchar value, uchar note)
{
    m_padExtra.setPadExtraSecondSoundRelease(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMidiNote(uchar extNote, uchar note)
{
    m_padExtra.setPadMidiNote(extNote, note, parameterChannel);
}

// Pad mixer

void QConnectQmlPlugin::setPadMixerVolume(uchar value, uchar note)
{
    m_padMixer.setPadMixerVolume(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerAmbience(uchar value, uchar note)
{
    m_padMixer.setPadMixerAmbience(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerPanning(uchar value, uchar note)
{
    m_padMixer.setPadMixerPanning(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerRoomReverb(uchar value, uchar note)
{
    m_padMixer.setPadMixerRoomReverb(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerInstrumentReverb(uchar value, uchar note)
{
    m_padMixer.setPadMixerInstrumentReverb(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerMultiFX(uchar value, uchar note)
{
    m_padMixer.setPadMixerMultiFX(value, note, parameterChannel);
}

void QConnectQmlPlugin::setPadMixerMultiFXDirect(uchar mb, uchar lb, uchar note)
{
    m_padMixer.setPadMixerMultiFXDirect(mb, lb, note, parameterChannel);
}
