#include "controllers/qconnectswitches.h"

#include "control/qconnectqmlplugin.h"
#include "controllers/encodings.h"
#include "link/eventkind.h"
#include "link/parameterpages.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr zelta::NrpnNumber fixedHiHat{zelta::generalPage, 0x03};
constexpr zelta::NrpnNumber bluetooth{zelta::generalPage, 0x41};
constexpr zelta::NrpnNumber autoOffDelay{zelta::generalPage, 0x42};

constexpr quint8 bluetoothDisabled = 0x3F;
constexpr quint8 bluetoothEnabled = 0x40;

// The power packet names a parameter and carries no value: naming it is the command.
constexpr zelta::NrpnNumber powerOff{0x4F, 0x46};

constexpr quint16 bluetoothNameKind = zelta::eventKind('B', 'N');
constexpr int bluetoothNameOffset = 2;
constexpr int bluetoothNameSize = 32;

} // namespace

void qconnectswitches::setPowerSwitch(bool on, quint8 channel)
{
    if (on)
        return;
    MIDI_PACKET packet(zelta::powerPacketHeader, 2);
    packet.setData(0, zelta::controlChange(zelta::nrpnMsbController, powerOff.msb, channel));
    packet.setData(1, zelta::controlChange(zelta::nrpnLsbController, powerOff.lsb, channel));
    owner()->writeMidiData(packet);
}

void qconnectswitches::setBluetoothSwitch(bool active, quint8 channel)
{
    sendParameter(bluetooth, zelta::onOff(active), channel);
}

void qconnectswitches::setBluetoothEnable(bool enable, quint8 channel)
{
    sendParameter(bluetooth, enable ? bluetoothEnabled : bluetoothDisabled, channel);
}

void qconnectswitches::setAutoOff(int autoOff, quint8 channel)
{
    sendParameter(autoOffDelay, quint8(autoOff), channel);
}

void qconnectswitches::setFixedHiHat(bool active, quint8 channel)
{
    sendParameter(fixedHiHat, zelta::onOff(active), channel);
}

void qconnectswitches::setBluetoothName(const QString &name)
{
    const QByteArray encoded = name.toLocal8Bit();
    // The length counts characters, whatever they take in bytes; an encoding that is shorter than the name
    // must not be read past its end.
    const int length = std::min({bluetoothNameSize, name.size(), encoded.size()});
    QByteArray record(bluetoothNameOffset + bluetoothNameSize, '\0');
    qToBigEndian<quint16>(bluetoothNameKind, record.data());
    std::copy_n(encoded.constBegin(), length, record.begin() + bluetoothNameOffset);
    owner()->writeBinaryData(record);
}
