#include "controllers/qconnecttrigger.h"

#include "control/logging.h"
#include "control/qconnectqmlplugin.h"
#include "link/tag.h"

#include <QElapsedTimer>
#include <QtEndian>

namespace {

constexpr int curvePoints = 9;
constexpr int curvePointsOffset = 4;
constexpr int curvePacketSize = curvePointsOffset + curvePoints * 2;
constexpr quint16 curvePacketKind = zelta::tag('T', 'C');

constexpr qint64 transferEndPauseMs = 100;

} // namespace

void qconnecttrigger::setTriggerBankPreset(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x40, pad}, value, channel);
}

void qconnecttrigger::setTriggerGain(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x41, pad}, value, channel);
}

void qconnecttrigger::setTriggerThreshold(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x42, pad}, value, channel);
}

void qconnecttrigger::setTriggerXTalk(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x43, pad}, value, channel);
}

void qconnecttrigger::setTriggerHighLevel(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x44, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHLowPosition(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x45, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHHighPosition(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x46, pad}, value, channel);
}

void qconnecttrigger::setTriggerScanTime(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x47, pad}, value, channel);
}

void qconnecttrigger::setTriggerRetriggerMask(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x48, pad}, value, channel);
}

void qconnecttrigger::setTriggerTriggerType(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x49, pad}, value, channel);
}

void qconnecttrigger::setTriggerPositionalSensing(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x4A, pad}, value, channel);
}

void qconnecttrigger::setTriggerCurvePreset(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x4C, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHChickSensitivity(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x4D, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHSplashSensitivity(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x4E, pad}, value, channel);
}

void qconnecttrigger::setTriggerDynLevel(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x50, pad}, value, channel);
}

void qconnecttrigger::setTriggerDynTime(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({0x51, pad}, value, channel);
}

void qconnecttrigger::sendTriggerCurvePacket(quint32 id, const QVector<int> &curve)
{
    if (curve.size() < curvePoints) {
        qCWarning(lcControl) << "trigger curve" << id << "not sent: it has" << curve.size() << "of"
                             << curvePoints << "points";
        return;
    }
    QByteArray packet(curvePacketSize, '\0');
    qToBigEndian<quint16>(curvePacketKind, packet.data());
    qToBigEndian<quint16>(quint16(id), packet.data() + 2);
    // Each point is a 16-bit number whose high byte is always zero.
    for (int i = 0; i < curvePoints; ++i)
        qToBigEndian<quint16>(quint8(curve.at(i)), packet.data() + curvePointsOffset + i * 2);
    owner()->writeBinaryData(packet);
}

void qconnecttrigger::sendTriggerTransferEnd(quint8 lsb, quint8 channel)
{
    sendParameter({0x4F, lsb}, 0, channel);
    QElapsedTimer sinceMarker;
    sinceMarker.start();
    while (!sinceMarker.hasExpired(transferEndPauseMs)) {
    }
}
