#pragma once

#include <QByteArray>
#include <QVector>

#include <array>

namespace simulated {

/// A channel message of a MIDI stream.
struct MidiMessage
{
    enum class Kind {
        NoteOff,
        NoteOn, ///< with velocity 0 as well, which many instruments send at the end of a note
        PolyPressure,
        Controller,
        Program,
        ChannelPressure,
        PitchBend
    };

    Kind kind = Kind::NoteOff;
    int channel = 0;  ///< 0 to 15
    quint8 data1 = 0; ///< note, controller, program
    quint8 data2 = 0; ///< velocity, pressure, value; 0 in messages of one data byte
};

/// Splits a stream of raw MIDI bytes into channel messages.
///
/// Understands running status, real-time bytes anywhere, SysEx of any length and system messages; all but
/// channel messages are skipped. Accepts any bytes: data without a status, for example at the beginning of a
/// stream, is skipped, and so is a message that another status cuts short.
class MidiParser
{
public:
    /// Returns the messages that these bytes complete. The stream may be cut anywhere between two calls.
    QVector<MidiMessage> take(const QByteArray &bytes);

    /// The next byte begins another stream.
    void reset();

private:
    void takeStatus(quint8 status);

    quint8 m_status = 0; // running status; 0 while data is skipped
    std::array<quint8, 2> m_data{};
    int m_count = 0; // data bytes of the message so far
};

} // namespace simulated
