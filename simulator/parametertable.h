// Names and encodings of the engine's parameters.
#pragma once

#include <QString>

namespace simulated {

/// Encoding of a parameter's value.
enum class ValueForm : quint8 {
    Byte,      ///< one data byte
    Tempo,     ///< two data bytes of seven bits: (bpm - 20) * 64
    Frequency, ///< two data bytes of seven bits
    Routing    ///< two data bytes: high and low half of a routing number
};

struct ParameterInfo
{
    QString name; ///< empty: no such parameter
    ValueForm form = ValueForm::Byte;

    bool isKnown() const { return !name.isEmpty(); }
    bool hasTwoBytes() const { return form != ValueForm::Byte; }
};

/// The parameter with number msb/lsb. On per-pad pages lsb is the pad's note, on trigger pages the input.
ParameterInfo parameterInfo(quint8 msb, quint8 lsb);

/// "pad 38 EQ low gain 63", "metronome tempo 120", "parameter 0x0C/0x22 value 5" for an unknown number.
/// low is the second data byte, or -1 in the three-event form.
QString parameterText(quint8 msb, quint8 lsb, quint8 value, int low);

int tempoFromBytes(quint8 value, quint8 low);

} // namespace simulated
