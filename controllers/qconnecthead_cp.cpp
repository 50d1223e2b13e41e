#include "controllers/qconnecthead_cp.h"

#include "link/parameterpages.h"

qconnecthead_cp::qconnecthead_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(zelta::headphonePage, owner, parent)
{}
