#include "controllers/qconnectpad_cp.h"

#include "controllers/encodings.h"

void qconnectpad_cp::setPadCpActive(bool active, quint8 note, quint8 channel)
{
    sendParameter({0x28, note}, zelta::onOff(active), channel);
}

void qconnectpad_cp::setPadCpAttackTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x29, note}, value, channel);
}

void qconnectpad_cp::setPadCpReleaseTime(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x2A, note}, value, channel);
}

void qconnectpad_cp::setPadCpThreshold(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x2B, note}, value, channel);
}

void qconnectpad_cp::setPadCpRatio(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x2C, note}, value, channel);
}

void qconnectpad_cp::setPadCpBoost(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x2D, note}, value, channel);
}

void qconnectpad_cp::setPadCpKnee(quint8 value, quint8 note, quint8 channel)
{
    sendParameter({0x2E, note}, value, channel);
}

void qconnectpad_cp::requestLevelUpdate(quint8 note, quint8 channel)
{
    sendParameter({0x2F, note}, 0, channel);
}
