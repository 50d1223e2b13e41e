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
    Interrupted = 130,
};

/// How something ended, for people and for scripts.
struct Outcome
{
    ExitStatus status;
    QString words;
};
