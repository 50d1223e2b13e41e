#include "controllers/qconnectmonitor_cp.h"

namespace {

constexpr quint8 monitorPage = 0x39;

} // namespace

qconnectmonitor_cp::qconnectmonitor_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(monitorPage, owner, parent)
{}
