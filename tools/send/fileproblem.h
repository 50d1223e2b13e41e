#pragma once

#include <QString>

/// Returns an empty text, or why the file cannot be sent.
QString fileProblem(const QString &path);
