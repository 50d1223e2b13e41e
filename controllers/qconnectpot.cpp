#include "controllers/qconnectpot.h"

#include "control/qconnectqmlplugin.h"
#include "link/inboundtags.h"

#include <array>

namespace {

using StepSignal = void (QConnectQmlPlugin::*)();

struct PotSignals
{
    StepSignal down;
    StepSignal up;
};

constexpr std::array<PotSignals, 4> pots{{
    {&QConnectQmlPlugin::triggerPot0Dec, &QConnectQmlPlugin::triggerPot0Inc},
    {&QConnectQmlPlugin::triggerPot1Dec, &QConnectQmlPlugin::triggerPot1Inc},
    {&QConnectQmlPlugin::triggerPot2Dec, &QConnectQmlPlugin::triggerPot2Inc},
    {&QConnectQmlPlugin::triggerPot3Dec, &QConnectQmlPlugin::triggerPot3Inc},
}};

} // namespace

qconnectpot::qconnectpot(QConnectQmlPlugin *owner, QQuickItem *parent)
    : DeviceController(owner, parent)
{
    connect(owner, SIGNAL(potPacketArrived(quint16, quint16, quint16)), this,
            SLOT(handle(quint16, quint16, quint16)));
}

void qconnectpot::handle(quint16 id, quint16 idx, quint16 data)
{
    if (id != zelta::potEvent || idx >= pots.size())
        return;
    const PotSignals &pot = pots.at(idx);
    Q_EMIT(owner()->*(data == 0 ? pot.down : pot.up))();
}
