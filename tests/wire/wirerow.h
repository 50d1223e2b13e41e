#pragma once

#include <vector>

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
};

extern const std::vector<WireRow> directRows;
extern const std::vector<WireRow> metronomeRows;
extern const std::vector<WireRow> mixerRows;
extern const std::vector<WireRow> padEqualizerRows;
extern const std::vector<WireRow> outputEqualizerRows;
extern const std::vector<WireRow> compressorRows;
extern const std::vector<WireRow> padSoundRows;
extern const std::vector<WireRow> effectRows;
extern const std::vector<WireRow> triggerRows;
extern const std::vector<WireRow> systemRows;
extern const std::vector<WireRow> slotRows;

} // namespace wire
} // namespace zelta
