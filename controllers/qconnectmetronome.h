#pragma once

#include "controllers/parametercontroller.h"

/// Metronome: click, tempo, time signature, tap.
class qconnectmetronome : public ParameterController
{
    Q_OBJECT

public:
    using ParameterController::ParameterController;

    void setMetronomeClickSoundSelection(quint8 value, quint8 channel);
    void setMetronomeClickLevel(quint8 value, quint8 channel);
    /// Tempo in beats per minute, 20 to 275, sent as a word of 14 bits in 1/64 beats above 20. Below 20 it
    /// wraps; above 275 bit 7 of the upper byte is sent too, and from 532 on the upper bits are lost.
    void setMetronomeTempo(quint16 bpm, quint8 channel);
    void setMetronomeTimeSignatureNum(quint8 value, quint8 channel);
    void setMetronomeTimeSignatureDen(quint8 value, quint8 channel);
    void setMetronomeInterval(quint8 value, quint8 channel);
    void setMetronomeAccent(bool on, quint8 channel);
    void setMetronomeTap(bool on, quint8 channel);
    void setMetronomeTapNote1(quint8 note, quint8 channel);
    void setMetronomeTapNote2(quint8 note, quint8 channel);
    void setMetronomeActive(bool on, quint8 channel);
    /// Routing word of the click, high and low byte.
    void setMetronomeClickRouting(quint8 mb, quint8 lb, quint8 channel);
};
