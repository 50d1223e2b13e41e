#include "controllers/qconnectmaster_eq.h"

#include "link/parameterpages.h"

qconnectmaster_eq::qconnectmaster_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(zelta::masterPage, owner, parent)
{}
