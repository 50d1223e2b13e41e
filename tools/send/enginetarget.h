#pragma once

#include <QHostAddress>
#include <QString>

/// The address that the module sends to.
struct EngineTarget
{
    QHostAddress host;
    quint16 port;

    /// ADDRESS:PORT
    QString text() const { return QStringLiteral("%1:%2").arg(host.toString()).arg(port); }
};

/// The address in ZELTACONNECT_ENGINE, which must be one, or the fixed one of the sound engine.
EngineTarget engineTarget();
