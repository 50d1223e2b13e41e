#include "controllers/qconnectpad.h"

#include "control/qconnectqmlplugin.h"
#include "controllers/encodings.h"
#include "controllers/padmap.h"
#include "link/inboundtags.h"
#include "link/parameterpages.h"

#include <QPointer>

#include <optional>

namespace {

// Status byte on MIDI channel 10 (high byte) and code index (low byte) of the events of pads.
constexpr quint16 noteOnEvent = 0x9909;
constexpr quint16 polyPressureEvent = 0xA90A;
constexpr quint16 controlChangeEvent = 0xB90B;
constexpr quint16 programChangeEvent = 0xC90C;

constexpr quint8 aux3Pad = 12;
constexpr quint8 aux4Pad = 13;
constexpr quint8 auxZones = 2; // the third zone of an aux pad does not press its switch
constexpr int auxDebounceMs = 200;

constexpr quint8 afterTouchZone = 4;

constexpr quint8 noteOffCodeIndex = 0x08;
constexpr quint8 noteOnCodeIndex = 0x09;
constexpr quint8 noteOffStatus = 0x80;
constexpr quint8 noteOnStatus = 0x90;

constexpr quint32 packedPadEvent(quint8 value, quint8 note, quint8 pad, quint8 zone)
{
    return value | (quint32(note) << 8) | (quint32(pad) << 16) | (quint32(zone) << 24);
}

} // namespace

qconnectpad::qconnectpad(QConnectQmlPlugin *owner, QQuickItem *parent)
    : DeviceController(owner, parent)
{
    m_auxDebounce.setInterval(auxDebounceMs);
    m_auxDebounce.setSingleShot(true);
    connect(owner, SIGNAL(notePacketArrived(quint16, quint16, quint16)), this,
            SLOT(handleNote(quint16, quint16, quint16)));
}

void qconnectpad::handleNote(quint16 id, quint16 idx, quint16 data)
{
    if (id != zelta::midiEvent)
        return;
    const auto data1 = quint8(data & 0xFF);
    const auto data2 = quint8(data >> 8);
    switch (idx) {
    case noteOnEvent: handleStrike(data1, data2); break;
    case polyPressureEvent: handleAfterTouch(data1, data2); break;
    case controlChangeEvent: Q_EMIT positionReceived(data1 & 0x7FU, data2 & 0x7FU); break;
    case programChangeEvent: Q_EMIT programReceived(data1 & 0x7F); break;
    default: break;
    }
}

void qconnectpad::handleStrike(quint8 note, quint8 velocity)
{
    const std::optional<zelta::PadZone> struck = zelta::struckPad(note);
    if (!struck)
        return;
    // A handler may delete the control object, and this controller with it.
    const QPointer<qconnectpad> self(this);
    Q_EMIT noteReceived(packedPadEvent(velocity, note, struck->pad, struck->zone));

    if (!self || velocity == 0 || struck->zone >= auxZones)
        return;
    if (struck->pad == aux3Pad)
        pressAuxSwitch(zelta::aux3Switch);
    else if (struck->pad == aux4Pad)
        pressAuxSwitch(zelta::aux4Switch);
}

void qconnectpad::handleAfterTouch(quint8 note, quint8 pressure)
{
    if (const std::optional<quint8> pad = zelta::chokedPad(note))
        Q_EMIT afterTouchReceived(packedPadEvent(pressure, note, *pad, afterTouchZone));
}

void qconnectpad::pressAuxSwitch(quint16 switchNumber)
{
    if (m_auxDebounce.isActive())
        return;
    const QPointer<qconnectpad> self(this);
    owner()->updateSwitch(switchNumber, 1);
    if (self)
        owner()->updateSwitch(switchNumber, 0);
    if (self)
        m_auxDebounce.start();
}

void qconnectpad::sendMidiNote(quint8 tone, quint8 velocity, quint8 channel)
{
    sendEvent({noteOnCodeIndex, quint8(noteOnStatus + channel), tone, zelta::limitedToSevenBits(velocity)});
    sendEvent({noteOffCodeIndex, quint8(noteOffStatus + channel), tone, 0});
}

void qconnectpad::sendNrpn(quint8 msb, quint8 lsb, quint8 value, quint8 channel)
{
    sendParameter({msb, lsb}, zelta::limitedToSevenBits(value), channel);
}

void qconnectpad::sendMidiAutoTest(quint8 channel)
{
    sendParameter({zelta::generalPage, 0x51}, 0x23, channel);
}

void qconnectpad::sendMidiMixInputGain(quint8 gain, quint8 channel)
{
    sendParameter({0x3C, 0x21}, gain, channel);
    sendParameter({0x3F, 0x21}, gain, channel);
}
