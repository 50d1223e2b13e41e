#pragma once

#include <QByteArray>
#include <QList>

class QObject;

namespace fuzz {

// The product's socket, cut off from the network: what it sends is looked at and dropped, and its receive
// loop is given the datagrams of the input. Nothing leaves the process.

/// Takes over the socket functions. The engine's address cannot be bound any more, as it is on the device,
/// where it is another host's.
void takeOverWire();

/// Everything the product has sent so far with this kind, the datagram's first two bytes.
int sentCount(quint16 kind);
/// Keeps what the calling thread sends from now on; takeSent() hands it over.
void keepSent(bool keep);
QList<QByteArray> takeSent();

/// Starts the receive thread of the module, with a datagram as its first one.
void startReceiving(QObject *module);
/// Has the receive loop take these datagrams and returns when it comes back for more.
void deliver(const QList<QByteArray> &datagrams);

} // namespace fuzz
