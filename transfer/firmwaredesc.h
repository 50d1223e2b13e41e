#pragma once

#include <QString>

/// One queued transfer task.
struct FirmwareDesc
{
    QString path; ///< file to send, empty for a query
    QString name; ///< name of an imported sound bank
    int kind;     ///< a zelta::TaskKind
    int slot;     ///< slot of an import, index of a bluetooth file, -1 for none
};
