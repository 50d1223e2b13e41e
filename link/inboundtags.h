#pragma once

#include "link/tag.h"

// Tags in datagrams from the sound engine. Acknowledgements of files use the tags of the transfer packets.

namespace zelta {

// Forms of datagrams: the second word of an event, the first word of a meter report.
constexpr quint16 eventTag = tag('A', 'C');
constexpr quint16 compressorMeterTag = tag('C', 'R');
constexpr quint16 outputMeterTag = tag('D', 'R');

// Kinds of events: the first word of an event.
constexpr quint16 flashSizeEvent = tag('F', 'R');
constexpr quint16 beatEvent = tag('B', 'T');
constexpr quint16 potEvent = tag('C', 'O');
constexpr quint16 switchEvent = tag('S', 'W');
constexpr quint16 tempoEvent = tag('T', 'M');
constexpr quint16 midiEvent = tag('I', 'M');

// Switches: the first value of a switch event.
constexpr quint16 powerSwitch = tag('P', 'W');
constexpr quint16 foot1Switch = tag('F', '1');
constexpr quint16 foot2Switch = tag('F', '2');
constexpr quint16 aux3Switch = tag('A', '3');
constexpr quint16 aux4Switch = tag('A', '4');
constexpr quint16 headphoneDetect = tag('H', 'P');
constexpr quint16 mixInDetect = tag('M', 'I');
constexpr quint16 homeButton = tag('H', 'M');

} // namespace zelta
