#pragma once

#include <QIODevice>

class QFile;

namespace zelta {

/// Opens a file read-only, in text mode if asked for. Returns false when that fails, and for a named pipe:
/// opening one waits for a writer, which would hold the calling thread for ever.
bool openForReading(QFile &file, QIODevice::OpenMode textMode = QIODevice::NotOpen);

} // namespace zelta
