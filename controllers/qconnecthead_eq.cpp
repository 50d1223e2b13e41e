#include "controllers/qconnecthead_eq.h"

#include "link/parameterpages.h"

qconnecthead_eq::qconnecthead_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(zelta::headphonePage, owner, parent)
{}
