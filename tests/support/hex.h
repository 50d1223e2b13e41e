#pragma once

#include <QByteArray>

namespace testsupport {

/// The bytes that a hex text says; blanks are for the reader.
inline QByteArray hex(const char *text)
{
    return QByteArray::fromHex(text);
}

} // namespace testsupport
