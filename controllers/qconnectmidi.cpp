#include "controllers/qconnectmidi.h"

#include "link/parameterpages.h"

namespace {

constexpr zelta::NrpnNumber midiChannel{zelta::generalPage, 0x20};
constexpr zelta::NrpnNumber localControl{zelta::generalPage, 0x21};
constexpr zelta::NrpnNumber midiInput{zelta::generalPage, 0x22};
constexpr zelta::NrpnNumber usbMidi{zelta::generalPage, 0x23};
constexpr zelta::NrpnNumber hiHatPedalChannel{zelta::generalPage, 0x24};
constexpr zelta::NrpnNumber snareChannel{zelta::generalPage, 0x25};
constexpr zelta::NrpnNumber rideChannel{zelta::generalPage, 0x26};
constexpr zelta::NrpnNumber tomAuxChannel{zelta::generalPage, 0x27};
constexpr zelta::NrpnNumber kitVolumeChannel{zelta::generalPage, 0x28};

} // namespace

void qconnectmidi::setMidiChannel(quint8 value, quint8 channel)
{
    sendParameter(midiChannel, value, channel);
}

void qconnectmidi::setLocalControl(quint8 value, quint8 channel)
{
    sendParameter(localControl, value, channel);
}

void qconnectmidi::setMidiInput(quint8 value, quint8 channel)
{
    sendParameter(midiInput, value, channel);
}

void qconnectmidi::setUsbMidi(quint8 value, quint8 channel)
{
    sendParameter(usbMidi, value, channel);
}

void qconnectmidi::setHiHatPedalChannel(quint8 value, quint8 channel)
{
    sendParameter(hiHatPedalChannel, value, channel);
}

void qconnectmidi::setSnareChannel(quint8 value, quint8 channel)
{
    sendParameter(snareChannel, value, channel);
}

void qconnectmidi::setRideChannel(quint8 value, quint8 channel)
{
    sendParameter(rideChannel, value, channel);
}

void qconnectmidi::setTomAuxChannel(quint8 value, quint8 channel)
{
    sendParameter(tomAuxChannel, value, channel);
}

void qconnectmidi::setKitVolumeChannel(quint8 value, quint8 channel)
{
    sendParameter(kitVolumeChannel, value, channel);
}
