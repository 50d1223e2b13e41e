#pragma once

#include "support/table.h"
#include "wireshark/capture.h"

#include <QString>

/// Datagrams and what one field of the last of them shows.
struct FieldRow
{
    const char *name;
    const char *datagrams; ///< hex, '|' between them
    const char *field;
    const char *value; ///< several occurrences are separated by '|'
};

/// Call it in a test's data function. Captures the datagrams of each row as a separate conversation, dissects
/// them and adds one test row for each.
void addFieldRows(const testsupport::Table<FieldRow> &rows, Capture::Direction direction,
                  const QString &path);

template<std::size_t size>
void addFieldRows(const FieldRow (&rows)[size], Capture::Direction direction, const QString &path)
{
    addFieldRows(testsupport::Table<FieldRow>(rows), direction, path);
}

/// Call it in the test function. Compares the row.
void compareField();
