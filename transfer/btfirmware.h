#pragma once

#include <QString>
#include <QStringList>

// Bluetooth firmware is a set of files, identified by the last three characters of their paths.

namespace zelta {

/// Index of a file of the set: NN for "bNN", 0 for a "b" before anything else, 0x4950 for "ipf", otherwise
/// -1.
int btFileIndex(const QString &path);

/// Progress of the set while the file with this index is sent: (index + 1) / 17 up to index 15, otherwise 0.
qreal btSetProgress(int index);

/// True when all files exist.
bool allExist(const QStringList &files);

} // namespace zelta
