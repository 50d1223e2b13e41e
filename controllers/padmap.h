#pragma once

#include <QtGlobal>

#include <optional>

namespace zelta {

/// A zone of a pad.
struct PadZone
{
    quint8 pad;  ///< 0 to 13
    quint8 zone; ///< 0 to 2
};

/// Returns the pad and zone of a strike with this MIDI note, or nothing if no pad has the note.
std::optional<PadZone> struckPad(quint8 note);

/// Returns the pad of an aftertouch event with this MIDI note, or nothing if no pad reports aftertouch with
/// it.
std::optional<quint8> chokedPad(quint8 note);

} // namespace zelta
