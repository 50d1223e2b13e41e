#include "fuzz/support/datagramform.h"

#include "fuzz/support/require.h"

#include <QtEndian>

namespace fuzz {

namespace {

quint16 word(const QByteArray &datagram, int index)
{
    return qFromBigEndian<quint16>(datagram.constData() + index * 2);
}

bool hasKnownForm(const QByteArray &datagram)
{
    const int size = datagram.size();
    if (size < 4 || size > 65507)
        return false;
    const quint16 second = word(datagram, 1);
    switch (kindOf(datagram)) {
    case 0x494D: // IM, MIDI events
    case 0x5057: // PW, power off
        return second > 0 && size == 4 + 4 * second;
    case 0x4C44: // LD, LED
        return size == 6;
    case 0x424E: // BN, bluetooth name
        return size == 34;
    case 0x5443: // TC, trigger curve
        return size == 22;
    case 0x4453: // DS, start of a file
        return size >= 8;
    case 0x4443: // DC, part of a file
        return size >= 10 && size == 10 + 2 * word(datagram, 4);
    case 0x4445: // DE, end of a file
        return size == 8;
    case 0x564E: // VN
    case 0x5456: // TV
    case 0x534E: // SN
    case 0x544E: // TN
    case 0x484C: // HL, queries
        return size == 4 && second == 0;
    default: return false;
    }
}

} // namespace

quint16 kindOf(const QByteArray &datagram)
{
    return datagram.size() < 2 ? 0 : word(datagram, 0);
}

void requireKnownForm(const QByteArray &datagram)
{
    require(hasKnownForm(datagram), "a datagram for the engine has a form that it understands");
}

} // namespace fuzz
