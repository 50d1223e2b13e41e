#include "control/qconnectqmlplugin.h"

#include "control/parameterchannel.h"

using zelta::parameterChannel;

// Program, power and bluetooth

void QConnectQmlPlugin::setProgramNumber(uchar newProgram)
{
    m_program.setNewProgram(newProgram);
}

void QConnectQmlPlugin::sendPowerOff()
{
    m_switches.setPowerSwitch(false, parameterChannel);
}

void QConnectQmlPlugin::setBluetoothSwitch(bool active)
{
    m_switches.setBluetoothSwitch(active, parameterChannel);
}

void QConnectQmlPlugin::setAutoOff(int autoOff)
{
    m_switches.setAutoOff(autoOff, parameterChannel);
}

void QConnectQmlPlugin::setFixedHiHat(bool active)
{
    m_switches.setFixedHiHat(active, parameterChannel);
}

void QConnectQmlPlugin::setBluetoothEnable(bool enable)
{
    m_switches.setBluetoothEnable(enable, parameterChannel);
}

void QConnectQmlPlugin::setBluetoothName(const QString &name)
{
    m_switches.setBluetoothName(name);
}

// MIDI settings

void QConnectQmlPlugin::setMidiInput(uchar midiInput)
{
    m_midi.setMidiInput(midiInput, parameterChannel);
}

void QConnectQmlPlugin::setLocalControl(uchar localControl)
{
    m_midi.setLocalControl(localControl, parameterChannel);
}

void QConnectQmlPlugin::setUsbMidi(uchar usbMidi)
{
    m_midi.setUsbMidi(usbMidi, parameterChannel);
}

void QConnectQmlPlugin::setMidiChannel(uchar midiChannel)
{
    m_midi.setMidiChannel(midiChannel, parameterChannel);
}

void QConnectQmlPlugin::setHiHatPedalChannel(uchar hihatPedalChannel)
{
    m_midi.setHiHatPedalChannel(hihatPedalChannel, parameterChannel);
}

void QConnectQmlPlugin::setSnareChannel(uchar snareChannel)
{
    m_midi.setSnareChannel(snareChannel, parameterChannel);
}

void QConnectQmlPlugin::setRideChannel(uchar rideChannel)
{
    m_midi.setRideChannel(rideChannel, parameterChannel);
}

void QConnectQmlPlugin::setTomAuxChannel(uchar tomAuxChannel)
{
    m_midi.setTomAuxChannel(tomAuxChannel, parameterChannel);
}

void QConnectQmlPlugin::setKitVolumeChannel(uchar kitVolumeChannel)
{
    m_midi.setKitVolumeChannel(kitVolumeChannel, parameterChannel);
}
