#pragma once

#include "link/dropcounter.h"
#include "link/engineaddress.h"

#include <QByteArray>
#include <QHostAddress>
#include <QString>
#include <QThread>

#include <array>

struct msghdr;
class QUdpSocket;

/// The UDP socket to the sound engine, and the thread that receives from it.
///
/// The object lives in the GUI thread. The receive thread receives, decodes and sorts datagrams and emits the
/// signals, so receivers in the GUI thread get them queued. GUI thread and transfer thread send, each with
/// one system call on the descriptor of the socket and without a lock. The descriptor stays the same from
/// construction to destruction; destroy the object when no other thread can send any more.
///
/// When the receive buffer is full, the kernel drops datagrams. A warning gives their number, at most once a
/// second, after the first datagram that arrives later.
class SocketTransceiver : public QThread
{
    Q_OBJECT

public:
    /// Waits for the engine to answer a ping (blocks for at most ten seconds), then opens the socket: bound
    /// to the engine's address if that is the fixed one and an address of this host, otherwise to a port that
    /// the system chooses. The receive thread starts with the first datagram.
    SocketTransceiver();
    /// Stops the receive thread, waits for its end without limit, then closes the socket.
    ~SocketTransceiver() override;

    /// The address of the engine, read once at construction. Any thread.
    const zelta::EngineAddress &engine() const { return m_engine; }

    /// Sends data as one datagram to address and port. A socket that is bound to the engine's address uses
    /// the stream-style write instead, which ignores both; Qt refuses it for a socket that is not connected.
    /// Returns the number of bytes sent, or -1 on failure. GUI thread or transfer thread.
    qint64 writeToSocket(const QByteArray &data, const QHostAddress &address, quint16 port);
    /// Sends size bytes as one datagram to address and port, for any binding of the socket.
    /// Returns the number of bytes sent, or -1 on failure. GUI thread or transfer thread.
    qint64 writeToSocket(const char *data, qint64 size, const QHostAddress &address, quint16 port);

    /// Decodes one datagram, given as lowercase hex text, as part of the engine's MIDI stream: collects SysEx
    /// messages, and recognises test commands with the given status and code index bytes (two hex characters
    /// each). Ignores everything else. Receive thread.
    void parseDatagram(const QString &hex, const QString &status, const QString &cin);

    /// Returns the bytes of one inbound event (8 hex characters) in USB-MIDI order; the engine sends them
    /// swapped in pairs. Returns an empty text for any other length. Any thread.
    static QString getSysExContent(const QString &event);

public Q_SLOTS:
    /// Starts the receive thread at low priority, unless it runs already. GUI thread.
    void startTransceiver();

Q_SIGNALS:
    /// An event of three words: its kind and two values.
    void sockUdpPacketArrived(quint16 id, quint16 idx, quint16 data);
    /// Compressor meters: section, then input, gain reduction and output, each left and right.
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
    void countDrops();
    bool receiveDatagram(QByteArray &datagram);
    void updateDrops(msghdr &message);
    void reportDrops();
    void waitForDatagram();
    void sortDatagram(const QByteArray &datagram, const QString &hex);
    void gatherSysEx(const QString &event);
    void storeTestCommandPart(const QString &hex);

    // The receive loop.
    void __func(); // NOLINT(bugprone-reserved-identifier)

    const zelta::EngineAddress m_engine;
    QUdpSocket *m_socket = nullptr;
    int m_descriptor = -1;
    bool m_bound = false;
    int m_testCommandCount = 0;
    std::array<QString, 3> m_testCommandParts;
    QString m_sysEx;
    zelta::DropCounter m_drops; // of the receive thread
};
