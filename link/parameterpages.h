#pragma once

#include <QtGlobal>

namespace zelta {

// The high byte of a parameter's number is a page. These hold parameters of several controllers. Of the
// others most stand for a single parameter of the pads, with a pad's note as the low byte.
constexpr quint8 generalPage = 0x37;
constexpr quint8 masterPage = 0x38;
constexpr quint8 monitorPage = 0x39;
constexpr quint8 headphonePage = 0x3A;

} // namespace zelta
