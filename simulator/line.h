#pragma once

#include "datagramfilter.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>

namespace simulated {

/// The engine's UDP socket and the address of the module.
class Line : public QObject
{
    Q_OBJECT

public:
    explicit Line(QObject *parent = nullptr);

    bool listen(const QHostAddress &address, quint16 port);
    void close();
    QHostAddress address() const { return m_socket.localAddress(); }
    quint16 port() const { return m_socket.localPort(); }
    QString errorString() const { return m_socket.errorString(); }

    /// Sets the address before the module sends anything. Each received datagram sets it, too.
    void setModule(const QHostAddress &address, quint16 port);
    QHostAddress moduleAddress() const { return m_module; }
    quint16 modulePort() const { return m_modulePort; }
    bool knowsModule() const { return m_modulePort != 0; }

    /// Returns false when no module is known, a failure mode has made the engine vanish, or the socket fails.
    /// sendProblem() returns the reason.
    bool send(const QByteArray &datagram);
    QString sendProblem() const { return m_sendProblem; }

    DatagramFilter &filter() { return m_filter; }
    const DatagramFilter &filter() const { return m_filter; }

Q_SIGNALS:
    void received(const QByteArray &datagram);
    /// A datagram as it comes from the network. A failure mode can still drop or delay it.
    void arrived(const QByteArray &datagram, const QHostAddress &sender, quint16 senderPort);
    void sent(const QByteArray &datagram);
    void moduleChanged(const QHostAddress &address, quint16 port);

private:
    bool refuse(const QString &problem);
    void readPending();
    void deliver(const QVector<QByteArray> &datagrams);

    QUdpSocket m_socket;
    QTimer m_flush;
    DatagramFilter m_filter;
    QHostAddress m_module;
    quint16 m_modulePort = 0;
    QString m_sendProblem;
};

} // namespace simulated
