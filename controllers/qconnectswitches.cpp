#include "controllers/qconnectswitches.h"

#include "control/qconnectqmlplugin.h"
#include "controllers/encodings.h"
#include "link/parameterpages.h"
#include "link/tag.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr zelta::NrpnNumber bluetooth{zelta::generalPage, 0x41};
constexpr quint16 bluetoothNameKind = zelta::tag('B', 'N');
constexpr int bluetoothNameOffset = 2;
constexpr int bluetoothNameSize = 32;

} // namespace

void qconnectswitches::setPowerSwitch(bool on, quint8 channel)
{
    if (on)
        return;
    // This packet selects a parameter and sends no value.
    MIDI_PACKET packet(zelta::powerPacketHeader, 2);
    packet.setData(0, zelta::controlChange(zelta::nrpnMsbController, 0x4F, channel));
    packet.setData(1, zelta::controlChange(zelta::nrpnLsbController, 0x46, channel));
    owner()->writeMidiData(packet);
}

void qconnectswitches::setBluetoothSwitch(bool active, quint8 channel)
{
    sendParameter(bluetooth, zelta::onOff(active), channel);
}

void qconnectswitches::setBluetoothEnable(bool enable, quint8 channel)
{
    constexpr quint8 enabled = 0x40;
    constexpr quint8 disabled = 0x3F;
    sendParameter(bluetooth, enable ? enabled : disabled, channel);
}

void qconnectswitches::setAutoOff(int autoOff, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x42}, quint8(autoOff), channel);
}

void qconnectswitches::setFixedHiHat(bool active, quint8 channel)
{
    sendParameter({zelta::generalPage, 0x03}, zelta::onOff(active), channel);
}

void qconnectswitches::setBluetoothName(const QString &name)
{
    const QByteArray encoded = name.toLocal8Bit();
    // Characters are counted, not bytes. The encoded name can have fewer bytes than the name has characters.
    const int length = std::min({bluetoothNameSize, name.size(), encoded.size()});
    QByteArray record(bluetoothNameOffset + bluetoothNameSize, '\0');
    qToBigEndian<quint16>(bluetoothNameKind, record.data());
    std::copy_n(encoded.constBegin(), length, record.begin() + bluetoothNameOffset);
    owner()->writeBinaryData(record);
}
