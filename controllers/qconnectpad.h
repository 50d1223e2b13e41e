#pragma once

#include "controllers/parametercontroller.h"

#include <QTimer>

/// Pads: decodes what the engine reports when a pad is struck, choked or moved, and sends direct MIDI.
///
/// A pad event is packed into 32 bits: velocity or pressure (bits 0 to 7), MIDI note (8 to 15), pad 0 to 13
/// (16 to 19), zone 0 to 2 or 4 for aftertouch (24 to 26).
class qconnectpad : public ParameterController
{
    Q_OBJECT

public:
    qconnectpad(QConnectQmlPlugin *owner, QQuickItem *parent);

    /// Plays a note: a note on (velocity limited to 127) and at once its note off, one datagram each.
    void sendMidiNote(quint8 tone, quint8 velocity, quint8 channel);
    /// Sends any parameter; the value is limited to 127.
    void sendNrpn(quint8 msb, quint8 lsb, quint8 value, quint8 channel);
    /// Starts the engine's own MIDI test.
    void sendMidiAutoTest(quint8 channel);
    /// Gain of the mix input, sent as given to both of its channels, one datagram each.
    void sendMidiMixInputGain(quint8 gain, quint8 channel);

Q_SIGNALS:
    void noteReceived(uint note);
    void afterTouchReceived(uint note);
    void positionReceived(uint controller, uint position);
    void programReceived(uchar program);

public Q_SLOTS:
    /// Decodes one MIDI event of the engine: idx holds status and code index, data the second data byte
    /// (high) and the first (low).
    void handleNote(quint16 id, quint16 idx, quint16 data);

private:
    void handleStrike(quint8 note, quint8 velocity);
    void handleAfterTouch(quint8 note, quint8 pressure);
    void pressAuxSwitch(quint16 switchNumber);

    // Runs while an aux pad's strike still counts as the same press. Both aux pads share it.
    QTimer m_auxDebounce;
};
