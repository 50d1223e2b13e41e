#include "controllers/devicecontroller.h"

#include "control/qconnectqmlplugin.h"

DeviceController::DeviceController(QConnectQmlPlugin *owner, QQuickItem *parent)
    : QQuickItem(parent)
    , m_owner(owner)
{}

void DeviceController::sendParameter(zelta::NrpnNumber number, quint8 value, quint8 channel) const
{
    m_owner->writeMidiData(zelta::nrpnPacket(number, value, channel));
}

void DeviceController::sendParameter(zelta::NrpnNumber number, zelta::DataEntry value, quint8 channel) const
{
    m_owner->writeMidiData(zelta::nrpnPacket(number, value, channel));
}

void DeviceController::sendEvent(const MIDI_DATA &event) const
{
    m_owner->writeMidiData(zelta::singleEventPacket(event));
}
