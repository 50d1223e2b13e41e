#include "scenariowriter.h"

#include "kit.h"
#include "switches.h"
#include "wire.h"

#include <QVector>

#include <array>

namespace simulated {

namespace {

constexpr qint64 nsPerMs = 1000000;
constexpr qint64 longestMs = 24 * 60 * 60 * 1000; // of a scenario
// Datagrams further apart do not become one command, which sends them at once.
constexpr qint64 longestCommandMs = 20;
constexpr int eventSize = 8;
constexpr int largestByte = 0x7F;

// The sections of the command comp.
constexpr std::array<const char *, 4> sectionNames{"master", "monitor", "headphone", "pad"};

QString hexNumber(quint16 number)
{
    return QStringLiteral("0x%1").arg(number, 4, 16, QLatin1Char('0'));
}

// Two letters, or a number where a letter would begin a comment.
QString kindText(quint16 kind)
{
    const QString text = tagText(kind);
    return text.contains(QLatin1Char('#')) ? hexNumber(kind) : text;
}

// The words of `count` levels. Levels that a command leaves out are 0.
QString levelTexts(const QByteArray &datagram, int offset, int count)
{
    while (count > 1 && wordAt(datagram, offset + 2 * (count - 1)) == 0)
        --count;
    QStringList texts;
    for (int i = 0; i < count; ++i)
        texts.append(QString::number(wordAt(datagram, offset + 2 * i)));
    return texts.join(QLatin1Char(' '));
}

bool isEvent(const QByteArray &datagram)
{
    return datagram.size() == eventSize && wordAt(datagram, 2) == Tag::Event;
}

struct MidiBytes
{
    quint8 codeIndex;
    quint8 status;
    quint8 data1;
    quint8 data2;
};

MidiBytes midiOf(const QByteArray &event)
{
    return {byteAt(event, 5), byteAt(event, 4), byteAt(event, 7), byteAt(event, 6)};
}

bool isMidi(const QByteArray &datagram)
{
    return isEvent(datagram) && wordAt(datagram, 0) == Tag::Midi;
}

bool isController(const QByteArray &datagram, quint8 number)
{
    const MidiBytes midi = midiOf(datagram);
    return isMidi(datagram) && midi.codeIndex == 0x0B && midi.status == Midi::ControlChange &&
           midi.data1 == number && midi.data2 <= largestByte;
}

// An empty text if no command sends this event.
QString midiCommand(const MidiBytes &midi)
{
    if (midi.data1 > largestByte || midi.data2 > largestByte)
        return {};
    const auto is = [&midi](quint8 codeIndex, quint8 status) {
        return midi.codeIndex == codeIndex && midi.status == status;
    };
    if (is(0x09, Midi::NoteOn))
        return QStringLiteral("strike %1 %2").arg(zoneText(midi.data1)).arg(midi.data2);
    if (is(0x0A, Midi::PolyPressure))
        return QStringLiteral("choke %1 %2").arg(zoneText(midi.data1)).arg(midi.data2);
    if (is(0x0B, Midi::ControlChange) && midi.data1 == Midi::HiHatPedal)
        return QStringLiteral("hihat %1").arg(midi.data2);
    if (is(0x0B, Midi::ControlChange))
        return QStringLiteral("controller %1 %2").arg(midi.data1).arg(midi.data2);
    if (is(0x0C, Midi::ProgramChange) && midi.data2 == 0)
        return QStringLiteral("program %1").arg(midi.data1);
    return {};
}

QString eventCommand(const QByteArray &event)
{
    const quint16 kind = wordAt(event, 0);
    const quint16 index = wordAt(event, 4);
    const quint16 data = wordAt(event, 6);
    QString command;
    if (kind == Tag::Midi)
        command = midiCommand(midiOf(event));
    else if (kind == Tag::Tempo && data == 0)
        command = QStringLiteral("tempo %1").arg(index);
    else if (kind == Tag::Beat && data == 0)
        command = QStringLiteral("beat %1").arg(index);
    else if (kind == Tag::Pot && index <= 3 && data <= 1)
        command = QStringLiteral("pot %1 %2").arg(index).arg(QLatin1Char(data == 1 ? '+' : '-'));
    else if (kind == Tag::Switch && data <= 1 && !switchName(index).isEmpty())
        command = QStringLiteral("switch %1 %2").arg(switchName(index)).arg(data);
    else if (kind == Tag::FlashSize)
        command = QStringLiteral("flash %1 %2").arg(index).arg(data);
    if (!command.isEmpty())
        return command;
    return QStringLiteral("event %1 %2 %3").arg(kindText(kind), hexNumber(index), hexNumber(data));
}

QString commandOf(const QByteArray &datagram)
{
    if (isEvent(datagram))
        return eventCommand(datagram);
    constexpr int outputLevels = 18;
    constexpr int compressorLevels = 6;
    if (wordAt(datagram, 0) == Tag::OutputMeters && datagram.size() == 2 + 2 * outputLevels)
        return QStringLiteral("meters ") + levelTexts(datagram, 2, outputLevels);
    if (wordAt(datagram, 0) == Tag::CompressorMeters && datagram.size() == 4 + 2 * compressorLevels) {
        const quint16 section = wordAt(datagram, 2);
        const QString name = section < sectionNames.size() ? QLatin1String(sectionNames.at(section))
                                                           : QString::number(section);
        return QStringLiteral("comp %1 %2").arg(name, levelTexts(datagram, 4, compressorLevels));
    }
    return QStringLiteral("send ") + hexText(datagram);
}

// One command and the number of datagrams that it sends.
struct Step
{
    QString command;
    int datagrams;
};

Step testCommandAt(const QVector<QByteArray> &sent, int first)
{
    if (first + 2 >= sent.size() || !isController(sent.at(first), Midi::ParameterHigh) ||
        !isController(sent.at(first + 1), Midi::ParameterLow) ||
        !isController(sent.at(first + 2), Midi::Value))
        return {{}, 0};
    QByteArray bytes;
    for (int i = first; i < first + 3; ++i)
        bytes.append(char(midiOf(sent.at(i)).data2));
    return {QStringLiteral("testcommand ") + hexText(bytes), 3};
}

Step sysExAt(const QVector<QByteArray> &sent, int first)
{
    constexpr int longest = 16 * 1024;
    QByteArray message;
    int end = first;
    while (end < sent.size() && isMidi(sent.at(end)) && message.size() < longest) {
        const MidiBytes midi = midiOf(sent.at(end));
        if (end == first && midi.status != Midi::SysExStart)
            return {{}, 0};
        if (midi.codeIndex < 4 || midi.codeIndex > 7)
            return {{}, 0};
        const int size = midi.codeIndex == 4 ? 3 : midi.codeIndex - 4;
        const char bytes[] = {char(midi.status), char(midi.data1), char(midi.data2)};
        message.append(bytes, size);
        ++end;
        if (midi.codeIndex != 4)
            break;
    }
    // The events may differ from those of the command in what they fill up with.
    if (end == first || sysExEvents(message) != sent.mid(first, end - first))
        return {{}, 0};
    return {QStringLiteral("sysex ") + hexText(message), end - first};
}

Step stepAt(const QVector<QByteArray> &sent, int first)
{
    for (const auto &read : {testCommandAt, sysExAt}) {
        Step step = read(sent, first);
        if (step.datagrams > 0)
            return step;
    }
    return {commandOf(sent.at(first)), 1};
}

} // namespace

QStringList scenarioOf(const Recording &recording, QString *problem)
{
    if (recording.duration() / nsPerMs > longestMs) {
        *problem = QStringLiteral("the recording is longer than a day, which no scenario can be");
        return {};
    }
    QVector<QByteArray> sent;
    QVector<qint64> times;
    for (int i = 0; i < recording.size(); ++i) {
        if (!recording.isFromEngine(i))
            continue;
        sent.append(recording.datagram(i));
        times.append(recording.time(i) / nsPerMs);
    }
    QStringList lines{
        QStringLiteral("# The engine's side of a recording: %1 datagrams.").arg(sent.size()),
        QStringLiteral("# The answers to requests are part of it, so the simulator sends none of its own."),
        QStringLiteral("answers off"), QStringLiteral("meters off"), QStringLiteral("wait-for module")};
    for (int i = 0; i < sent.size();) {
        if (sent.at(i).isEmpty()) {
            lines.append(
                QStringLiteral("# at %1: an empty datagram, for which there is no command").arg(times.at(i)));
            ++i;
            continue;
        }
        Step step = stepAt(sent, i);
        if (times.at(i + step.datagrams - 1) - times.at(i) > longestCommandMs)
            step = {commandOf(sent.at(i)), 1};
        lines.append(QStringLiteral("at %1 %2").arg(times.at(i)).arg(step.command));
        i += step.datagrams;
    }
    return lines;
}

} // namespace simulated
