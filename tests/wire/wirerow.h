#pragma once

#include "support/table.h"

namespace zelta {
namespace wire {

/// One call of a method and everything that it must put on the wire.
struct WireRow
{
    const char *method;
    const char *arguments; ///< as QML writes them
    const char *meaning;
    const char *datagrams; ///< hex, in their order; '|' ends a datagram, an empty text stands for silence
    int calls = 1;         ///< the datagrams come once per call
    const char *warning = nullptr; ///< what is logged instead of a datagram
};

extern const testsupport::Table<WireRow> directRows;
extern const testsupport::Table<WireRow> metronomeRows;
extern const testsupport::Table<WireRow> mixerRows;
extern const testsupport::Table<WireRow> padEqualizerRows;
extern const testsupport::Table<WireRow> outputEqualizerRows;
extern const testsupport::Table<WireRow> compressorRows;
extern const testsupport::Table<WireRow> padSoundRows;
extern const testsupport::Table<WireRow> effectRows;
extern const testsupport::Table<WireRow> triggerRows;
extern const testsupport::Table<WireRow> systemRows;
extern const testsupport::Table<WireRow> slotRows;

} // namespace wire
} // namespace zelta
