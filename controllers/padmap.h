#pragma once

#include <QtGlobal>

#include <optional>

namespace zelta {

/// Where on the kit a note sounds.
struct PadZone
{
    quint8 pad;  ///< 0 to 13
    quint8 zone; ///< 0 to 2
};

/// The pad and zone whose strike sends this MIDI note, if any.
std::optional<PadZone> struckPad(quint8 note);

/// The pad that is choked by aftertouch on this MIDI note, if any.
std::optional<quint8> chokedPad(quint8 note);

} // namespace zelta
