// The pads of the kit, their zones and their notes.
#pragma once

#include <QString>
#include <QVector>

namespace simulated {

struct Zone
{
    const char *name; ///< in commands and scenarios
    quint8 note;
    quint8 pad;       ///< 0 to 13
    quint8 zone;      ///< as the module reports it: 0 main, 1 rim, edge or cross stick, 2 bell
    bool canBeChoked; ///< reports pressure when it is choked
};

const QVector<Zone> &kitZones();

/// The zone with that note, or nullptr.
const Zone *zoneOfNote(int note);

/// The name of the zone with that note as commands take it, or the number of the note.
QString zoneText(int note);

/// The note of a zone's name ("snare") or of a number from 0 to 127 ("38", "0x26"); -1 for other texts.
int noteFromText(const QString &text);

} // namespace simulated
