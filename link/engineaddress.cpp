#include "link/engineaddress.h"

#include "link/logging.h"

#include <QString>

#include <optional>

namespace zelta {

namespace {

constexpr char environmentVariable[] = "ZELTACONNECT_ENGINE";
constexpr quint16 defaultPort = 0x4D55;

// No host has an address in 0.0.0.0/8; multicast, reserved addresses and broadcast begin at 224.0.0.0.
constexpr quint32 firstUnicast = 0x01000000;
constexpr quint32 firstMulticast = 0xE0000000;

EngineAddress fixedAddress()
{
    return {QHostAddress(QStringLiteral("172.20.21.22")), defaultPort, false};
}

bool isUnicast(const QHostAddress &host)
{
    bool isIPv4 = false;
    const quint32 address = host.toIPv4Address(&isIPv4);
    return isIPv4 && address >= firstUnicast && address < firstMulticast;
}

// QHostAddress also reads short forms such as "127.1", and QString reads numbers with signs and spaces. Only
// a text that equals the printed value is accepted.
std::optional<EngineAddress> parse(const QString &text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    const QString hostText = text.left(colon);
    const QHostAddress host(hostText);
    if (!isUnicast(host) || host.toString() != hostText)
        return std::nullopt;
    if (colon < 0)
        return EngineAddress{host, defaultPort, true};

    const QString portText = text.mid(colon + 1);
    const quint16 port = portText.toUShort();
    if (port == 0 || QString::number(port) != portText)
        return std::nullopt;
    return EngineAddress{host, port, true};
}

} // namespace

EngineAddress engineAddress()
{
    const QString text = qEnvironmentVariable(environmentVariable);
    if (text.isEmpty())
        return fixedAddress();
    if (const std::optional<EngineAddress> address = parse(text))
        return *address;
    EngineAddress fixed = fixedAddress();
    qCWarning(lcLink).nospace() << environmentVariable << " is " << text
                                << ", which is not ADDRESS or ADDRESS:PORT (IPv4); using "
                                << fixed.host.toString();
    return fixed;
}

} // namespace zelta
