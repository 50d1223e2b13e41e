#pragma once

#include <QtGlobal>

namespace zelta {

/// Parameter traffic goes out on MIDI channel 10, 9 counted from zero.
constexpr quint8 parameterChannel = 9;

} // namespace zelta
