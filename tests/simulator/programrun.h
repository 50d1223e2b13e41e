// One run of the program zelta-engine-sim, with a socket that stands in for the module.
#pragma once

#include "support/datagram.h"
#include "support/hex.h"

#include <QProcess>
#include <QUdpSocket>

#include <memory>

using testsupport::datagram;
using testsupport::hex;

/// Base of tests of the program. Every wait has a limit.
class ProgramRun
{
protected:
    static constexpr int patience = 20000;

    ProgramRun() { m_process.setProgram(QStringLiteral(ENGINE_PROGRAM)); }

    /// Call it before each test function.
    bool prepare()
    {
        m_output.clear();
        m_socket = std::make_unique<QUdpSocket>();
        return m_socket->bind(QHostAddress(QHostAddress::LocalHost), 0);
    }

    /// Call it after each test function.
    void end()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished();
        }
    }

    /// Starts the program and waits until it listens on a free port of its address.
    bool start(const QStringList &arguments)
    {
        m_process.setArguments(QStringList{QStringLiteral("--listen"), QStringLiteral(ENGINE_ADDRESS ":0")} +
                               arguments);
        m_process.start();
        const QByteArray address = ENGINE_ADDRESS ":";
        if (!waitForLine("listening on " + address))
            return false;
        const int at = m_output.indexOf(address) + address.size();
        m_port = m_output.mid(at, m_output.indexOf('\n', at) - at).toUShort();
        return m_port != 0;
    }

    /// Waits for a text in the output, which may arrive in pieces; all of it is searched.
    bool waitForLine(const QByteArray &line)
    {
        while (!m_output.contains(line) || !m_output.endsWith('\n')) {
            if (!m_process.waitForReadyRead(patience))
                return false;
            m_output += m_process.readAllStandardOutput();
        }
        return true;
    }

    /// Waits for the end of the program.
    bool finish()
    {
        const bool finished =
            m_process.state() == QProcess::NotRunning || m_process.waitForFinished(patience);
        m_output += m_process.readAllStandardOutput();
        return finished && m_process.exitStatus() == QProcess::NormalExit;
    }

    /// Types on standard input.
    void type(const char *text)
    {
        m_process.write(text);
        m_process.waitForBytesWritten(patience);
    }

    void send(const QByteArray &datagram)
    {
        m_socket->writeDatagram(datagram, QHostAddress(QStringLiteral(ENGINE_ADDRESS)), m_port);
    }

    /// The next datagram of the engine.
    QByteArray receive()
    {
        if (!m_socket->hasPendingDatagrams() && !m_socket->waitForReadyRead(patience))
            return QByteArrayLiteral("nothing");
        QByteArray bytes(2000, '\0');
        const qint64 size = m_socket->readDatagram(bytes.data(), bytes.size());
        return bytes.left(int(size));
    }

    QProcess m_process;
    QByteArray m_output;
    std::unique_ptr<QUdpSocket> m_socket;
    quint16 m_port = 0;
};
