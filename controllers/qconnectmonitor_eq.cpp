#include "controllers/qconnectmonitor_eq.h"

#include "link/parameterpages.h"

qconnectmonitor_eq::qconnectmonitor_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(zelta::monitorPage, owner, parent)
{}
