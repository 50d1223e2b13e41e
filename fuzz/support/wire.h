#pragma once

#include <QByteArray>
#include <QList>

class QObject;

namespace fuzz {

// Replaces the network of the product. The datagrams that it sends are checked and dropped, and its receive
// loop receives the datagrams of the input. Nothing leaves the process.

/// Replaces the socket functions from now on.
void takeOverWire();

/// All datagrams of this kind that the product has sent so far. The kind is the first two bytes of a
/// datagram.
int sentCount(quint16 kind);
/// Keeps the datagrams that the calling thread sends from now on, for takeSent().
void keepSent(bool keep);
QList<QByteArray> takeSent();

/// Starts the receive thread of the module and delivers its first datagram.
void startReceiving(QObject *module);
/// Delivers datagrams to the receive loop and returns when the loop reads again.
void deliver(const QList<QByteArray> &datagrams);

} // namespace fuzz
