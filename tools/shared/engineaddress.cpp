#include "engineaddress.h"

#include <QHostAddress>
#include <QStringList>

bool isEngineAddress(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    // QHostAddress alone takes shorter forms too.
    const QHostAddress address(parts.at(0));
    if (parts.size() > 2 || address.protocol() != QAbstractSocket::IPv4Protocol ||
        address.toString() != parts.at(0))
        return false;
    return parts.size() == 1 || parts.at(1).toUShort() != 0;
}

QString engineVariableProblem()
{
    const QString text = qEnvironmentVariable(engineVariable);
    if (text.isEmpty() || isEngineAddress(text))
        return {};
    return QStringLiteral("%1 takes an IPv4 address, or address:port, not %2")
        .arg(QLatin1String(engineVariable), text);
}
