#pragma once

#include <QtGlobal>

namespace zelta {

/// Packs two ASCII letters into the 16-bit tag that the sound engine uses for event kinds, packet kinds and
/// content: the first letter is the high byte, so that a big-endian word reads as text in a network trace.
constexpr quint16 eventKind(char first, char second)
{
    return quint16((quint16(static_cast<unsigned char>(first)) << 8) | static_cast<unsigned char>(second));
}

// What the sound engine reports. Its acknowledgements of files are words of the transfer.
constexpr quint16 flashSizeEvent = eventKind('F', 'R');
constexpr quint16 beatEvent = eventKind('B', 'T');
constexpr quint16 potEvent = eventKind('C', 'O');
constexpr quint16 switchEvent = eventKind('S', 'W');
constexpr quint16 tempoEvent = eventKind('T', 'M');
constexpr quint16 midiEvent = eventKind('I', 'M');

// Switches, the second word of a switch event.
constexpr quint16 powerSwitch = eventKind('P', 'W');
constexpr quint16 foot1Switch = eventKind('F', '1');
constexpr quint16 foot2Switch = eventKind('F', '2');
constexpr quint16 aux3Switch = eventKind('A', '3');
constexpr quint16 aux4Switch = eventKind('A', '4');
constexpr quint16 headphoneDetect = eventKind('H', 'P');
constexpr quint16 mixInDetect = eventKind('M', 'I');
constexpr quint16 homeButton = eventKind('H', 'M');

} // namespace zelta
