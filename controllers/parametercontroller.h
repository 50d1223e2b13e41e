#pragma once

#include "link/nrpn.h"

#include <QQuickItem>

class QConnectQmlPlugin;

/// What all device controllers share: the way to the control object that owns them, and the few forms in
/// which the sound engine takes a setting. Controllers keep no parameter state; every setter sends at once,
/// on the thread that calls it, and nothing is reported back.
class ParameterController : public QQuickItem
{
    Q_OBJECT

public:
    ParameterController(QConnectQmlPlugin *owner, QQuickItem *parent);

protected:
    /// One parameter, one data byte: three events in one datagram.
    void sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel) const;
    /// One parameter, two data bytes: four events in one datagram.
    void sendParameter(zelta::NrpnNumber number, zelta::DataEntry value, quint8 channel) const;
    /// A MIDI event outside the parameter scheme, alone in its datagram.
    void sendEvent(const MIDI_DATA &event) const;

    QConnectQmlPlugin *owner() const { return m_owner; }

private:
    QConnectQmlPlugin *const m_owner;
};
