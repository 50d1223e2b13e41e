#include "controllers/qconnectmaster_eq.h"

namespace {

constexpr quint8 masterPage = 0x38;

} // namespace

qconnectmaster_eq::qconnectmaster_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(masterPage, owner, parent)
{}
