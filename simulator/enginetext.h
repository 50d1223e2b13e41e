// The engine's datagrams as text, the same as that of the Wireshark dissector.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace simulated {

/// The datagrams of an engine, one line for each. Gathers SysEx messages and test commands as the module
/// does.
class EngineText
{
public:
    /// The line of the next datagram, which may be any bytes.
    QString take(const QByteArray &datagram);

private:
    /// Returns true if the event belongs to a SysEx message.
    bool gatherSysEx(const QByteArray &datagram);
    QString takeMidi(const QByteArray &datagram);
    bool completesTestCommand(const QByteArray &datagram);

    int m_sysExEvents = 0;
    QByteArray m_sysEx;
    bool m_sysExEnded = false;
    int m_testCommandCount = 0;
    std::array<int, 3> m_testCommand{-1, -1, -1};
};

} // namespace simulated
