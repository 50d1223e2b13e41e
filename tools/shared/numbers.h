#pragma once

#include <QString>

/// Reads a decimal number. Returns false if text is none, or if it is out of range.
inline bool readNumber(const QString &text, int least, int most, int *number)
{
    bool ok = false;
    *number = text.toInt(&ok);
    return ok && *number >= least && *number <= most;
}
