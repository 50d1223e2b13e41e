#pragma once

#include "support/table.h"

namespace zelta {
namespace wire {

/// One call of a method and all datagrams that it must send.
struct WireRow
{
    const char *method;
    const char *arguments; ///< as in a QML expression
    const char *meaning;
    const char
        *datagrams; ///< as datagrams() reads them, in their order; an empty text means that nothing is sent
    int calls = 1;  ///< number of calls; each one sends the datagrams
    const char *warning = nullptr; ///< the warning that is logged instead of a datagram
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
