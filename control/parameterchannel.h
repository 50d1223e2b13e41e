#pragma once

#include <QtGlobal>

namespace zelta {

/// Channel of all parameter messages: MIDI channel 10, counted from 0.
constexpr quint8 parameterChannel = 9;

} // namespace zelta
