#include "transfer/qconnectfirmware.h"

#include "control/qconnectqmlplugin.h"
#include "transfer/fileversions.h"
#include "transfer/transfertags.h"

namespace {

// Low byte of a data acknowledgement.
constexpr quint8 ackNoError = 0x00;
constexpr quint8 ackRetransmit = 0xBE;
constexpr quint8 ackMemoryFullFirst = 0xE1;
constexpr quint8 ackMemoryFullLast = 0xE3;
constexpr quint8 ackRefusal = 0xE0; // in the high nibble

} // namespace

/// Where the reply to a version query is stored, and the signal that reports it.
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

// A signal is emitted last and without a lock: its handler may call any method, or delete the object.
void qconnectfirmware::handleAck(quint16 id, quint16 a, quint16 b)
{
    pushLogLine(QStringLiteral("ack handle %1 : %2 : %3").arg(id).arg(a).arg(b));
    if (const VersionReply *reply = versionReply(id)) {
        const int version = zelta::versionWord(a, b);
        this->*reply->version = version;
        m_state.storeReply(version);
        Q_EMIT(m_plugin->*reply->changed)();
        return;
    }
    switch (id) {
    case zelta::hihatRawValueQuery:
        m_state.storeReply(a);
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
    if (b != 0)
        pushLogLine(QStringLiteral("checksum error"));
    m_state.storeEnd(b);
}

void qconnectfirmware::handleDataAck(quint16 a, quint16 b)
{
    const auto code = quint8(b & 0xFF);
    const quint32 from = quint32(b >> 8) << 16 | a;

    if (code == ackRetransmit) {
        m_state.requestRetransmit(from, true);
        pushLogLine(QStringLiteral("<-- needs re-transmit beginning with %1").arg(from));
    } else if (code >= ackMemoryFullFirst && code <= ackMemoryFullLast) {
        pushLogLine(QStringLiteral("NACK_FULLMEMORY_ERR"));
        m_state.abort(b);
    } else if ((code & 0xF0) == ackRefusal) {
        pushLogLine(QStringLiteral("data & 0xF0 is 0xE0: "));
        m_state.requestStop();
    } else if (code != ackNoError) {
        pushLogLine(QStringLiteral("data & 0xFF is not 0: "));
        m_state.requestRetransmit(from, false);
        pushLogLine(QStringLiteral("one chunk is missed "));
    }
}
