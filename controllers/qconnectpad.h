#pragma once

#include "controllers/devicecontroller.h"

#include <QTimer>

/// Pads: decodes the MIDI events of the engine (strikes, aftertouch, positions and program changes) and sends
/// direct MIDI.
///
/// A pad event is packed into 32 bits: velocity or pressure (bits 0 to 7), MIDI note (bits 8 to 15), pad 0 to
/// 13 (bits 16 to 19), zone 0 to 2, or 4 for aftertouch (bits 24 to 26).
class qconnectpad : public DeviceController
{
    Q_OBJECT

public:
    qconnectpad(QConnectQmlPlugin *owner, QQuickItem *parent);

    /// Sends a note on, with the velocity limited to 127, and a note off, one datagram each.
    void sendMidiNote(quint8 tone, quint8 velocity, quint8 channel);
    /// Sends the parameter with the given number; the value is limited to 127.
    void sendNrpn(quint8 msb, quint8 lsb, quint8 value, quint8 channel);
    /// Sends the parameter of the MIDI auto-test.
    void sendMidiAutoTest(quint8 channel);
    /// Gain of the mix input. Sends two parameters, one datagram each.
    void sendMidiMixInputGain(quint8 gain, quint8 channel);

Q_SIGNALS:
    void noteReceived(uint note);
    void afterTouchReceived(uint note);
    void positionReceived(uint controller, uint position);
    void programReceived(uchar program);

public Q_SLOTS:
    /// Decodes one MIDI event of the engine. idx holds the status (high byte) and the code index (low byte),
    /// data the second (high byte) and the first data byte (low byte). A handler of the emitted signals may
    /// delete the control object.
    void handleNote(quint16 id, quint16 idx, quint16 data);

private:
    void handleStrike(quint8 note, quint8 velocity);
    void handleAfterTouch(quint8 note, quint8 pressure);
    void pressAuxSwitch(quint16 switchNumber);

    // One timer for both aux pads. While it runs, their strikes do not press a switch.
    QTimer m_auxDebounce;
};
