#pragma once

#include <QString>

/// Exit statuses of the program, for scripts.
enum class ExitStatus {
    Sent = 0,
    Failed = 1,
    Misused = 2,
    BadFile = 3,
    NoEngine = 4,
    NotNewer = 5,
    NoModule = 6,
    FaultFound = 7,
    Interrupted = 130,
};

/// The result of a transfer or of the program.
struct Outcome
{
    ExitStatus status;
    QString message;
};
