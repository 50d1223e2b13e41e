#pragma once

#include "wireshark/capture.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QObject>
#include <QUdpSocket>
#include <QVector>

/// Relays all datagrams between a module and an engine and records them.
class Tap : public QObject
{
    Q_OBJECT

public:
    struct Record
    {
        std::chrono::nanoseconds time;
        Capture::Direction direction;
        QByteArray datagram;
    };

    explicit Tap(QObject *parent = nullptr);

    /// Listens at the address to which the module sends, and forwards to an engine at another address. False
    /// if an address cannot be bound.
    bool open(const QHostAddress &address, const QHostAddress &engine, quint16 enginePort);

    const QVector<Record> &records() const { return m_records; }
    void writeTo(Capture *capture) const;

private:
    void forwardToEngine();
    void forwardToModule();

    QUdpSocket m_moduleSide;
    QUdpSocket m_engineSide;
    QHostAddress m_engine;
    quint16 m_enginePort = 0;
    QHostAddress m_module;
    quint16 m_modulePort = 0;
    QElapsedTimer m_since;
    QVector<Record> m_records;
};
