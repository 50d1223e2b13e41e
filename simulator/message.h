#pragma once

#include <QByteArray>
#include <QStringList>

namespace simulated {

/// A decoded datagram of the module.
struct Message
{
    enum class Kind {
        Unreadable,
        Parameter,
        ControlChange,
        NoteOn,
        NoteOff,
        Program,
        SysEx,
        PowerOff,
        Led,
        TriggerCurve,
        BluetoothName,
        Query,
        TransferStart,
        TransferData,
        TransferEnd
    };

    Kind kind = Kind::Unreadable;

    /// Parameter: number msb/lsb, value and, in the four-event form, low. Other MIDI: msb is the controller,
    /// note or program, value its data. LED: number is the LED, value 1 for on.
    quint8 msb = 0;
    quint8 lsb = 0;
    quint8 value = 0;
    int low = -1;

    quint16 content = 0; ///< tag of a query or of a file's content
    quint32 number = 0;  ///< file size, packet number, checksum, curve or LED number
    int slot = -1;       ///< slot of a start packet that has one
    QByteArray payload;  ///< chunk, SysEx with F0 and F7, curve points, name

    /// Protocol violations, one short line each. A readable message can have violations, too.
    QStringList violations;
};

/// Decodes any bytes. Bytes that are not a message give Kind::Unreadable and a violation.
Message decode(const QByteArray &datagram);

/// What a query asks for: "sound engine version". Empty for other tags.
QString queryName(quint16 query);

/// The message as one line of text.
QString describe(const Message &message);

} // namespace simulated
