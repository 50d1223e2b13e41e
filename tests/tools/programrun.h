#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

/// The end of a program that has run to its end.
struct ProgramRun
{
    int status = -1; ///< -1: a crash or a time-out
    QByteArray output;
    QByteArray errors;
};

/// Runs zelta-send with these arguments and the environment of this process.
ProgramRun runZeltaSend(const QStringList &arguments,
                        const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment());
