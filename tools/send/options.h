#pragma once

#include "job.h"

#include <QStringList>
#include <QVector>

/// The command line of zelta-send.
struct Options
{
    enum class Action { Send, DryRun, AskVersions, Inspect, Diagnose, Help, Version, Refuse };

    Action action = Action::Send;
    QString error;     ///< with Refuse: one line that says why
    QVector<Job> jobs; ///< with Send and DryRun
    QStringList files; ///< with Inspect
    QString engine;    ///< ADDRESS[:PORT]; empty: ZELTACONNECT_ENGINE or the default
    QString importDir; ///< folder that holds the QML module; empty: the default one
    int timeoutS = defaultTimeoutS;
    bool keepGoing = false;
    bool json = false;
    bool quiet = false;
    bool progress = false; ///< rate lines also without a terminal

    /// Long enough for the largest sound bank and for the wait of ten minutes for its acknowledgement.
    static constexpr int defaultTimeoutS = 1800;
};

/// Reads the arguments, which do not include the program's name. Reads the file of --list as well.
Options parseOptions(const QStringList &arguments);
/// Must not be called while an application object exists.
QString helpText();
/// The name of an action in the result of --json.
QString actionName(Options::Action action);
