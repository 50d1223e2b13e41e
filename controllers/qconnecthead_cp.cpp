#include "controllers/qconnecthead_cp.h"

namespace {

constexpr quint8 headPage = 0x3A;

} // namespace

qconnecthead_cp::qconnecthead_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(headPage, owner, parent)
{}
