#pragma once

#include "controllers/devicecontroller.h"

/// Metronome: click, tempo, time signature, tap.
class qconnectmetronome : public DeviceController
{
    Q_OBJECT

public:
    using DeviceController::DeviceController;

    void setMetronomeClickSoundSelection(quint8 value, quint8 channel);
    void setMetronomeClickLevel(quint8 value, quint8 channel);
    /// Tempo in beats per minute, 20 to 275. Other tempos are not refused: tempos below 20 wrap, tempos from
    /// 276 set bit 7 of the upper data byte, and from 532 the upper bits are lost.
    void setMetronomeTempo(quint16 bpm, quint8 channel);
    void setMetronomeTimeSignatureNum(quint8 value, quint8 channel);
    void setMetronomeTimeSignatureDen(quint8 value, quint8 channel);
    void setMetronomeInterval(quint8 value, quint8 channel);
    void setMetronomeAccent(bool on, quint8 channel);
    void setMetronomeTap(bool on, quint8 channel);
    void setMetronomeTapNote1(quint8 note, quint8 channel);
    void setMetronomeTapNote2(quint8 note, quint8 channel);
    void setMetronomeActive(bool on, quint8 channel);
    /// Output routing of the click; mb is the high byte and lb the low byte.
    void setMetronomeClickRouting(quint8 mb, quint8 lb, quint8 channel);
};
