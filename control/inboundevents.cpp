#include "control/qconnectqmlplugin.h"

#include "control/logging.h"
#include "link/inboundtags.h"

#include <QPointer>

namespace {

enum MeterSection : quint16 { MasterSection = 0, MonitorSection = 1, HeadphoneSection = 2 };

// Level of the engine that a property shows as 1.0.
constexpr double fullLevel = 70.0;

double fraction(quint16 level)
{
    return level / fullLevel;
}

// Stores the value. Returns true if the field had another value.
template<typename T>
bool assign(T &field, T value)
{
    if (field == value)
        return false;
    field = value;
    return true;
}

} // namespace

void QConnectQmlPlugin::udpPacket(quint16 id, quint16 idx, quint16 data)
{
    switch (id) {
    case zelta::flashSizeEvent: updateSampleFlashSize(data, idx); break;
    case zelta::beatEvent: updateBeat(idx); break;
    case zelta::potEvent: Q_EMIT potPacketArrived(id, idx, data); break;
    case zelta::switchEvent: updateSwitch(idx, data); break;
    case zelta::tempoEvent: updateTempo(idx); break;
    case zelta::midiEvent: Q_EMIT notePacketArrived(id, idx, data); break;
    default: Q_EMIT udpPacketArrived(id, idx, data); break;
    }
}

void QConnectQmlPlugin::updateNote(quint32 note)
{
    m_state.note = note;
    // Also emitted without a change: two equal strikes are two hits.
    Q_EMIT noteChanged();
}

void QConnectQmlPlugin::updateAfterTouchNote(quint32 note)
{
    if (assign(m_state.afterTouchNote, note))
        Q_EMIT afterTouchNoteChanged();
}

void QConnectQmlPlugin::updatePadPosition(quint32 controller, quint32 position)
{
    if (assign(m_state.position, (controller << 8) | position))
        Q_EMIT positionChanged();
}

void QConnectQmlPlugin::updateBeat(quint16 beat)
{
    if (beat != 0 && assign<quint32>(m_state.beat, beat))
        Q_EMIT beatChanged();
}

void QConnectQmlPlugin::updateTempo(quint16 tempo)
{
    qCDebug(lcControl) << "updateTempo" << tempo;
    if (tempo != 0 && assign<quint32>(m_state.tempo, tempo))
        Q_EMIT tempoChanged();
}

void QConnectQmlPlugin::updateSampleFlashSize(quint16 lo, quint16 hi)
{
    // Both formulas are intended: the total is twice the 32-bit number, the other size is lo * 128 KiB.
    const quint32 total = ((quint32(hi) << 16) | lo) * 2;
    const quint32 samples = quint32(lo) << 17;
    // A handler of the first signal may delete this object.
    const QPointer<QConnectQmlPlugin> self(this);
    if (assign(m_state.totalFlashSize, total))
        Q_EMIT totalSampleFlashSizeChanged();
    if (self && assign(m_state.flashSize, samples))
        Q_EMIT sampleFlashSizeChanged();
}

void QConnectQmlPlugin::updateComp(quint16 channelId, quint16 inL, quint16 inR, quint16 grL, quint16 grR,
                                   quint16 outL, quint16 outR)
{
    const zelta::CompressorMeters meters{fraction(inL), fraction(inR),  fraction(grL),
                                         fraction(grR), fraction(outL), fraction(outR)};
    switch (channelId) {
    case MasterSection:
        m_state.masterCp = meters;
        Q_EMIT masterCpChanged();
        break;
    case MonitorSection:
        m_state.monitorCp = meters;
        Q_EMIT monitorCpChanged();
        break;
    case HeadphoneSection:
        m_state.headCp = meters;
        Q_EMIT headCpChanged();
        break;
    default:
        m_state.padCp = meters;
        Q_EMIT padCpChanged();
        break;
    }
}

void QConnectQmlPlugin::updateOuts(quint16 mainL, quint16 mainR, quint16 monL, quint16 monR, quint16 headL,
                                   quint16 headR, quint16 out1, quint16 out2, quint16 out3, quint16 out4,
                                   quint16 out5, quint16 out6, quint16 out7, quint16 out8, quint16 spdifL,
                                   quint16 spdifR, quint16 usbL, quint16 usbR)
{
    m_state.outputs = {fraction(mainL),  fraction(mainR), fraction(monL), fraction(monR), fraction(headL),
                       fraction(headR),  fraction(out1),  fraction(out2), fraction(out3), fraction(out4),
                       fraction(out5),   fraction(out6),  fraction(out7), fraction(out8), fraction(spdifL),
                       fraction(spdifR), fraction(usbL),  fraction(usbR)};
    Q_EMIT outputLevelsChanged();
}

void QConnectQmlPlugin::updateSwitch(quint16 switchNumber, quint16 value)
{
    zelta::SwitchStates &switches = m_state.switches;
    const bool pressed = value != 0;
    switch (switchNumber) {
    case zelta::powerSwitch:
        if (assign(switches.power, pressed))
            Q_EMIT powerChanged();
        break;
    case zelta::foot1Switch:
        if (assign(switches.foot1, pressed))
            Q_EMIT foot1Changed();
        break;
    case zelta::foot2Switch:
        if (assign(switches.foot2, pressed))
            Q_EMIT foot2Changed();
        break;
    case zelta::aux3Switch:
        if (assign(switches.aux3, pressed))
            Q_EMIT aux3Changed();
        break;
    case zelta::aux4Switch:
        if (assign(switches.aux4, pressed))
            Q_EMIT aux4Changed();
        break;
    case zelta::headphoneDetect:
        if (assign(switches.hpDetect, pressed))
            Q_EMIT hpDetectChanged();
        break;
    case zelta::mixInDetect:
        if (assign(switches.mixInDetect, pressed))
            Q_EMIT mixInDetectChanged();
        break;
    case zelta::homeButton:
        if (assign(switches.homeButton, pressed))
            Q_EMIT homeButtonChanged(0);
        break;
    default: break;
    }
}

void QConnectQmlPlugin::updateProgram(quint8 program)
{
    Q_EMIT programChanged(program);
}
