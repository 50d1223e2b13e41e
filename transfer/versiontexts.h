#pragma once

#include <QString>

namespace zelta {

/// Returns the text of a version with major and minor number: 0x00010005 is "V 1.05".
inline QString majorMinorText(int version)
{
    return QStringLiteral("V %1.%2").arg(version >> 16).arg(version & 0xFFFF, 2, 10, QLatin1Char('0'));
}

/// Returns the text of a version as one number: 0x00010005 is "V 65541".
inline QString wholeNumberText(int version)
{
    return QStringLiteral("V %1").arg(version);
}

} // namespace zelta
