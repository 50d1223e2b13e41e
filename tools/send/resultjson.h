#pragma once

#include "result.h"

#include <QJsonObject>
#include <QJsonValue>

// Every object has the same keys in every run; a value that does not apply is null. docs/zelta-send.md lists
// them.

QJsonObject jsonOf(const Result &result);
QJsonObject jsonOf(const FileResult &file);
QJsonObject jsonOf(const Finding &finding);
/// "1.05", or null for -1.
QJsonValue jsonVersion(int version);
