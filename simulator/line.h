#pragma once

#include "datagramfilter.h"

#include <QHostAddress>
#include <QObject>
#include <QTimer>
#include <QUdpSocket>

namespace simulated {

/// The engine's end of the cable: one UDP socket and the module behind it.
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

    /// The module is whoever sent last; it can also be named before it sends anything.
    void setModule(const QHostAddress &address, quint16 port);
    QHostAddress moduleAddress() const { return m_module; }
    quint16 modulePort() const { return m_modulePort; }
    bool knowsModule() const { return m_modulePort != 0; }

    /// False when there is no module yet, or the engine has vanished, or the send failed; sendProblem() says
    /// which.
    bool send(const QByteArray &datagram);
    QString sendProblem() const { return m_sendProblem; }

    DatagramFilter &filter() { return m_filter; }
    const DatagramFilter &filter() const { return m_filter; }

Q_SIGNALS:
    void received(const QByteArray &datagram);
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
