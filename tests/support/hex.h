#pragma once

#include <QByteArray>

namespace testsupport {

/// The bytes of a text in hex. Blanks are ignored.
inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

} // namespace testsupport
