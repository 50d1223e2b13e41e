#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QStringList>

// The documented keys of the objects that zelta-send prints with --json. They are stable: scripts depend on
// them.

extern const QStringList resultKeys;
extern const QStringList fileKeys;
extern const QStringList checkKeys;
extern const QStringList systemKeys;

/// The only object on standard output; empty if it is anything else than one object on one line.
QJsonObject onlyObject(const QByteArray &output);
/// One object for each line; a line that is none gives an empty object.
QList<QJsonObject> objectLines(const QByteArray &errors);
/// True if the result and all objects in it have exactly the documented keys.
bool hasDocumentedKeys(const QJsonObject &result);
