#pragma once

#include <QJsonObject>
#include <QString>

// Catalogues of installed banks. They are JSON files; only QML interprets their keys.

namespace zelta {

/// Returns the file's text, decoded as Latin-1, up to the first zero byte. Empty if it cannot be read.
QString catalogueText(const QString &path);
/// Returns the top-level object of a JSON file. Empty if the file cannot be read or has no such object.
QJsonObject catalogueObject(const QString &path);
/// Copies a file over a catalogue. Returns 0, -1 if the file cannot be read, or -2 if the catalogue cannot be
/// opened for writing. A full disk is not detected.
int replaceSoundBankCatalogue(const QString &path);
int replaceTriggerBankCatalogue(const QString &path);

} // namespace zelta
