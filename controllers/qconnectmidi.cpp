#include "controllers/qconnectmidi.h"

#include "link/parameterpages.h"

void qconnectmidi::setMidiChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x20}, value, channel);
}

void qconnectmidi::setLocalControl(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x21}, value, channel);
}

void qconnectmidi::setMidiInput(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x22}, value, channel);
}

void qconnectmidi::setUsbMidi(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x23}, value, channel);
}

void qconnectmidi::setHiHatPedalChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x24}, value, channel);
}

void qconnectmidi::setSnareChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x25}, value, channel);
}

void qconnectmidi::setRideChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x26}, value, channel);
}

void qconnectmidi::setTomAuxChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x27}, value, channel);
}

void qconnectmidi::setKitVolumeChannel(quint8 value, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x28}, value, channel);
}
