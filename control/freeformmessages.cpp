#include "control/qconnectqmlplugin.h"

#include "link/midipacket.h"

#include <cstring>

namespace {

constexpr int eventSize = int(sizeof(MIDI_DATA));
constexpr char sysExStart = '\xF0';
constexpr char sysExEnd = '\xF7';

// Code index of an event that begins with this many values left. The start and end bytes are not counted, so
// it differs from the USB-MIDI rule for some lengths.
char sysExCodeIndex(int valuesLeft)
{
    switch (valuesLeft) {
    case 0: return 0x05;  // ends with one byte
    case 1: return 0x06;  // ends with two bytes
    case 2: return 0x07;  // ends with three bytes
    default: return 0x04; // starts or continues
    }
}

} // namespace

void QConnectQmlPlugin::sendSysEx(const QList<int> &packetValues)
{
    QByteArray events;
    const int count = packetValues.size();
    for (int i = 0; i <= count; ++i) {
        if (events.size() % eventSize == 0)
            events.append(sysExCodeIndex(count - i));
        if (i == 0)
            events.append(sysExStart);
        if (i < count)
            events.append(char(packetValues.at(i)));
    }
    events.append(sysExEnd);
    while (events.size() % eventSize != 0)
        events.append('\0');

    const int eventCount = events.size() / eventSize;
    MIDI_PACKET packet(zelta::midiPacketHeader, quint16(eventCount));
    for (int i = 0; i < eventCount; ++i) {
        MIDI_DATA event;
        std::memcpy(&event, events.constData() + i * eventSize, sizeof(event));
        packet.setData(i, event);
    }
    writeMidiData(packet);
}

void QConnectQmlPlugin::forwardTestCommand(const QString &high, const QString &low, const QString &value)
{
    Q_EMIT testCommand(high, low, value);
}

void QConnectQmlPlugin::forwardSysEx(const QString &sysEx)
{
    Q_EMIT this->sysEx(sysEx);
}
