#pragma once

#include "control/qconnectqmlplugin.h"
#include "support/enginepeer.h"
#include "support/signalrecorder.h"

namespace testsupport {

/// An engine peer, a module that has already sent it a datagram, and a recorder of the signals that the
/// module emits afterwards.
struct ConnectedModule
{
    EnginePeer peer;
    QConnectQmlPlugin module;
    const bool connected = peer.connectTo(&module);
    SignalRecorder recorder{&module};

    /// Sends datagrams and waits until the module has processed all of them.
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
