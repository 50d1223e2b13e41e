#include "link/engineaddress.h"

#include "link/logging.h"

#include <optional>

namespace zelta {

namespace {

constexpr char environmentVariable[] = "ZELTACONNECT_ENGINE";
constexpr quint16 defaultPort = 0x4D55;

EngineAddress fixedAddress()
{
    return {QHostAddress(QStringLiteral("172.20.21.22")), defaultPort};
}

std::optional<EngineAddress> parse(const QString &text)
{
    const int colon = text.indexOf(QLatin1Char(':'));
    const QString hostText = text.left(colon);
    const QHostAddress host(hostText);
    // QHostAddress also takes short forms such as "127.1"; only the four-part form round-trips.
    if (host.protocol() != QAbstractSocket::IPv4Protocol || host.toString() != hostText)
        return std::nullopt;
    if (colon < 0)
        return EngineAddress{host, defaultPort};

    bool ok = false;
    const quint16 port = text.midRef(colon + 1).toUShort(&ok);
    if (!ok || port == 0)
        return std::nullopt;
    return EngineAddress{host, port};
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
