#pragma once

#include "job.h"

#include <QString>
#include <QVector>

/// Reads a list of files to send: on each line files and their --kind, --slot and --name, as on the command
/// line. Blanks separate; double quotes keep a text with blanks together, and inside them a backslash takes
/// the next character as it is. Lines that are empty or begin with # are skipped. Paths are relative to the
/// folder of the list. Returns an empty text, or one line about the first error.
QString readListFile(const QString &path, QVector<Job> *jobs);
