#include "message.h"

#include "parametertable.h"
#include "wire.h"

namespace simulated {

namespace {

constexpr int packetHeaderSize = 4;
constexpr int eventSize = 4;

struct MidiEvent
{
    quint8 codeIndex;
    quint8 status;
    quint8 data1;
    quint8 data2;
};

MidiEvent eventAt(const QByteArray &datagram, int index)
{
    const int offset = packetHeaderSize + eventSize * index;
    return {byteAt(datagram, offset), byteAt(datagram, offset + 1), byteAt(datagram, offset + 2),
            byteAt(datagram, offset + 3)};
}

QString byteText(quint8 byte)
{
    return QStringLiteral("0x%1").arg(byte, 2, 16, QLatin1Char('0'));
}

Message unreadable(const QString &why)
{
    Message message;
    message.violations.append(why);
    return message;
}

void addOnce(const QString &violation, Message *message)
{
    if (!message->violations.contains(violation))
        message->violations.append(violation);
}

// Checks code index and status of an event on channel 10.
void checkEvent(const MidiEvent &event, quint8 codeIndex, quint8 status, Message *message)
{
    if (event.codeIndex != codeIndex) {
        addOnce(
            QStringLiteral("code index %1 instead of %2").arg(byteText(event.codeIndex), byteText(codeIndex)),
            message);
    }
    if (event.status != status) {
        addOnce(
            QStringLiteral("status %1, not %2 on channel 10").arg(byteText(event.status), byteText(status)),
            message);
    }
}

Message decodeSingleEvent(const MidiEvent &event)
{
    Message message;
    message.msb = event.data1;
    message.value = event.data2;
    switch (event.codeIndex) {
    case 0x08:
        message.kind = Message::Kind::NoteOff;
        checkEvent(event, 0x08, Midi::NoteOff, &message);
        break;
    case 0x09:
        message.kind = Message::Kind::NoteOn;
        checkEvent(event, 0x09, Midi::NoteOn, &message);
        break;
    case 0x0B:
        message.kind = Message::Kind::ControlChange;
        checkEvent(event, 0x0B, Midi::ControlChange, &message);
        break;
    case 0x0C:
        message.kind = Message::Kind::Program;
        checkEvent(event, 0x0C, Midi::ProgramChange, &message);
        break;
    default: return unreadable(QStringLiteral("unknown code index %1").arg(byteText(event.codeIndex)));
    }
    return message;
}

// Controllers 99, 98, 38 (only with a second value byte) and 6, in this order.
Message decodeParameter(const QByteArray &datagram, int count)
{
    static constexpr quint8 threeEvents[] = {Midi::ParameterHigh, Midi::ParameterLow, Midi::Value};
    static constexpr quint8 fourEvents[] = {Midi::ParameterHigh, Midi::ParameterLow, Midi::ValueLow,
                                            Midi::Value};
    Message message;
    message.kind = Message::Kind::Parameter;
    const quint8 *order = count == 3 ? threeEvents : fourEvents;
    for (int i = 0; i < count; ++i) {
        const MidiEvent event = eventAt(datagram, i);
        if (event.data1 != order[i])
            return unreadable(
                QStringLiteral("controller %1 instead of controller %2").arg(event.data1).arg(order[i]));
        checkEvent(event, 0x0B, Midi::ControlChange, &message);
    }
    message.msb = eventAt(datagram, 0).data2;
    message.lsb = eventAt(datagram, 1).data2;
    message.value = eventAt(datagram, count - 1).data2;
    if (count == 4)
        message.low = eventAt(datagram, 2).data2;

    const ParameterInfo info = parameterInfo(message.msb, message.lsb);
    if (info.isKnown() && info.hasTwoBytes() != (count == 4))
        message.violations.append(QStringLiteral("%1 has %2 value byte(s)").arg(info.name).arg(count - 2));
    return message;
}

// In the module's SysEx stream the code index of an event depends on the number of remaining values, without
// the closing F7.
quint8 expectedSysExCodeIndex(int valuesToCome)
{
    switch (valuesToCome) {
    case 0: return 0x05;
    case 1: return 0x06;
    case 2: return 0x07;
    default: return 0x04;
    }
}

Message decodeSysEx(const QByteArray &datagram, int count)
{
    Message message;
    message.kind = Message::Kind::SysEx;
    for (int i = 0; i < count; ++i)
        message.payload.append(datagram.mid(packetHeaderSize + eventSize * i + 1, eventSize - 1));
    int padding = 0;
    while (message.payload.endsWith('\0')) {
        message.payload.chop(1);
        ++padding;
    }
    if (padding > 2 || !message.payload.endsWith(char(Midi::SysExEnd)))
        return unreadable(QStringLiteral("SysEx stream without its end"));

    const int values = message.payload.size() - 2;
    for (int i = 0; i < count; ++i) {
        // The first event contains F0 and two values, each further event three values.
        const int opensAt = i == 0 ? 0 : 3 * i - 1;
        const quint8 expected = expectedSysExCodeIndex(values - opensAt);
        const quint8 codeIndex = eventAt(datagram, i).codeIndex;
        if (codeIndex != expected) {
            message.violations.append(QStringLiteral("SysEx event %1 has code index %2 instead of %3")
                                          .arg(i)
                                          .arg(byteText(codeIndex), byteText(expected)));
        }
    }
    return message;
}

// Checks the event count of the header against the size.
QString countProblem(const QByteArray &datagram)
{
    const int rest = datagram.size() - packetHeaderSize;
    if (rest < 0 || rest % eventSize != 0)
        return QStringLiteral("length %1 is not a whole number of events").arg(datagram.size());
    const int count = wordAt(datagram, 2);
    if (count * eventSize != rest)
        return QStringLiteral("header counts %1 events, datagram holds %2").arg(count).arg(rest / eventSize);
    return {};
}

Message decodeMidi(const QByteArray &datagram)
{
    const QString problem = countProblem(datagram);
    if (!problem.isEmpty())
        return unreadable(problem);
    const int count = wordAt(datagram, 2);
    if (count == 0)
        return unreadable(QStringLiteral("no event"));
    if (eventAt(datagram, 0).status == Midi::SysExStart)
        return decodeSysEx(datagram, count);
    if (count == 1)
        return decodeSingleEvent(eventAt(datagram, 0));
    if (count == 3 || count == 4)
        return decodeParameter(datagram, count);
    return unreadable(QStringLiteral("%1 events in one packet").arg(count));
}

Message decodePowerOff(const QByteArray &datagram)
{
    const QString problem = countProblem(datagram);
    if (!problem.isEmpty())
        return unreadable(problem);
    Message message;
    const MidiEvent first = eventAt(datagram, 0);
    const MidiEvent second = eventAt(datagram, 1);
    if (wordAt(datagram, 2) != 2 || first.data1 != Midi::ParameterHigh || first.data2 != 79 ||
        second.data1 != Midi::ParameterLow || second.data2 != 70)
        return unreadable(QStringLiteral("power-off without its two events 99=79 and 98=70"));
    message.kind = Message::Kind::PowerOff;
    checkEvent(first, 0x0B, Midi::ControlChange, &message);
    checkEvent(second, 0x0B, Midi::ControlChange, &message);
    return message;
}

Message decodeLed(const QByteArray &datagram)
{
    if (datagram.size() != 6)
        return unreadable(QStringLiteral("LED record of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::Led;
    message.number = wordAt(datagram, 2);
    message.value = wordAt(datagram, 4) != 0 ? 1 : 0;
    if (wordAt(datagram, 4) > 1)
        message.violations.append(QStringLiteral("LED state %1").arg(wordAt(datagram, 4)));
    return message;
}

Message decodeTriggerCurve(const QByteArray &datagram)
{
    if (datagram.size() != 22)
        return unreadable(QStringLiteral("trigger curve of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::TriggerCurve;
    message.number = wordAt(datagram, 2);
    for (int offset = 4; offset < datagram.size(); offset += 2) {
        if (byteAt(datagram, offset) != 0)
            message.violations.append(QStringLiteral("curve point %1 has a high byte").arg((offset - 4) / 2));
        message.payload.append(datagram.at(offset + 1));
    }
    return message;
}

Message decodeBluetoothName(const QByteArray &datagram)
{
    if (datagram.size() != 34)
        return unreadable(QStringLiteral("bluetooth name of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::BluetoothName;
    const QByteArray field = datagram.mid(2);
    const int end = field.indexOf('\0');
    message.payload = end < 0 ? field : field.left(end);
    for (int i = message.payload.size(); i < field.size(); ++i) {
        if (field.at(i) != '\0') {
            message.violations.append(QStringLiteral("bluetooth name is followed by more than zeros"));
            break;
        }
    }
    return message;
}

Message decodeQuery(const QByteArray &datagram)
{
    if (datagram.size() != 4)
        return unreadable(QStringLiteral("query of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::Query;
    message.content = wordAt(datagram, 0);
    if (wordAt(datagram, 2) != 0)
        message.violations.append(QStringLiteral("query with second word %1").arg(wordAt(datagram, 2)));
    return message;
}

bool isContent(quint16 content)
{
    switch (content) {
    case Tag::EngineFirmware:
    case Tag::TriggerFirmware:
    case Tag::SoundBank:
    case Tag::TriggerBank:
    case Tag::ImportedSoundBank:
    case Tag::ImportedWave:
    case Tag::BluetoothFirmware: return true;
    default: return false;
    }
}

Message decodeTransferStart(const QByteArray &datagram)
{
    Message message;
    message.kind = Message::Kind::TransferStart;
    message.content = wordAt(datagram, 2);
    message.number = longAt(datagram, 4);
    if (datagram.size() == 8)
        return message;

    const bool named = message.content == Tag::ImportedSoundBank || message.content == Tag::ImportedWave;
    const bool slotted = named || message.content == Tag::BluetoothFirmware;
    if (!slotted || datagram.size() < 10 || (!named && datagram.size() != 10))
        return unreadable(
            QStringLiteral("%1 start packet of %2 bytes").arg(tagText(message.content)).arg(datagram.size()));
    message.slot = wordAt(datagram, 8);
    if (named) {
        message.payload = datagram.mid(10);
        if (message.payload.indexOf('\0') != message.payload.size() - 1)
            message.violations.append(
                QStringLiteral("name of a start packet without exactly one closing zero"));
        const int end = message.payload.indexOf('\0');
        if (end >= 0)
            message.payload.truncate(end);
    }
    return message;
}

Message decodeTransferData(const QByteArray &datagram)
{
    if (datagram.size() < 10)
        return unreadable(QStringLiteral("data packet of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::TransferData;
    message.content = wordAt(datagram, 2);
    message.number = longAt(datagram, 4);
    message.payload = datagram.mid(10);
    if (wordAt(datagram, 8) * 2 != message.payload.size()) {
        return unreadable(QStringLiteral("data packet %1 announces %2 words and holds %3 bytes")
                              .arg(message.number)
                              .arg(wordAt(datagram, 8))
                              .arg(message.payload.size()));
    }
    return message;
}

Message decodeTransferEnd(const QByteArray &datagram)
{
    if (datagram.size() != 8)
        return unreadable(QStringLiteral("end packet of %1 bytes").arg(datagram.size()));
    Message message;
    message.kind = Message::Kind::TransferEnd;
    message.content = wordAt(datagram, 2);
    message.number = longAt(datagram, 4);
    return message;
}

Message decodeTransfer(const QByteArray &datagram)
{
    if (datagram.size() < 8)
        return unreadable(QStringLiteral("transfer packet of %1 bytes").arg(datagram.size()));
    if (!isContent(wordAt(datagram, 2)))
        return unreadable(QStringLiteral("transfer of unknown content %1").arg(tagText(wordAt(datagram, 2))));
    switch (wordAt(datagram, 0)) {
    case Tag::TransferStart: return decodeTransferStart(datagram);
    case Tag::TransferData: return decodeTransferData(datagram);
    default: return decodeTransferEnd(datagram);
    }
}

QString pointsText(const QByteArray &points)
{
    QStringList texts;
    for (char point : points)
        texts.append(QString::number(quint8(point)));
    return texts.join(QLatin1Char(' '));
}

// Names from the network must not send control characters to a terminal.
QString quoted(QString name)
{
    for (QChar &c : name) {
        if (!c.isPrint())
            c = QLatin1Char('?');
    }
    return QLatin1Char('"') + name + QLatin1Char('"');
}

QString startText(const Message &message)
{
    QString text =
        QStringLiteral("transfer start %1, %2 bytes").arg(tagText(message.content)).arg(message.number);
    if (message.slot >= 0)
        text += QStringLiteral(", slot %1").arg(message.slot);
    if (!message.payload.isEmpty())
        text += QStringLiteral(", name ") + quoted(QString::fromUtf8(message.payload));
    return text;
}

} // namespace

Message decode(const QByteArray &datagram)
{
    if (datagram.size() < 2)
        return unreadable(QStringLiteral("datagram of %1 bytes").arg(datagram.size()));
    switch (wordAt(datagram, 0)) {
    case Tag::Midi: return decodeMidi(datagram);
    case Tag::PowerOff: return decodePowerOff(datagram);
    case Tag::Led: return decodeLed(datagram);
    case Tag::TriggerCurve: return decodeTriggerCurve(datagram);
    case Tag::BluetoothName: return decodeBluetoothName(datagram);
    case Tag::EngineVersion:
    case Tag::TriggerVersion:
    case Tag::SoundBankVersion:
    case Tag::TriggerBankVersion:
    case Tag::HiHatRaw: return decodeQuery(datagram);
    case Tag::TransferStart:
    case Tag::TransferData:
    case Tag::TransferEnd: return decodeTransfer(datagram);
    default: return unreadable(QStringLiteral("unknown header %1").arg(tagText(wordAt(datagram, 0))));
    }
}

QString queryName(quint16 query)
{
    switch (query) {
    case Tag::EngineVersion: return QStringLiteral("sound engine version");
    case Tag::TriggerVersion: return QStringLiteral("trigger board version");
    case Tag::SoundBankVersion: return QStringLiteral("sound bank version");
    case Tag::TriggerBankVersion: return QStringLiteral("trigger bank version");
    case Tag::HiHatRaw: return QStringLiteral("hi-hat raw value");
    default: return QString();
    }
}

QString describe(const Message &message)
{
    switch (message.kind) {
    case Message::Kind::Unreadable: break;
    case Message::Kind::Parameter: return parameterText(message.msb, message.lsb, message.value, message.low);
    case Message::Kind::ControlChange:
        if (message.msb == Midi::Volume)
            return QStringLiteral("drum kit volume %1").arg(message.value);
        return QStringLiteral("controller %1 value %2").arg(message.msb).arg(message.value);
    case Message::Kind::NoteOn:
        return QStringLiteral("note on %1 velocity %2").arg(message.msb).arg(message.value);
    case Message::Kind::NoteOff: return QStringLiteral("note off %1").arg(message.msb);
    case Message::Kind::Program: return QStringLiteral("program change %1").arg(message.msb);
    case Message::Kind::SysEx: return QStringLiteral("sysex ") + hexText(message.payload);
    case Message::Kind::PowerOff: return QStringLiteral("power off");
    case Message::Kind::Led:
        return QStringLiteral("LED %1 %2")
            .arg(message.number)
            .arg(message.value != 0 ? QLatin1String("on") : QLatin1String("off"));
    case Message::Kind::TriggerCurve:
        return QStringLiteral("trigger curve %1: %2").arg(message.number).arg(pointsText(message.payload));
    case Message::Kind::BluetoothName:
        return QStringLiteral("bluetooth name ") + quoted(QString::fromLocal8Bit(message.payload));
    case Message::Kind::Query:
        return QStringLiteral("query %1: %2").arg(tagText(message.content), queryName(message.content));
    case Message::Kind::TransferStart: return startText(message);
    case Message::Kind::TransferData:
        return QStringLiteral("transfer data %1, packet %2, %3 bytes")
            .arg(tagText(message.content))
            .arg(message.number)
            .arg(message.payload.size());
    case Message::Kind::TransferEnd:
        return QStringLiteral("transfer end %1, checksum 0x%2")
            .arg(tagText(message.content))
            .arg(message.number, 8, 16, QLatin1Char('0'));
    }
    return QStringLiteral("unreadable datagram");
}

} // namespace simulated
