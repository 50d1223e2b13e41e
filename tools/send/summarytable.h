#pragma once

#include "result.h"

#include <QStringList>

/// The lines of a table of files that were sent, or would be; a heading comes first.
QStringList summaryTable(const std::vector<FileResult> &files);
