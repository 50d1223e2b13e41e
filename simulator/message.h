#pragma once

#include <QByteArray>
#include <QStringList>

namespace simulated {

/// One datagram of the module, taken apart.
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

    /// Parameter: msb/lsb, value and (when sent) low. Other MIDI: msb is the controller, note or program,
    /// value its data. LED: msb is unused, number the LED and value on or off.
    quint8 msb = 0;
    quint8 lsb = 0;
    quint8 value = 0;
    int low = -1;

    quint16 content = 0; ///< query id, or the tag of a file's content
    quint32 number = 0;  ///< file size, packet number, checksum, curve or LED number, by kind
    int slot = -1;       ///< slot of a start packet that has one
    QByteArray payload;  ///< chunk, SysEx with F0 and F7, curve points, name

    /// What is wrong with the datagram, one short line each. A message may be readable and still be wrong.
    QStringList violations;
};

/// Takes any bytes; never fails, an unreadable datagram gives Kind::Unreadable and says why.
Message decode(const QByteArray &datagram);

/// One readable line.
QString describe(const Message &message);

} // namespace simulated
