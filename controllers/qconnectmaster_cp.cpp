#include "controllers/qconnectmaster_cp.h"

#include "link/parameterpages.h"

qconnectmaster_cp::qconnectmaster_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(zelta::masterPage, owner, parent)
{}
