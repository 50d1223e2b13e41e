#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"

#include <QMutexLocker>

namespace {

// Low byte of a data acknowledgement.
constexpr quint8 ackGoOn = 0x00;
constexpr quint8 ackRetransmit = 0xBE;
constexpr quint8 ackMemoryFullFirst = 0xE1;
constexpr quint8 ackMemoryFullLast = 0xE3;
constexpr quint8 ackRefusal = 0xE0; // in the high nibble

} // namespace

/// Where the reply to a version query is kept, and who is told.
struct qconnectfirmware::VersionReply
{
    quint16 id;
    std::atomic<int> qconnectfirmware::*version;
    void (QConnectQmlPlugin::*changed)();
};

const qconnectfirmware::VersionReply *qconnectfirmware::versionReply(quint16 id)
{
    static constexpr VersionReply replies[] = {
        {zelta::zeltaVersionQuery, &qconnectfirmware::m_zeltaVersion,
         &QConnectQmlPlugin::zeltaVersionChanged},
        {zelta::triggerVersionQuery, &qconnectfirmware::m_triggerBoardVersion,
         &QConnectQmlPlugin::triggerVersionChanged},
        {zelta::soundBankVersionQuery, &qconnectfirmware::m_soundBankVersion,
         &QConnectQmlPlugin::soundbankVersionChanged},
        {zelta::triggerBankVersionQuery, &qconnectfirmware::m_triggerBankVersion,
         &QConnectQmlPlugin::triggerbankVersionChanged},
    };
    for (const VersionReply &reply : replies) {
        if (reply.id == id)
            return &reply;
    }
    return nullptr;
}

// The state changes under the mutex; the signals go out after it is released and last of all, because their
// handlers may call any method, or delete the object.
void qconnectfirmware::handleAck(quint16 id, quint16 a, quint16 b)
{
    const VersionReply *version = versionReply(id);
    QMutexLocker locker(&m_taskMutex);
    pushLogLine(QStringLiteral("ack handle %1 : %2 : %3").arg(id).arg(a).arg(b));
    if (version) {
        m_lastReplyValue = zelta::versionWord(a, b);
        this->*version->version = m_lastReplyValue;
        wakeWaiter();
        locker.unlock();
        Q_EMIT(m_plugin->*version->changed)();
        return;
    }
    switch (id) {
    case zelta::hihatRawValueQuery:
        m_lastReplyValue = a;
        wakeWaiter();
        locker.unlock();
        Q_EMIT m_plugin->hihatRawValueChanged(a);
        break;
    case zelta::endPacketKind: handleEndAck(a, b); break;
    case zelta::dataPacketKind: handleDataAck(a, b); break;
    default: pushLogLine(QStringLiteral("unhandled id %1").arg(id)); break;
    }
}

void qconnectfirmware::handleEndAck(quint16 a, quint16 b)
{
    pushLogLine(QStringLiteral("End packet ACK received %1 : %2").arg(a).arg(b));
    m_endStatus = b;
    if (b != 0) {
        pushLogLine(QStringLiteral("checksum error"));
        m_endFailed = true;
    }
    wakeWaiter();
}

// Data acknowledgements end no wait: they interrupt the stream of data.
void qconnectfirmware::handleDataAck(quint16 a, quint16 b)
{
    const auto code = quint8(b & 0xFF);
    const quint32 from = quint32(b >> 8) << 16 | a;

    if (code == ackRetransmit) {
        const QMutexLocker locker(&m_retransmitMutex);
        requestRetransmit(from);
        ++m_retransmitCount;
        pushLogLine(QStringLiteral("<-- needs re-transmit beginning with %1").arg(from));
    } else if (code >= ackMemoryFullFirst && code <= ackMemoryFullLast) {
        pushLogLine(QStringLiteral("NACK_FULLMEMORY_ERR"));
        m_endStatus = b;
        m_abortRequested = true;
    } else if ((code & 0xF0) == ackRefusal) {
        const QMutexLocker locker(&m_retransmitMutex);
        pushLogLine(QStringLiteral("data & 0xF0 is 0xE0: "));
        m_stopRequested = true;
    } else if (code != ackGoOn) {
        const QMutexLocker locker(&m_retransmitMutex);
        pushLogLine(QStringLiteral("data & 0xFF is not 0: "));
        requestRetransmit(from);
        pushLogLine(QStringLiteral("one chunk is missed "));
    }
}

void qconnectfirmware::requestRetransmit(quint32 from)
{
    m_retransmitRequested = true;
    m_retransmitFrom = from;
}

void qconnectfirmware::wakeWaiter()
{
    m_answered = true;
    m_ackCondition.wakeOne();
}
