#pragma once

#include "link/nrpn.h"

#include <QQuickItem>

class QConnectQmlPlugin;

/// Base of all device controllers. Sends the messages that change settings of the sound engine, through the
/// control object that owns the controller.
///
/// A controller keeps no copy of the engine's settings. A setter sends its value at once, in the calling
/// thread; it does not wait for an answer and reports no failure. Unless a setter says otherwise, the value
/// is sent unchecked. An argument `channel` is the 0-based MIDI channel.
class DeviceController : public QQuickItem
{
    Q_OBJECT

public:
    DeviceController(QConnectQmlPlugin *owner, QQuickItem *parent);

protected:
    /// Sends a parameter of one data byte: three events in one datagram.
    void sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel) const;
    /// Sends a parameter of two data bytes: four events in one datagram.
    void sendParameter(zelta::NrpnNumber number, zelta::DataEntry value, quint8 channel) const;
    /// Sends a single MIDI event in a datagram of its own.
    void sendEvent(const MIDI_DATA &event) const;

    QConnectQmlPlugin *owner() const { return m_owner; }

private:
    QConnectQmlPlugin *const m_owner;
};
