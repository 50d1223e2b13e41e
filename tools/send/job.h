#pragma once

#include "kinds.h"

#include <QString>

/// One file to send.
struct Job
{
    QString path;
    const Kind *kind = nullptr;
    int slot = -1;
    QString name;  ///< of an imported sound bank; empty: its file's name
    int group = 0; ///< files of one set have the same number; after a failure the rest of a set is not sent
};
