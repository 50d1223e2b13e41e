#include "controllers/qconnecttrigger.h"

#include "control/qconnectqmlplugin.h"
#include "link/eventkind.h"
#include "link/logging.h"

#include <QElapsedTimer>
#include <QtEndian>

namespace {

// The page selects the parameter, the trigger input is the second half of the number.
constexpr quint8 bankPresetPage = 0x40;
constexpr quint8 gainPage = 0x41;
constexpr quint8 thresholdPage = 0x42;
constexpr quint8 xTalkPage = 0x43;
constexpr quint8 highLevelPage = 0x44;
constexpr quint8 hhLowPositionPage = 0x45;
constexpr quint8 hhHighPositionPage = 0x46;
constexpr quint8 scanTimePage = 0x47;
constexpr quint8 retriggerMaskPage = 0x48;
constexpr quint8 triggerTypePage = 0x49;
constexpr quint8 positionalSensingPage = 0x4A;
constexpr quint8 curvePresetPage = 0x4C;
constexpr quint8 hhChickSensitivityPage = 0x4D;
constexpr quint8 hhSplashSensitivityPage = 0x4E;
constexpr quint8 dynLevelPage = 0x50;
constexpr quint8 dynTimePage = 0x51;
constexpr quint8 transferEndPage = 0x4F;

constexpr int curvePoints = 9;
constexpr int curvePointsOffset = 4;
constexpr int curvePacketSize = curvePointsOffset + curvePoints * 2;
constexpr quint16 curvePacketKind = zelta::eventKind('T', 'C');

constexpr qint64 transferEndPauseMs = 100;

} // namespace

void qconnecttrigger::setTriggerBankPreset(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({bankPresetPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerGain(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({gainPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerThreshold(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({thresholdPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerXTalk(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({xTalkPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerHighLevel(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({highLevelPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHLowPosition(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({hhLowPositionPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHHighPosition(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({hhHighPositionPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerScanTime(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({scanTimePage, pad}, value, channel);
}

void qconnecttrigger::setTriggerRetriggerMask(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({retriggerMaskPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerTriggerType(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({triggerTypePage, pad}, value, channel);
}

void qconnecttrigger::setTriggerPositionalSensing(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({positionalSensingPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerCurvePreset(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({curvePresetPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHChickSensitivity(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({hhChickSensitivityPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerHHSplashSensitivity(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({hhSplashSensitivityPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerDynLevel(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({dynLevelPage, pad}, value, channel);
}

void qconnecttrigger::setTriggerDynTime(quint8 value, quint8 pad, quint8 channel)
{
    sendParameter({dynTimePage, pad}, value, channel);
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
    // Each point is a word whose high byte the device wants zero, whatever the point's own high byte is.
    for (int i = 0; i < curvePoints; ++i)
        qToBigEndian<quint16>(quint8(curve.at(i)), packet.data() + curvePointsOffset + i * 2);
    owner()->writeBinaryData(packet);
}

void qconnecttrigger::sendTriggerTransferEnd(quint8 lsb, quint8 channel)
{
    sendParameter({transferEndPage, lsb}, 0, channel);
    QElapsedTimer sinceMarker;
    sinceMarker.start();
    while (!sinceMarker.hasExpired(transferEndPauseMs)) {
    }
}
