#pragma once

#include <QIODevice>

class QFile;

namespace zelta {

/// Opens a file read-only, in text mode if requested. Returns false when that fails, and for everything that
/// is not a regular file: opening a named pipe waits for a writer, and a device may have no end.
bool openForReading(QFile &file, QIODevice::OpenMode textMode = QIODevice::NotOpen);

/// Writes one line to the log of transfers: why openForReading() returned false for the file.
void logUnreadable(const QFile &file);

} // namespace zelta
