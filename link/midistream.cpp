#include "link/sockettransceiver.h"

#include "link/logging.h"

// The engine sends its MIDI output as one event per datagram. The event is decoded as hex text, two
// characters a byte: "494d" "4143", then status, code index, second and first data byte.

namespace {

constexpr int datagramChars = 16;
constexpr int eventChars = 8;
constexpr int eventPosition = 8;
constexpr int codeIndexPosition = 10;
constexpr int valuePosition = 12;
constexpr int controllerPosition = 14;

// A message whose end is lost must not fill the memory.
constexpr int sysExCharLimit = 8 * 1024 * 1024;

enum TestCommandPart { ParameterMsb, ParameterLsb, ParameterValue, UnknownPart };
constexpr int partsOfACommand = UnknownPart;

TestCommandPart testCommandPart(const QStringRef &controller)
{
    if (controller == QLatin1String("63"))
        return ParameterMsb;
    if (controller == QLatin1String("62"))
        return ParameterLsb;
    if (controller == QLatin1String("06"))
        return ParameterValue;
    return UnknownPart;
}

} // namespace

QString SocketTransceiver::getSysExContent(const QString &event)
{
    if (event.size() != eventChars)
        return QString();
    return event.mid(2, 2) + event.mid(0, 2) + event.mid(6, 2) + event.mid(4, 2);
}

void SocketTransceiver::parseDatagram(const QString &hex, const QString &status, const QString &cin)
{
    if (hex.size() != datagramChars || !hex.startsWith(QLatin1String("494d4143")))
        return;

    const QStringRef statusByte = hex.midRef(eventPosition, 2);
    const QStringRef codeIndexByte = hex.midRef(codeIndexPosition, 2);
    const QString event = hex.mid(eventPosition);
    // The end is searched in the text, so it is also found across two bytes.
    const bool starts = statusByte == QLatin1String("f0");
    const bool ends = !starts && event.contains(QLatin1String("f7"));
    if (starts || ends || !m_sysEx.isEmpty()) {
        gatherSysEx(event);
        if (ends) {
            Q_EMIT receivedSysEx(m_sysEx);
            m_sysEx.clear();
        }
    } else if (statusByte == status && codeIndexByte == cin) {
        storeTestCommandPart(hex);
    }
}

void SocketTransceiver::gatherSysEx(const QString &event)
{
    if (m_sysEx.size() >= sysExCharLimit) {
        qCWarning(lcLink) << "SysEx message without end dropped after" << m_sysEx.size() / 2 << "bytes";
        m_sysEx.clear();
    }
    m_sysEx += getSysExContent(event);
}

void SocketTransceiver::storeTestCommandPart(const QString &hex)
{
    const TestCommandPart part = testCommandPart(hex.midRef(controllerPosition, 2));
    if (part == UnknownPart)
        return;
    m_testCommandParts.at(part) = hex;
    m_testCommandCount = qMin(m_testCommandCount + 1, partsOfACommand);
    // The counter counts parts since the last command, in any order. A value that arrives before two other
    // parts is stored and not emitted.
    if (part == ParameterValue && m_testCommandCount == partsOfACommand) {
        m_testCommandCount = 0;
        Q_EMIT receivedTestCommand(m_testCommandParts.at(ParameterMsb).mid(valuePosition, 2),
                                   m_testCommandParts.at(ParameterLsb).mid(valuePosition, 2),
                                   m_testCommandParts.at(ParameterValue).mid(valuePosition, 2));
    }
}
