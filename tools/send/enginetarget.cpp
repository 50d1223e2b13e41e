#include "enginetarget.h"

#include "tools/shared/engineaddress.h"

#include <QStringList>

namespace {

constexpr char fixedHost[] = "172.20.21.22";
constexpr quint16 usualPort = 19797;

} // namespace

EngineTarget engineTarget()
{
    const QString text = qEnvironmentVariable(engineVariable);
    if (text.isEmpty())
        return {QHostAddress(QLatin1String(fixedHost)), usualPort};
    const QStringList parts = text.split(QLatin1Char(':'));
    return {QHostAddress(parts.at(0)), parts.size() > 1 ? parts.at(1).toUShort() : usualPort};
}
