#pragma once

#include <QIODevice>

class QFile;

namespace zelta {

/// Opens a file read-only, in text mode if asked for. Returns false when that fails, and for all that is no
/// regular file: a named pipe waits for a writer and a device may have no end, which would hold the calling
/// thread for ever.
bool openForReading(QFile &file, QIODevice::OpenMode textMode = QIODevice::NotOpen);

} // namespace zelta
