#pragma once

#include "kinds.h"

#include <QStringList>

/// What the command line asks for.
struct Options
{
    enum class Action { Send, AskVersions, Help, Version, Refuse };

    Action action = Action::Send;
    QString error; ///< with Refuse: what is wrong, in one line
    const Kind *kind = nullptr;
    QStringList files;
    int slot = -1;
    QString name;      ///< of an imported sound bank; empty: that of its file
    QString engine;    ///< ADDRESS[:PORT]; empty: as the environment says
    QString importDir; ///< folder that holds the QML module; empty: where it is by default
    int timeoutS = defaultTimeoutS;

    /// The largest sound bank and the ten minutes that it may take to be programmed.
    static constexpr int defaultTimeoutS = 1800;
};

/// The arguments without the program's name.
Options parseOptions(const QStringList &arguments);
QString helpText();
