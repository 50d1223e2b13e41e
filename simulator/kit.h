// The pads of the kit, their zones and the notes they play.
#pragma once

#include <QString>
#include <QVector>

namespace simulated {

struct Zone
{
    const char *name; ///< as commands and scenarios write it
    quint8 note;
    quint8 pad;       ///< 0 to 13
    bool canBeChoked; ///< reports pressure when it is held
};

const QVector<Zone> &kitZones();

/// The zone that plays note, or nullptr.
const Zone *zoneOfNote(int note);

/// The note of a zone's name ("snare") or of a number ("38", "0x26") from 0 to 127; -1 if it is neither.
int noteFromText(const QString &text);

} // namespace simulated
