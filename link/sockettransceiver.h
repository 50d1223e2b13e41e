#pragma once

#include "link/engineaddress.h"

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QThread>

#include <array>

class QUdpSocket;

/// The one UDP socket to the sound engine, and the thread that drains it.
///
/// Lives in the GUI thread. Datagrams are received, sorted and decoded in the thread that this object is; its
/// signals are emitted there, so receivers in the GUI thread get them queued. Sending is a single call of the
/// socket's public API and is done from the GUI thread and from the transfer thread, without a lock.
class SocketTransceiver : public QThread
{
    Q_OBJECT

public:
    /// Waits for the engine to answer a ping (blocks for at most ten seconds), then opens the socket. The
    /// receive thread starts with the first datagram.
    SocketTransceiver();
    /// Ends the receive thread, waiting for it without limit, and closes the socket.
    ~SocketTransceiver() override;

    /// The engine that this link was made for, fixed at construction. Any thread.
    const zelta::EngineAddress &engine() const { return m_engine; }

    /// Sends data as one datagram. A socket that could be bound to the engine's own address takes the
    /// stream-style write, which ignores the address; otherwise the datagram goes to address and port.
    /// Returns the number of bytes sent or -1. GUI thread or transfer thread.
    qint64 writeToSocket(const QByteArray &data, const QHostAddress &address, quint16 port);
    /// Sends size bytes as one datagram to address and port, however the socket is bound.
    /// Returns the number of bytes sent or -1. GUI thread or transfer thread.
    qint64 writeToSocket(const char *data, qint64 size, const QHostAddress &address, quint16 port);

    /// Decodes one datagram, given as lowercase hex text, as a part of the engine's MIDI stream: gathers
    /// SysEx messages, and recognises test commands that arrive with the given status and code index byte
    /// (two hex characters each). Anything else is ignored. Receive thread.
    void parseDatagram(const QString &hex, const QString &status, const QString &cin);

    /// Puts the bytes of one inbound event (8 hex characters) into USB-MIDI order; the engine sends them
    /// swapped in pairs. Returns an empty text for any other length. Any thread.
    static QString getSysExContent(const QString &event);

public Q_SLOTS:
    /// Starts the receive thread at low priority, unless it runs already.
    void startTransceiver();

Q_SIGNALS:
    /// A three-value event: its kind and two values.
    void sockUdpPacketArrived(quint16 id, quint16 idx, quint16 data);
    /// Compressor meters: section, then input, gain reduction and output, left and right each.
    void sockCompPacketArrived(quint16 channelId, quint16 inL, quint16 inR, quint16 grL, quint16 grR,
                               quint16 outL, quint16 outR);
    /// Output meters: master, monitor and headphone pairs, direct outputs 1 to 8, S/PDIF and USB pairs.
    void sockOutLevelPacketArrived(quint16 mainL, quint16 mainR, quint16 monL, quint16 monR, quint16 headL,
                                   quint16 headR, quint16 out1, quint16 out2, quint16 out3, quint16 out4,
                                   quint16 out5, quint16 out6, quint16 out7, quint16 out8, quint16 spdifL,
                                   quint16 spdifR, quint16 usbL, quint16 usbR);
    /// A complete test command: parameter MSB, LSB and value, two hex characters each.
    void receivedTestCommand(const QString &msb, const QString &lsb, const QString &value);
    /// A complete SysEx message as hex text of its USB-MIDI events.
    void receivedSysEx(const QString &message);

protected:
    void run() override;

private:
    void openSocket();
    void enlargeReceiveBuffer();
    bool receiveDatagram(QByteArray &datagram);
    void sortDatagram(const QByteArray &datagram, const QString &hex);
    void gatherSysEx(const QString &event);
    void storeTestCommandPart(const QString &hex);

    // The receive loop, under the name that profiles of the interface know it by.
    void __func(); // NOLINT(bugprone-reserved-identifier)

    const zelta::EngineAddress m_engine;
    QUdpSocket *m_socket = nullptr;
    int m_descriptor = -1;
    bool m_bound = false;
    int m_testCommandCount = 0;
    std::array<QString, 3> m_testCommandParts;
    QString m_sysEx;
};
