#include "control/qconnectqmlplugin.h"

#include "link/midipacket.h"

#include <QtEndian>

namespace {

constexpr int eventSize = 4;
constexpr char sysExStart = '\xF0';
constexpr char sysExEnd = '\xF7';

// The code index of an event tells how the message goes on. The engine expects it to be chosen by the number
// of values still to come, not counting the start and end bytes, which is not always what USB-MIDI would
// choose.
char sysExCodeIndex(int valuesLeft)
{
    constexpr char startsOrContinues = 0x04;
    constexpr char endsWithOneByte = 0x05;
    constexpr char endsWithTwoBytes = 0x06;
    constexpr char endsWithThreeBytes = 0x07;
    switch (valuesLeft) {
    case 0: return endsWithOneByte;
    case 1: return endsWithTwoBytes;
    case 2: return endsWithThreeBytes;
    default: return startsOrContinues;
    }
}

} // namespace

void QConnectQmlPlugin::sendSysEx(const QList<int> &packetValues)
{
    QByteArray payload;
    const int count = packetValues.size();
    for (int i = 0; i <= count; ++i) {
        if (payload.size() % eventSize == 0)
            payload.append(sysExCodeIndex(count - i));
        if (i == 0)
            payload.append(sysExStart);
        if (i < count)
            payload.append(char(packetValues.at(i)));
    }
    payload.append(sysExEnd);
    while (payload.size() % eventSize != 0)
        payload.append('\0');

    QByteArray header(eventSize, '\0');
    qToBigEndian<quint16>(zelta::midiPacketHeader, header.data());
    qToBigEndian<quint16>(quint16(payload.size() / eventSize), header.data() + 2);
    writeBinaryData(header + payload);
}

void QConnectQmlPlugin::forwardTestCommand(const QString &high, const QString &low, const QString &value)
{
    Q_EMIT testCommand(high, low, value);
}

void QConnectQmlPlugin::forwardSysEx(const QString &sysEx)
{
    Q_EMIT this->sysEx(sysEx);
}
