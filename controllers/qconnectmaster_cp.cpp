#include "controllers/qconnectmaster_cp.h"

namespace {

constexpr quint8 masterPage = 0x38;

} // namespace

qconnectmaster_cp::qconnectmaster_cp(QConnectQmlPlugin *owner, QQuickItem *parent)
    : OutputCompressor(masterPage, owner, parent)
{}
