// Encoding and decoding of datagrams on the engine's side.
#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <array>

namespace simulated {

/// The 16-bit number of two ASCII letters, the first letter in the high byte.
constexpr quint16 tag(const char (&letters)[3])
{
    return quint16((uchar(letters[0]) << 8) | uchar(letters[1]));
}

namespace Tag {
constexpr quint16 Midi = tag("IM");
constexpr quint16 PowerOff = tag("PW");
constexpr quint16 Led = tag("LD");
constexpr quint16 TriggerCurve = tag("TC");
constexpr quint16 BluetoothName = tag("BN");

constexpr quint16 TransferStart = tag("DS");
constexpr quint16 TransferData = tag("DC");
constexpr quint16 TransferEnd = tag("DE");

constexpr quint16 EngineFirmware = tag("FW");
constexpr quint16 TriggerFirmware = tag("TF");
constexpr quint16 SoundBank = tag("SB");
constexpr quint16 TriggerBank = tag("TB");
constexpr quint16 ImportedSoundBank = tag("IS");
constexpr quint16 ImportedWave = tag("IW");
constexpr quint16 BluetoothFirmware = tag("BF");

constexpr quint16 EngineVersion = tag("VN");
constexpr quint16 TriggerVersion = tag("TV");
constexpr quint16 SoundBankVersion = tag("SN");
constexpr quint16 TriggerBankVersion = tag("TN");
constexpr quint16 HiHatRaw = tag("HL");

constexpr quint16 Event = tag("AC");
constexpr quint16 CompressorMeters = tag("CR");
constexpr quint16 OutputMeters = tag("DR");
constexpr quint16 Beat = tag("BT");
constexpr quint16 Tempo = tag("TM");
constexpr quint16 Switch = tag("SW");
constexpr quint16 Pot = tag("CO");
constexpr quint16 FlashSize = tag("FR");
} // namespace Tag

/// MIDI on channel 10, the only channel that the protocol uses.
namespace Midi {
constexpr quint8 NoteOff = 0x89;
constexpr quint8 NoteOn = 0x99;
constexpr quint8 PolyPressure = 0xA9;
constexpr quint8 ControlChange = 0xB9;
constexpr quint8 ProgramChange = 0xC9;
constexpr quint8 SysExStart = 0xF0;
constexpr quint8 SysExEnd = 0xF7;

constexpr quint8 ParameterHigh = 99;
constexpr quint8 ParameterLow = 98;
constexpr quint8 ValueLow = 38;
constexpr quint8 Value = 6;
constexpr quint8 Volume = 7;
constexpr quint8 HiHatPedal = 4;
} // namespace Midi

using CompressorLevels = std::array<quint16, 6>;
using OutputLevels = std::array<quint16, 18>;

// Reading. Bytes past the end are zero.
quint8 byteAt(const QByteArray &bytes, int offset);
quint16 wordAt(const QByteArray &bytes, int offset);
quint32 longAt(const QByteArray &bytes, int offset);

/// "VN" for two printable letters, "0x0102" for other numbers.
QString tagText(quint16 tag);
QString hexText(const QByteArray &bytes);

// Datagrams from the engine to the module.
QByteArray eventDatagram(quint16 kind, quint16 index, quint16 data);
QByteArray midiEvent(quint8 codeIndex, quint8 status, quint8 data1, quint8 data2);
QByteArray compressorMeters(quint16 section, const CompressorLevels &levels);
QByteArray outputMeters(const OutputLevels &levels);

/// One datagram for each USB-MIDI event of message, which includes F0 and F7.
QVector<QByteArray> sysExEvents(const QByteArray &message);

} // namespace simulated
