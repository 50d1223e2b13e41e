#include "controllers/parametercontroller.h"

#include "control/qconnectqmlplugin.h"

ParameterController::ParameterController(QConnectQmlPlugin *owner, QQuickItem *parent)
    : QQuickItem(parent)
    , m_owner(owner)
{}

void ParameterController::sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel) const
{
    m_owner->writeMidiData(zelta::nrpnPacket(number, value, channel));
}

void ParameterController::sendParameter(zelta::NrpnNumber number, zelta::DataEntry value,
                                        quint8 channel) const
{
    m_owner->writeMidiData(zelta::nrpnPacket(number, value, channel));
}

void ParameterController::sendEvent(const MIDI_DATA &event) const
{
    m_owner->writeMidiData(zelta::singleEventPacket(event));
}
