#pragma once

#include "control/inboundstate.h"
#include "controllers/qconnecteffects.h"
#include "controllers/qconnecthead_cp.h"
#include "controllers/qconnecthead_eq.h"
#include "controllers/qconnectled.h"
#include "controllers/qconnectmaster_cp.h"
#include "controllers/qconnectmaster_eq.h"
#include "controllers/qconnectmetronome.h"
#include "controllers/qconnectmidi.h"
#include "controllers/qconnectmonitor_cp.h"
#include "controllers/qconnectmonitor_eq.h"
#include "controllers/qconnectpad.h"
#include "controllers/qconnectpad_cp.h"
#include "controllers/qconnectpad_eq.h"
#include "controllers/qconnectpad_extra.h"
#include "controllers/qconnectpad_instrument.h"
#include "controllers/qconnectpad_mixer.h"
#include "controllers/qconnectpot.h"
#include "controllers/qconnectprogram.h"
#include "controllers/qconnectswitches.h"
#include "controllers/qconnecttrigger.h"
#include "controllers/qconnectvolume.h"
#include "transfer/qconnectfirmware.h"

#include <QJsonObject>
#include <QList>
#include <QQuickItem>
#include <QString>
#include <QStringList>
#include <QVector>

#include <memory>

class DATA_PACKET;
class MIDI_PACKET;
struct RAW_PACKET;
class SocketTransceiver;

/// The back end of the touch screen: the QML type ZeltaConnect 1.0. Used from the GUI thread only.
///
/// Properties hold the values that the sound engine reported last. Methods change settings of the engine or
/// queue a transfer. Signals report what arrived; a handler may call any method and may delete the object.
///
/// A method that changes a setting sends one datagram at once. It does not wait for an answer and reports no
/// failure. Values are 0 to 127 in the device's own units and are sent unchecked, unless a comment says
/// otherwise; a value above 127 is sent with bit 7 set. An argument `note` is the MIDI note of a pad.
/// Arguments `mb` and `lb` are the high and the low byte of a routing.
class QConnectQmlPlugin : public QQuickItem
{
    Q_OBJECT

    // Pads and metronome.
    Q_PROPERTY(uint note READ note NOTIFY noteChanged FINAL)
    Q_PROPERTY(uint afterTouchNote READ afterTouchNote NOTIFY afterTouchNoteChanged FINAL)
    Q_PROPERTY(uint position READ position NOTIFY positionChanged FINAL)
    Q_PROPERTY(uint beat READ beat NOTIFY beatChanged FINAL)
    Q_PROPERTY(uint tempo READ tempo NOTIFY tempoChanged FINAL)

    // Sample memory, in bytes.
    Q_PROPERTY(uint flashSize READ flashSize NOTIFY sampleFlashSizeChanged FINAL)
    Q_PROPERTY(uint totalFlashSize READ totalFlashSize NOTIFY totalSampleFlashSizeChanged FINAL)

    // Compressor meters; the engine's level 70 is 1.0.
    Q_PROPERTY(double padCpInL READ padCpInL NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double padCpInR READ padCpInR NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double padCpGrL READ padCpGrL NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double padCpGrR READ padCpGrR NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double padCpOutL READ padCpOutL NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double padCpOutR READ padCpOutR NOTIFY padCpChanged FINAL)
    Q_PROPERTY(double masterCpInL READ masterCpInL NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double masterCpInR READ masterCpInR NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double masterCpGrL READ masterCpGrL NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double masterCpGrR READ masterCpGrR NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double masterCpOutL READ masterCpOutL NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double masterCpOutR READ masterCpOutR NOTIFY masterCpChanged FINAL)
    Q_PROPERTY(double monitorCpInL READ monitorCpInL NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double monitorCpInR READ monitorCpInR NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double monitorCpGrL READ monitorCpGrL NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double monitorCpGrR READ monitorCpGrR NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double monitorCpOutL READ monitorCpOutL NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double monitorCpOutR READ monitorCpOutR NOTIFY monitorCpChanged FINAL)
    Q_PROPERTY(double headCpInL READ headCpInL NOTIFY headCpChanged FINAL)
    Q_PROPERTY(double headCpInR READ headCpInR NOTIFY headCpChanged FINAL)
    Q_PROPERTY(double headCpGrL READ headCpGrL NOTIFY headCpChanged FINAL)
    Q_PROPERTY(double headCpGrR READ headCpGrR NOTIFY headCpChanged FINAL)
    Q_PROPERTY(double headCpOutL READ headCpOutL NOTIFY headCpChanged FINAL)
    Q_PROPERTY(double headCpOutR READ headCpOutR NOTIFY headCpChanged FINAL)

    // Output meters; the engine's level 70 is 1.0.
    Q_PROPERTY(double masterOutL READ masterOutL NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double masterOutR READ masterOutR NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double monitorOutL READ monitorOutL NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double monitorOutR READ monitorOutR NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double headOutL READ headOutL NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double headOutR READ headOutR NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out1Level READ out1Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out2Level READ out2Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out3Level READ out3Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out4Level READ out4Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out5Level READ out5Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out6Level READ out6Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out7Level READ out7Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double out8Level READ out8Level NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double spdifLLevel READ spdifLLevel NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double spdifRLevel READ spdifRLevel NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double usbInLLevel READ usbInLLevel NOTIFY outputLevelsChanged FINAL)
    Q_PROPERTY(double usbInRLevel READ usbInRLevel NOTIFY outputLevelsChanged FINAL)

    // Switches and jack detection; true while the engine reports a value other than 0.
    Q_PROPERTY(bool powerPressed READ powerPressed NOTIFY powerChanged FINAL)
    Q_PROPERTY(bool foot1Pressed READ foot1Pressed NOTIFY foot1Changed FINAL)
    Q_PROPERTY(bool foot2Pressed READ foot2Pressed NOTIFY foot2Changed FINAL)
    Q_PROPERTY(bool aux3Pressed READ aux3Pressed NOTIFY aux3Changed FINAL)
    Q_PROPERTY(bool aux4Pressed READ aux4Pressed NOTIFY aux4Changed FINAL)
    Q_PROPERTY(bool hpDetectPressed READ hpDetectPressed NOTIFY hpDetectChanged FINAL)
    Q_PROPERTY(bool mixInDetectPressed READ mixInDetectPressed NOTIFY mixInDetectChanged FINAL)
    Q_PROPERTY(bool homeButtonPressed READ homeButtonPressed NOTIFY homeButtonChanged FINAL)

    // Versions, formatted for display.
    Q_PROPERTY(QString zeltaFwVersion READ zeltaFwVersion NOTIFY zeltaVersionChanged)
    Q_PROPERTY(QString triggerFwVersion READ triggerFwVersion NOTIFY triggerVersionChanged)
    Q_PROPERTY(QString soundBankVersion READ soundBankVersion NOTIFY soundbankVersionChanged)
    Q_PROPERTY(QString triggerBankVersion READ triggerBankVersion NOTIFY triggerbankVersionChanged)

    // Transfer progress, 0 to 1.
    Q_PROPERTY(double soundBankProgress READ soundBankProgress NOTIFY soundProgressChanged)
    Q_PROPERTY(double triggerBankProgress READ triggerBankProgress NOTIFY triggerProgressChanged)
    Q_PROPERTY(double btfwProgress READ btfwProgress NOTIFY btfwProgressChanged)

public:
    /// Opens the link. Blocks the GUI thread until the sound engine answers a ping, for 10 s at most.
    explicit QConnectQmlPlugin(QQuickItem *parent = nullptr);
    /// Aborts a running transfer, closes the link and waits for both threads.
    ~QConnectQmlPlugin() override;

    // Write path. Each call sends one datagram and returns the number of bytes sent, or -1. Called in the GUI
    // thread, writeBinaryData(const DATA_PACKET &) in the transfer thread.

    qint64 writeMidiData(const MIDI_PACKET &packet);
    qint64 writeBinaryData(const DATA_PACKET &packet);
    qint64 writeBinaryData(const QByteArray &bytes);
    qint64 writeRawData(const RAW_PACKET &packet);

    // Property values.

    uint note() const { return m_state.note; }
    uint afterTouchNote() const { return m_state.afterTouchNote; }
    uint position() const { return m_state.position; }
    uint beat() const { return m_state.beat; }
    uint tempo() const { return m_state.tempo; }
    uint flashSize() const { return m_state.flashSize; }
    uint totalFlashSize() const { return m_state.totalFlashSize; }

    double padCpInL() const { return m_state.padCp.inL; }
    double padCpInR() const { return m_state.padCp.inR; }
    double padCpGrL() const { return m_state.padCp.grL; }
    double padCpGrR() const { return m_state.padCp.grR; }
    double padCpOutL() const { return m_state.padCp.outL; }
    double padCpOutR() const { return m_state.padCp.outR; }
    double masterCpInL() const { return m_state.masterCp.inL; }
    double masterCpInR() const { return m_state.masterCp.inR; }
    double masterCpGrL() const { return m_state.masterCp.grL; }
    double masterCpGrR() const { return m_state.masterCp.grR; }
    double masterCpOutL() const { return m_state.masterCp.outL; }
    double masterCpOutR() const { return m_state.masterCp.outR; }
    double monitorCpInL() const { return m_state.monitorCp.inL; }
    double monitorCpInR() const { return m_state.monitorCp.inR; }
    double monitorCpGrL() const { return m_state.monitorCp.grL; }
    double monitorCpGrR() const { return m_state.monitorCp.grR; }
    double monitorCpOutL() const { return m_state.monitorCp.outL; }
    double monitorCpOutR() const { return m_state.monitorCp.outR; }
    double headCpInL() const { return m_state.headCp.inL; }
    double headCpInR() const { return m_state.headCp.inR; }
    double headCpGrL() const { return m_state.headCp.grL; }
    double headCpGrR() const { return m_state.headCp.grR; }
    double headCpOutL() const { return m_state.headCp.outL; }
    double headCpOutR() const { return m_state.headCp.outR; }

    double masterOutL() const { return m_state.outputs.masterL; }
    double masterOutR() const { return m_state.outputs.masterR; }
    double monitorOutL() const { return m_state.outputs.monitorL; }
    double monitorOutR() const { return m_state.outputs.monitorR; }
    double headOutL() const { return m_state.outputs.headL; }
    double headOutR() const { return m_state.outputs.headR; }
    double out1Level() const { return m_state.outputs.out1; }
    double out2Level() const { return m_state.outputs.out2; }
    double out3Level() const { return m_state.outputs.out3; }
    double out4Level() const { return m_state.outputs.out4; }
    double out5Level() const { return m_state.outputs.out5; }
    double out6Level() const { return m_state.outputs.out6; }
    double out7Level() const { return m_state.outputs.out7; }
    double out8Level() const { return m_state.outputs.out8; }
    double spdifLLevel() const { return m_state.outputs.spdifL; }
    double spdifRLevel() const { return m_state.outputs.spdifR; }
    double usbInLLevel() const { return m_state.outputs.usbInL; }
    double usbInRLevel() const { return m_state.outputs.usbInR; }

    bool powerPressed() const { return m_state.switches.power; }
    bool foot1Pressed() const { return m_state.switches.foot1; }
    bool foot2Pressed() const { return m_state.switches.foot2; }
    bool aux3Pressed() const { return m_state.switches.aux3; }
    bool aux4Pressed() const { return m_state.switches.aux4; }
    bool hpDetectPressed() const { return m_state.switches.hpDetect; }
    bool mixInDetectPressed() const { return m_state.switches.mixInDetect; }
    bool homeButtonPressed() const { return m_state.switches.homeButton; }

    QString zeltaFwVersion() const { return m_firmware.getZeltaVersion(); }
    QString triggerFwVersion() const { return m_firmware.getTriggerBoardVersion(); }
    QString soundBankVersion() const { return m_firmware.getSoundBankVersion(); }
    QString triggerBankVersion() const { return m_firmware.getTriggerBankVersion(); }
    double soundBankProgress() const { return m_state.soundBankProgress; }
    double triggerBankProgress() const { return m_state.triggerBankProgress; }
    double btfwProgress() const { return m_state.btfwProgress; }

    // Direct MIDI
    /// Sends a note on and a note off, one datagram each. The velocity is limited to 127.
    Q_INVOKABLE void sendMidiNote(uchar tone, uchar velocity);
    /// Sends a SysEx message; the low bytes of the values are sent between its start and end byte. A message
    /// of more than about 49,000 values exceeds a datagram and is not sent.
    Q_INVOKABLE void sendSysEx(const QList<int> &packetValues);
    /// Sets the parameter with the given number, high byte first. The value is limited to 127.
    Q_INVOKABLE void sendDirectNrpn(uchar firstByte, uchar secondByte, uchar value);

    // Metronome
    Q_INVOKABLE void setMetronomeClick(uchar tone); ///< click sound
    Q_INVOKABLE void setMetronomeClickLevel(uchar level);
    Q_INVOKABLE void setMetronomeTempo(ushort tempo); ///< beats per minute, 20 to 275
    Q_INVOKABLE void setMetronomeTimeSignatureNum(uchar numerator);
    Q_INVOKABLE void setMetronomeTimeSignatureDen(uchar denominator);
    Q_INVOKABLE void setMetronomeInterval(uchar interval); ///< subdivision of the beat
    Q_INVOKABLE void setMetronomeActive(bool active);
    Q_INVOKABLE void setMetronomeTap(bool tap);
    Q_INVOKABLE void setMetronomeClickRouting(uchar mb, uchar lb);
    Q_INVOKABLE void setMetronomeTapNote1(uchar note); ///< MIDI note
    Q_INVOKABLE void setMetronomeTapNote2(uchar note); ///< MIDI note
    Q_INVOKABLE void setMetronomeAccent(bool accent);

    // Front panel and mix input
    Q_INVOKABLE void setLedEnabled(int id, bool enable); ///< LED number, 0 to 65535
    Q_INVOKABLE void setLedBrightness(uchar level);
    Q_INVOKABLE void sendMidiMixInputGain(uchar gain); ///< sends two datagrams

    // Mixer
    Q_INVOKABLE void setSnareStyle(uchar style); ///< 0 to 2; higher values are sent as 2
    Q_INVOKABLE void setXFadeBalance(uchar balance);
    Q_INVOKABLE void setMixInLevel(uchar level);
    Q_INVOKABLE void setSynthMasterLevel(uchar level);
    Q_INVOKABLE void setMasterOutBalance(uchar balance); ///< 0 to 127; 1 is sent as 0
    Q_INVOKABLE void setMasterOutLevel(uchar level);
    Q_INVOKABLE void setMonitorOutBalance(uchar balance); ///< 0 to 127; 1 is sent as 0
    Q_INVOKABLE void setMonitorOutLevel(uchar level);
    Q_INVOKABLE void setHeadphoneOutBalance(uchar balance); ///< 0 to 127; 1 is sent as 0
    Q_INVOKABLE void setHeadphoneOutLevel(uchar level);
    Q_INVOKABLE void setSongLevel(uchar level);
    Q_INVOKABLE void setPlaybackRouting(uchar mb, uchar lb);
    Q_INVOKABLE void setDirectOut1Level(uchar level);
    Q_INVOKABLE void setDirectOut2Level(uchar level);
    Q_INVOKABLE void setDirectOut3Level(uchar level);
    Q_INVOKABLE void setDirectOut4Level(uchar level);
    Q_INVOKABLE void setDirectOut5Level(uchar level);
    Q_INVOKABLE void setDirectOut6Level(uchar level);
    Q_INVOKABLE void setDirectOut7Level(uchar level);
    Q_INVOKABLE void setDirectOut8Level(uchar level);
    Q_INVOKABLE void setSpdifOutLevel(uchar level);
    Q_INVOKABLE void setUsbInLevel(uchar level);
    Q_INVOKABLE void setDirectOutMode(uchar index, uchar mode); ///< index from 0, not checked
    Q_INVOKABLE void requestOutsUpdate();                       ///< requests one report of the output meters
    Q_INVOKABLE void setDrumKitVolume(uchar level);             ///< limited to 127

    // Pad equaliser
    // Gain in dB, limited to -15...15; Q limited to 0.1...8; frequency 0 to 16383.
    Q_INVOKABLE void setPadEqActive(uchar note, bool active);
    Q_INVOKABLE void setPadEqLowFreq(uchar note, uint frequency);
    Q_INVOKABLE void setPadEqLowGain(uchar note, int gain);
    Q_INVOKABLE void setPadEqHighFreq(uchar note, uint frequency);
    Q_INVOKABLE void setPadEqHighGain(uchar note, int gain);
    Q_INVOKABLE void setPadEqMid1Freq(uchar note, uint frequency);
    Q_INVOKABLE void setPadEqMid1Gain(uchar note, int gain);
    Q_INVOKABLE void setPadEqMid1Q(uchar note, double q);

    // Pad compressor
    Q_INVOKABLE void setPadCpActive(bool active, uchar note);
    Q_INVOKABLE void setPadCpAttackTime(uchar value, uchar note);
    Q_INVOKABLE void setPadCpReleaseTime(uchar value, uchar note);
    Q_INVOKABLE void setPadCpThreshold(uchar value, uchar note);
    Q_INVOKABLE void setPadCpRatio(uchar value, uchar note);
    Q_INVOKABLE void setPadCpBoost(uchar value, uchar note);
    Q_INVOKABLE void setPadCpKnee(uchar value, uchar note);
    Q_INVOKABLE void requestPadUpdate(uchar note); ///< requests one report of the pad's compressor meters

    // Pad instrument
    // Coarse tuning in semitones, -64 to 63.
    Q_INVOKABLE void setSoundGroup(uchar value, uchar note);
    Q_INVOKABLE void setSoundInstr(uchar value, uchar note);
    Q_INVOKABLE void setInstrumentCoarseTuning(signed char tuning, uchar note);
    Q_INVOKABLE void setInstrumentFineTuning(uchar fineTuning, uchar note);
    Q_INVOKABLE void setInstrumentVolume(uchar value, uchar note);
    Q_INVOKABLE void setInstrumentSecondCoarseTuning(signed char tuning, uchar note);
    Q_INVOKABLE void setInstrumentSecondFineTuning(uchar fineTuning, uchar note);

    // Pad envelope, second sound and MIDI note
    Q_INVOKABLE void setPadExtraAttackTime(uchar value, uchar note);
    Q_INVOKABLE void setPadExtraEnvelopeReleaseTime(uchar value, uchar note);
    Q_INVOKABLE void setPadExtraCrossfeedBuzz(uchar value, uchar note);     ///< sends nothing
    Q_INVOKABLE void setPadExtraSecondSoundActive(uchar value, uchar note); ///< on unless the value is 0
    Q_INVOKABLE void setPadExtraSecondSoundSelect(uint value, uchar note);  ///< 0 to 16383; two datagrams
    Q_INVOKABLE void setPadExtraSecondSoundVolume(uchar value, uchar note);
    Q_INVOKABLE void setPadExtraSecondSoundAttack(uchar value, uchar note);
    Q_INVOKABLE void setPadExtraSecondSoundRelease(uchar value, uchar note);
    Q_INVOKABLE void setPadMidiNote(uchar extNote, uchar note); ///< extNote is the external MIDI note

    // Pad mixer
    Q_INVOKABLE void setPadMixerVolume(uchar value, uchar note);
    Q_INVOKABLE void setPadMixerAmbience(uchar value, uchar note);
    Q_INVOKABLE void setPadMixerPanning(uchar value, uchar note); ///< 0 to 127; 1 is sent as 0
    Q_INVOKABLE void setPadMixerRoomReverb(uchar value, uchar note);
    Q_INVOKABLE void setPadMixerInstrumentReverb(uchar value, uchar note);
    Q_INVOKABLE void setPadMixerMultiFX(uchar value, uchar note);
    Q_INVOKABLE void setPadMixerMultiFXDirect(uchar mb, uchar lb, uchar note);

    // Master equaliser
    // For all three outputs: gain in dB, limited to -15...15; Q limited to 0.1...8; frequency 0 to 16383.
    Q_INVOKABLE void setMasterEqActive(bool active);
    Q_INVOKABLE void setMasterEqLowFreq(uint frequency);
    Q_INVOKABLE void setMasterEqLowGain(int gain);
    Q_INVOKABLE void setMasterEqMid1Freq(uint frequency);
    Q_INVOKABLE void setMasterEqMid1Gain(int gain);
    Q_INVOKABLE void setMasterEqMid1Q(double q);
    Q_INVOKABLE void setMasterEqMid2Freq(uint frequency);
    Q_INVOKABLE void setMasterEqMid2Gain(int gain);
    Q_INVOKABLE void setMasterEqMid2Q(double q);
    Q_INVOKABLE void setMasterEqHighFreq(uint frequency);
    Q_INVOKABLE void setMasterEqHighGain(int gain);

    // Headphone equaliser
    Q_INVOKABLE void setHeadEqActive(bool active);
    Q_INVOKABLE void setHeadEqLowFreq(uint frequency);
    Q_INVOKABLE void setHeadEqLowGain(int gain);
    Q_INVOKABLE void setHeadEqMid1Freq(uint frequency);
    Q_INVOKABLE void setHeadEqMid1Gain(int gain);
    Q_INVOKABLE void setHeadEqMid1Q(double q);
    Q_INVOKABLE void setHeadEqMid2Freq(uint frequency);
    Q_INVOKABLE void setHeadEqMid2Gain(int gain);
    Q_INVOKABLE void setHeadEqMid2Q(double q);
    Q_INVOKABLE void setHeadEqHighFreq(uint frequency);
    Q_INVOKABLE void setHeadEqHighGain(int gain);

    // Monitor equaliser
    Q_INVOKABLE void setMonitorEqActive(bool active);
    Q_INVOKABLE void setMonitorEqLowFreq(uint frequency);
    Q_INVOKABLE void setMonitorEqLowGain(int gain);
    Q_INVOKABLE void setMonitorEqMid1Freq(uint frequency);
    Q_INVOKABLE void setMonitorEqMid1Gain(int gain);
    Q_INVOKABLE void setMonitorEqMid1Q(double q);
    Q_INVOKABLE void setMonitorEqMid2Freq(uint frequency);
    Q_INVOKABLE void setMonitorEqMid2Gain(int gain);
    Q_INVOKABLE void setMonitorEqMid2Q(double q);
    Q_INVOKABLE void setMonitorEqHighFreq(uint frequency);
    Q_INVOKABLE void setMonitorEqHighGain(int gain);

    // Master compressor
    Q_INVOKABLE void setMasterCpActive(bool active);
    Q_INVOKABLE void setMasterCpAttackTime(uchar attackTime);
    Q_INVOKABLE void setMasterCpReleaseTime(uchar releaseTime);
    Q_INVOKABLE void setMasterCpThreshold(uchar threshold);
    Q_INVOKABLE void setMasterCpRatio(uchar ratio);
    Q_INVOKABLE void setMasterCpBoost(uchar boost);
    Q_INVOKABLE void setMasterCpKnee(uchar knee);

    // Headphone compressor
    Q_INVOKABLE void setHeadCpActive(bool active);
    Q_INVOKABLE void setHeadCpAttackTime(uchar attackTime);
    Q_INVOKABLE void setHeadCpReleaseTime(uchar releaseTime);
    Q_INVOKABLE void setHeadCpThreshold(uchar threshold);
    Q_INVOKABLE void setHeadCpRatio(uchar ratio);
    Q_INVOKABLE void setHeadCpBoost(uchar boost);
    Q_INVOKABLE void setHeadCpKnee(uchar knee);

    // Monitor compressor
    Q_INVOKABLE void setMonitorCpActive(bool active);
    Q_INVOKABLE void setMonitorCpAttackTime(uchar attackTime);
    Q_INVOKABLE void setMonitorCpReleaseTime(uchar releaseTime);
    Q_INVOKABLE void setMonitorCpThreshold(uchar threshold);
    Q_INVOKABLE void setMonitorCpRatio(uchar ratio);
    Q_INVOKABLE void setMonitorCpBoost(uchar boost);
    Q_INVOKABLE void setMonitorCpKnee(uchar knee);

    // Compressor meters
    // Each method requests one report of the meters of that output.
    Q_INVOKABLE void requestMasterCpUpdate();
    Q_INVOKABLE void requestHeadCpUpdate();
    Q_INVOKABLE void requestMonitorCpUpdate();

    // Ambience
    Q_INVOKABLE void setAmbienceLevel(uchar level);
    Q_INVOKABLE void setAmbiencePreDelay(uchar preDelay);
    Q_INVOKABLE void setAmbienceActive(bool active);

    // Instrument reverb
    Q_INVOKABLE void setInstrumentReverbLevel(uchar level);
    Q_INVOKABLE void setInstrumentReverbPreDelay(uchar preDelay);
    Q_INVOKABLE void setInstrumentReverbTime(uchar reverbTime);
    Q_INVOKABLE void setInstrumentReverbPreHighPass(uchar preHighPass);
    Q_INVOKABLE void setInstrumentReverbHighShelf(uchar highShelf);
    Q_INVOKABLE void setInstrumentReverbHighDamp(uchar highDamp);
    Q_INVOKABLE void setInstrumentReverbGatedReverbThreshold(uchar threshold);
    Q_INVOKABLE void setInstrumentReverbType(uchar reverbType);
    Q_INVOKABLE void setInstrumentReverbSendToRoom(uchar send);
    Q_INVOKABLE void setInstrumentReverbActive(uint active); ///< on unless the value is 0

    // Room reverb
    Q_INVOKABLE void setRoomReverbLevel(uchar level);
    Q_INVOKABLE void setRoomReverbPreDelay(uchar preDelay);
    Q_INVOKABLE void setRoomReverbTime(uchar reverbTime);
    Q_INVOKABLE void setRoomReverbPreHighPass(uchar preHighPass);
    Q_INVOKABLE void setRoomReverbHighShelf(uchar highShelf);
    Q_INVOKABLE void setRoomReverbHighDamp(uchar highDamp);
    Q_INVOKABLE void setRoomReverbType(uchar reverbType);
    Q_INVOKABLE void setRoomReverbActive(bool active);

    // Multi-effect
    // setMultiFxParam...(): With type 0 the parameter is scaled from its range min...max, in display units,
    // to 0...127. With any other type its integer part is sent, low eight bits.
    Q_INVOKABLE void setMultiFxLevel(uchar level);
    Q_INVOKABLE void setMultiFxType(uchar type);
    Q_INVOKABLE void setMultiFxActive(uint active); ///< on unless the value is 0
    Q_INVOKABLE void setMultiFxSendToRoom(uchar send);
    Q_INVOKABLE void setMultiFxParam0(double param0, double min, double max, int type);
    Q_INVOKABLE void setMultiFxParam1(double param1, double min, double max, int type);
    Q_INVOKABLE void setMultiFxParam2(double param2, double min, double max, int type);
    Q_INVOKABLE void setMultiFxParam3(double param3, double min, double max, int type);
    Q_INVOKABLE void setMultiFxParam4(double param4, double min, double max, int type);

    // Effect routing
    Q_INVOKABLE void setInstReverbRouting(uchar mb, uchar lb);
    Q_INVOKABLE void setRoomReverbRouting(uchar mb, uchar lb);
    Q_INVOKABLE void setMultiFxRouting(uchar mb, uchar lb);

    // Program, power and bluetooth
    Q_INVOKABLE void setProgramNumber(uchar newProgram);
    Q_INVOKABLE void sendPowerOff(); ///< switches the module off
    Q_INVOKABLE void setBluetoothSwitch(bool active);
    Q_INVOKABLE void setAutoOff(int autoOff); ///< the low eight bits are sent
    Q_INVOKABLE void setFixedHiHat(bool active);
    /// Sends the same parameter as setBluetoothSwitch() with the values 64 and 63 in place of 1 and 0.
    Q_INVOKABLE void setBluetoothEnable(bool enable);
    /// Bluetooth name of the module, in the local 8-bit encoding. The encoded name is cut to 32 bytes and to
    /// as many bytes as the name has characters.
    Q_INVOKABLE void setBluetoothName(const QString &name);

    // Transfers and queries
    // Each method queues one task and returns at once; signals report the outcome. Files are named by their
    // path, not by a URL. Firmware is sent only if it is newer than the version that the engine reports.
    Q_INVOKABLE void sendZeltaFirmware(const QString &fileName);
    Q_INVOKABLE void sendTriggerFirmware(const QString &fileName);
    Q_INVOKABLE void sendSoundBank(const QString &fileName);
    Q_INVOKABLE void sendTriggerBank(const QString &fileName);
    Q_INVOKABLE void requestSoundBankVersion();   ///< soundbankVersionChanged()
    Q_INVOKABLE void requestTriggerBankVersion(); ///< triggerbankVersionChanged()
    Q_INVOKABLE void requestHHRawValue();         ///< hihatRawValueChanged()

    // Catalogues
    // parse...() return the content of a JSON file, empty if it cannot be read. backup...() copy a file over
    // the catalogue and return 0, -1 (file cannot be read) or -2 (catalogue cannot be opened for writing).
    Q_INVOKABLE QString parseJsonFile(const QString &fileName);
    Q_INVOKABLE QJsonObject parseSoundBankList(const QString &fileName);
    Q_INVOKABLE QJsonObject parseTriggerBankList(const QString &fileName);
    Q_INVOKABLE int backupSoundBankList(const QString &fileName);
    Q_INVOKABLE int backupTriggerBankList(const QString &fileName);

    // Sample slots and imports
    // Imports are queued like the transfers above, for slot 0 to 65535; slot -1 sends the file without slot
    // and name. slotId is the name of the imported bank. Delete commands are sent at once. Replies to
    // the requests are events: flash sizes change their properties, others are emitted as udpPacketArrived().
    Q_INVOKABLE void sendImportSoundBank(const QString &fileName, const QString &slotId, int slot);
    Q_INVOKABLE void sendImportWaveSample(const QString &fileName, int slot);
    Q_INVOKABLE void deleteIsSlot(uchar slot);
    Q_INVOKABLE void deleteIwSlot(uchar slot);
    Q_INVOKABLE void deleteAllSlots();
    Q_INVOKABLE void requestIsSlotInfo(uchar slot);
    Q_INVOKABLE void requestIwSlotInfo(uchar slot);
    Q_INVOKABLE void requestMemInfo();

    // Bluetooth firmware and deep erase
    Q_INVOKABLE void sendBtFw(const QString &fileName);      ///< queues one file of the firmware
    Q_INVOKABLE int checkBtFw(const QStringList &fileNames); ///< 0 if every file exists, otherwise -1
    Q_INVOKABLE void deepErase();                            ///< sends the command at once

    // Trigger settings
    // The argument note is the number of the trigger input here.
    Q_INVOKABLE void sendTriggerBankPreset(uchar note, uchar preset);
    Q_INVOKABLE void sendTriggerGain(uchar note, uchar gain);
    Q_INVOKABLE void sendTriggerThreshold(uchar note, uchar threshold);
    Q_INVOKABLE void sendTriggerXTalk(uchar note, uchar xtalk);
    Q_INVOKABLE void sendTriggerHighLevel(uchar note, uchar highLevel);
    Q_INVOKABLE void sendTriggerHHLowPosition(uchar note, uchar hhLowPosition);
    Q_INVOKABLE void sendTriggerHHHighPosition(uchar note, uchar hhHighPosition);
    Q_INVOKABLE void sendTriggerHHChickSensitivity(uchar note, uchar hhChickSensitivity);
    Q_INVOKABLE void sendTriggerHHSplashSensitivity(uchar note, uchar hhSplashSensitivity);
    Q_INVOKABLE void sendTriggerScanTime(uchar note, uchar scanTime);
    Q_INVOKABLE void sendTriggerRetriggerMask(uchar note, uchar retriggerMask);
    Q_INVOKABLE void sendTriggerTriggerType(uchar note, uchar triggerType);
    Q_INVOKABLE void sendTriggerPositionalSensing(uchar note, uchar active);
    Q_INVOKABLE void sendTriggerCurvePreset(uchar note, uchar curvePreset);
    Q_INVOKABLE void sendTriggerDynLevel(uchar note, uchar dynLevel);
    Q_INVOKABLE void sendTriggerDynTime(uchar note, uchar dynTime);
    /// Sends the low 16 bits of curvePreset and the low byte of the first nine points of the curve. A curve
    /// of fewer points is refused with a warning.
    Q_INVOKABLE void sendTriggerCurveData(uint curvePreset, const QVector<int> &curveData);
    Q_INVOKABLE void sendTriggerTransferEnd(uchar note); ///< blocks the GUI thread for 100 ms

    // MIDI settings
    Q_INVOKABLE void setMidiInput(uchar midiInput);
    Q_INVOKABLE void setLocalControl(uchar localControl);
    Q_INVOKABLE void setUsbMidi(uchar usbMidi);
    Q_INVOKABLE void setMidiChannel(uchar midiChannel);
    Q_INVOKABLE void setHiHatPedalChannel(uchar hihatPedalChannel);
    Q_INVOKABLE void setSnareChannel(uchar snareChannel);
    Q_INVOKABLE void setRideChannel(uchar rideChannel);
    Q_INVOKABLE void setTomAuxChannel(uchar tomAuxChannel);
    Q_INVOKABLE void setKitVolumeChannel(uchar kitVolumeChannel);

Q_SIGNALS:
    // A front-panel pot has been turned by one step.
    void triggerPot0Inc();
    void triggerPot1Inc();
    void triggerPot2Inc();
    void triggerPot3Inc();
    void triggerPot0Dec();
    void triggerPot1Dec();
    void triggerPot2Dec();
    void triggerPot3Dec();

    /// A pad was struck. Emitted for every strike, also when the property keeps its value.
    void noteChanged();
    void afterTouchNoteChanged();
    void positionChanged();
    void beatChanged();

    /// An event without a property, such as an acknowledgement of a transfer or the information of a slot.
    void udpPacketArrived(ushort id, ushort idx, ushort data);
    // Internal: input of the pot and pad controllers.
    void potPacketArrived(ushort id, ushort idx, ushort data);
    void notePacketArrived(ushort id, ushort idx, ushort data);

    // A version property has been set.
    void zeltaVersionChanged();
    void triggerVersionChanged();
    void soundbankVersionChanged();
    void triggerbankVersionChanged();
    /// Answer to requestHHRawValue().
    void hihatRawValueChanged(ushort value);

    void padCpChanged();
    void masterCpChanged();
    void monitorCpChanged();
    void headCpChanged();
    void outputLevelsChanged();

    void powerChanged();
    void foot1Changed();
    void foot2Changed();
    void aux3Changed();
    void aux4Changed();
    void hpDetectChanged();
    void mixInDetectChanged();
    /// The value is always 0; read homeButtonPressed instead.
    void homeButtonChanged(int value);

    void tempoChanged();
    void soundProgressChanged();
    void triggerProgressChanged();
    void sampleFlashSizeChanged();
    void totalSampleFlashSizeChanged();
    void btfwProgressChanged();

    /// The sound engine has acknowledged its new firmware.
    void updateZeltaFwComplete();

    void waveTransferProgress(int slot, double progress);
    /// An import has ended with the engine's status. Status 0 does not prove that the file arrived: the
    /// status is also 0 if the engine did not acknowledge the end of the file.
    void waveTransferComplete(int slot, ushort complete);

    // Never emitted.
    void slotInfoReceived(int slot, const QString &fileId, const QString &slotType);
    void memInfoReceived(int value);

    // A transfer has ended: 0 for success, 0xFF if its end was not acknowledged, or acknowledged with an
    // error.
    void soundbankTransferComplete(ushort complete, uint retransmitCount);
    void triggerbankTransferComplete(ushort complete);
    void bluetoothTransferComplete(ushort complete);

    /// A test command of the engine; each part is two hex digits.
    void testCommand(const QString &high, const QString &low, const QString &value);
    /// A SysEx message of the engine; the value is the hex text of its USB-MIDI events.
    void sysEx(const QString &value);

    // Start and end of firmware updates, of either kind and of each kind. programChanged(): the engine has
    // changed its program.
    void intFwUpdateStarted();
    void intFwUpdateFinished();
    void programChanged(int program);
    void intZeltaFirmwareUpdateStarted(int currentVersion, int newVersion);
    void intTriggerFirmwareUpdateStarted(int currentVersion, int newVersion);
    void intZeltaFirmwareUpdateFinished();
    void intTriggerFirmwareUpdateFinished();

private Q_SLOTS:
    // Inbound events of the link and the pad controller.
    void udpPacket(quint16 id, quint16 idx, quint16 data);
    void updateNote(quint32 note);
    void updateAfterTouchNote(quint32 note);
    void updatePadPosition(quint32 controller, quint32 position);
    void updateBeat(quint16 beat);
    void updateSampleFlashSize(quint16 lo, quint16 hi);
    void updateComp(quint16 channelId, quint16 inL, quint16 inR, quint16 grL, quint16 grR, quint16 outL,
                    quint16 outR);
    void updateOuts(quint16 mainL, quint16 mainR, quint16 monL, quint16 monR, quint16 headL, quint16 headR,
                    quint16 out1, quint16 out2, quint16 out3, quint16 out4, quint16 out5, quint16 out6,
                    quint16 out7, quint16 out8, quint16 spdifL, quint16 spdifR, quint16 usbL, quint16 usbR);
    void updateSwitch(quint16 switchNumber, quint16 value);
    void updateTempo(quint16 tempo);

    // Progress and completion of transfers; program change of the pad controller.
    void updateSoundTransferProgress(qreal progress);
    void updateTriggerTransferProgress(qreal progress);
    void updateBtFwTransferProgress(qreal progress);
    void updateImportSlotProgress(int slot, qreal progress);
    void updateImportSlotComplete(int slot, quint16 complete);
    void updateImportSBComplete(quint16 complete, quint32 retransmitCount);
    void updateImportTBComplete(quint16 complete);
    void updateImportBTComplete(quint16 complete);
    void updateProgram(quint8 program);
    void zeltaFwUpdated();
    void internalFwUpdateStarted();
    void internalFwUpdateFinished();
    void internalZeltaFirmwareUpdateStarted(int currentVersion, int newVersion);
    void internalTriggerFirmwareUpdateStarted(int currentVersion, int newVersion);
    void internalZeltaFirmwareUpdateFinished();
    void internalTriggerFirmwareUpdateFinished();

    // Free-form messages of the engine.
    void forwardTestCommand(const QString &high, const QString &low, const QString &value);
    void forwardSysEx(const QString &sysEx);

private:
    // Calls updateSwitch() for the aux pads.
    friend class qconnectpad;

    void connectPads();
    void connectLink();
    void connectTransfers();

    // In the order of construction. The pot and pad controllers connect themselves to this object.
    qconnectled m_led{this, nullptr};
    qconnectpot m_pot{this, nullptr};
    qconnectpad m_pad{this, nullptr};
    qconnectVolume m_volume{this, nullptr};
    qconnectmetronome m_metronome{this, nullptr};
    qconnectmaster_eq m_masterEq{this, nullptr};
    qconnectmaster_cp m_masterCp{this, nullptr};
    qconnecthead_eq m_headEq{this, nullptr};
    qconnecthead_cp m_headCp{this, nullptr};
    qconnectmonitor_eq m_monitorEq{this, nullptr};
    qconnectmonitor_cp m_monitorCp{this, nullptr};
    qconnectpad_eq m_padEq{this, nullptr};
    qconnectpad_cp m_padCp{this, nullptr};
    qconnectpad_instrument m_padInstrument{this, nullptr};
    qconnectpad_extra m_padExtra{this, nullptr};
    qconnectpad_mixer m_padMixer{this, nullptr};
    qconnectprogram m_program{this, nullptr};
    qconnectfirmware m_firmware{this, nullptr};
    qconnecttrigger m_trigger{this, nullptr};
    qconnectswitches m_switches{this, nullptr};
    qconnecteffects m_effects{this, nullptr};
    qconnectmidi m_midi{this, nullptr};

    zelta::InboundState m_state;
    std::unique_ptr<SocketTransceiver> m_link;
};
