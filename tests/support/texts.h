#pragma once

#include <QString>
#include <QStringList>

#include <initializer_list>

namespace testsupport {

/// A string list of literals.
inline QStringList texts(std::initializer_list<const char *> literals)
{
    QStringList result;
    for (const char *literal : literals)
        result += QString::fromUtf8(literal);
    return result;
}

} // namespace testsupport
