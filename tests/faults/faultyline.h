#pragma once

#include "control/qconnectqmlplugin.h"
#include "failures/enginethread.h"
#include "support/enginepeer.h"
#include "support/logcatcher.h"
#include "support/networknamespace.h"

/// A module and the engine's socket with a cable in between.
struct FaultyLine
{
    FaultyLine();

    testsupport::EngineNetwork network;
    testsupport::EnginePeer peer;
    QConnectQmlPlugin module;
    /// Both have heard of each other.
    bool connected = false;

    /// A parameter of the module arrives, and what the engine sends arrives, whatever was before: waits for
    /// the addresses to be known again.
    bool worksAgain();
};

/// The warnings that were logged, without the one of Qt's own that no test can avoid: from 5.13 on Qt relays
/// the error of a send from the transfer thread to the thread of the socket, without the type that this
/// takes. It says so once per socket.
QStringList warningsOf(const testsupport::LogCatcher &log);

/// A thread for simulated engines on the engine's side of the network.
class FarEngineThread : public EngineThread
{
public:
    explicit FarEngineThread(const testsupport::EngineNetwork &network);
};
