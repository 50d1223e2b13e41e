#include "controllers/qconnectmonitor_eq.h"

namespace {

constexpr quint8 monitorPage = 0x39;

} // namespace

qconnectmonitor_eq::qconnectmonitor_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(monitorPage, owner, parent)
{}
