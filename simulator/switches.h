// The switches of the module and their names.
#pragma once

#include <QString>

namespace simulated {

/// Reads a name ("foot1"), two letters ("F1") or a number of more than two characters ("0x4631"). isNamed is
/// true for a name; such a switch only has the values 0 and 1. Returns false for other texts.
bool readSwitch(const QString &text, quint16 *tag, bool *isNamed);

/// "foot1", or an empty text for a switch without a name.
QString switchName(quint16 tag);

/// "foot1", or the letters of a switch without a name.
QString switchText(quint16 tag);

/// All names, with commas between them.
QString switchNames();

} // namespace simulated
