#pragma once

#include "control/qconnectqmlplugin.h"
#include "support/enginepeer.h"
#include "support/signalrecorder.h"

namespace testsupport {

/// An engine peer, a module that has spoken to it once, and a record of all that the module signals since.
struct ConnectedModule
{
    EnginePeer peer;
    QConnectQmlPlugin module;
    const bool connected = peer.connectTo(&module);
    SignalRecorder recorder{&module};

    /// Sends datagrams and waits until the module has dealt with all of them.
    bool deliver(const QList<QByteArray> &datagrams)
    {
        for (const QByteArray &datagram : datagrams) {
            if (!peer.send(datagram))
                return false;
        }
        return peer.settle(&module);
    }
};

} // namespace testsupport
