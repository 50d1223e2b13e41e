#include "controllers/qconnecthead_eq.h"

namespace {

constexpr quint8 headPage = 0x3A;

} // namespace

qconnecthead_eq::qconnecthead_eq(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputEqualizer(headPage, owner, parent)
{}
