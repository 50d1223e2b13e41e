#include "controllers/qconnectmonitor_cp.h"

#include "link/parameterpages.h"

qconnectmonitor_cp::qconnectmonitor_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(zelta::monitorPage, owner, parent)
{}
