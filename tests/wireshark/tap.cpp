#include "wireshark/tap.h"

#include <QNetworkDatagram>

Tap::Tap(QObject *parent)
    : QObject(parent)
{
    connect(&m_moduleSide, &QUdpSocket::readyRead, this, &Tap::forwardToEngine);
    connect(&m_engineSide, &QUdpSocket::readyRead, this, &Tap::forwardToModule);
    m_since.start();
}

bool Tap::open(const QHostAddress &address, const QHostAddress &engine, quint16 enginePort)
{
    m_engine = engine;
    m_enginePort = enginePort;
    return m_moduleSide.bind(address, Capture::enginePort) && m_engineSide.bind(address, 0);
}

void Tap::forwardToEngine()
{
    while (m_moduleSide.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_moduleSide.receiveDatagram();
        m_module = datagram.senderAddress();
        m_modulePort = quint16(datagram.senderPort());
        m_records.append({std::chrono::nanoseconds(m_since.nsecsElapsed()), Capture::Direction::ToEngine,
                          datagram.data()});
        m_engineSide.writeDatagram(datagram.data(), m_engine, m_enginePort);
    }
}

void Tap::forwardToModule()
{
    while (m_engineSide.hasPendingDatagrams()) {
        const QNetworkDatagram datagram = m_engineSide.receiveDatagram();
        m_records.append({std::chrono::nanoseconds(m_since.nsecsElapsed()), Capture::Direction::FromEngine,
                          datagram.data()});
        m_moduleSide.writeDatagram(datagram.data(), m_module, m_modulePort);
    }
}

void Tap::writeTo(Capture *capture) const
{
    for (const Record &record : m_records)
        capture->appendAt(record.time, record.direction, record.datagram);
}
