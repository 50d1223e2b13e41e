#include "engineaddress.h"

#include <QHostAddress>
#include <QStringList>

namespace {

// 0.0.0.0/8 is no host's address; multicast, reserved addresses and broadcast begin at 224.0.0.0.
constexpr quint32 firstUnicast = 0x01000000;
constexpr quint32 firstMulticast = 0xE0000000;

bool isUnicast(const QHostAddress &host)
{
    bool isIPv4 = false;
    const quint32 address = host.toIPv4Address(&isIPv4);
    return isIPv4 && address >= firstUnicast && address < firstMulticast;
}

} // namespace

bool isEngineAddress(const QString &text)
{
    const QStringList parts = text.split(QLatin1Char(':'));
    // QHostAddress also reads shorter forms, and QString reads numbers with signs and blanks.
    const QHostAddress address(parts.at(0));
    if (parts.size() > 2 || !isUnicast(address) || address.toString() != parts.at(0))
        return false;
    if (parts.size() == 1)
        return true;
    const quint16 port = parts.at(1).toUShort();
    return port != 0 && QString::number(port) == parts.at(1);
}

QString engineVariableProblem()
{
    const QString text = qEnvironmentVariable(engineVariable);
    if (text.isEmpty() || isEngineAddress(text))
        return {};
    return QStringLiteral("%1 takes an IPv4 address, or address:port, not %2")
        .arg(QLatin1String(engineVariable), text);
}
