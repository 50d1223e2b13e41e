#pragma once

#include "control/qconnectqmlplugin.h"
#include "failures/enginethread.h"
#include "support/enginepeer.h"
#include "support/networknamespace.h"

/// A module and the engine's socket, with a network between them.
struct FaultyLine
{
    FaultyLine();

    testsupport::EngineNetwork network;
    testsupport::EnginePeer peer;
    QConnectQmlPlugin module;
    /// True when each end has received a datagram of the other.
    bool connected = false;

    /// Waits until a parameter of the module and an event of the engine arrive. Both do when the system has
    /// resolved the addresses again. False if one of them does not arrive.
    bool worksAgain();
};

/// A thread for simulated engines at the engine's end of the network.
class FarEngineThread : public EngineThread
{
public:
    explicit FarEngineThread(const testsupport::EngineNetwork &network);
};
