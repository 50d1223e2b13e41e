#pragma once

#include <QtGlobal>

namespace zelta {

// Pages are the high bytes of parameter numbers. The controllers share these; other pages belong to one
// controller.
constexpr quint8 generalPage = 0x37;
constexpr quint8 masterPage = 0x38;
constexpr quint8 monitorPage = 0x39;
constexpr quint8 headphonePage = 0x3A;

} // namespace zelta
