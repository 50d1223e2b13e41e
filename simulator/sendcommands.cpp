#include "commandreaders.h"
#include "kit.h"
#include "soundengine.h"
#include "switches.h"

namespace simulated {

namespace {

constexpr int largestDatagram = 65507;

constexpr int lastPot = 3;

// A command that sends something. `send` returns false if it could not send.
Run sending(const std::function<bool(SoundEngine &)> &send)
{
    return [send](SoundEngine &engine) {
        CommandResult result;
        result.isSent = send(engine);
        if (!result.isSent)
            result.lines.append(QStringLiteral("not sent: ") + engine.sendProblem());
        return result;
    };
}

bool readHex(const QStringList &words, QByteArray *bytes)
{
    const QString joined = words.join(QString());
    if (joined.isEmpty() || joined.size() % 2 != 0)
        return false;
    const auto isHex = [](QChar c) {
        return QStringLiteral("0123456789abcdef").contains(c.toLower());
    };
    if (!std::all_of(joined.begin(), joined.end(), isHex))
        return false;
    *bytes = QByteArray::fromHex(joined.toLatin1());
    return bytes->size() <= largestDatagram;
}

constexpr Named sectionNames[] = {{"master", 0}, {"monitor", 1}, {"headphone", 2}, {"pad", 3}};

bool readNote(Reader &reader, int *note)
{
    *note = noteFromText(reader.arguments.at(0));
    if (*note >= 0)
        return true;
    reader.problem =
        QStringLiteral("\"%1\" is neither a pad nor a note from 0 to 127").arg(reader.arguments.at(0));
    return false;
}

Run readStrike(Reader &reader)
{
    int velocity = 100;
    if (reader.count() > 1 && !reader.number(1, largestByte, &velocity))
        return {};
    if (reader.arguments.at(0) == QLatin1String("all")) {
        return sending([velocity](SoundEngine &engine) {
            bool sent = true;
            for (const Zone &zone : kitZones())
                sent = engine.strike(zone.note, quint8(velocity)) && sent;
            return sent;
        });
    }
    int note = 0;
    if (!readNote(reader, &note))
        return {};
    return sending(
        [note, velocity](SoundEngine &engine) { return engine.strike(quint8(note), quint8(velocity)); });
}

Run readChoke(Reader &reader)
{
    int note = 0;
    int pressure = largestByte;
    if (!readNote(reader, &note) || (reader.count() > 1 && !reader.number(1, largestByte, &pressure)))
        return {};
    return sending(
        [note, pressure](SoundEngine &engine) { return engine.choke(quint8(note), quint8(pressure)); });
}

Run readHiHat(Reader &reader)
{
    int position = 0;
    if (!reader.number(0, largestByte, &position))
        return {};
    return sending([position](SoundEngine &engine) { return engine.moveHiHat(quint8(position)); });
}

Run readController(Reader &reader)
{
    int number = 0;
    int value = 0;
    if (!reader.number(0, largestByte, &number) || !reader.number(1, largestByte, &value))
        return {};
    return sending([=](SoundEngine &engine) { return engine.sendController(quint8(number), quint8(value)); });
}

Run readProgram(Reader &reader)
{
    int program = 0;
    if (!reader.number(0, largestByte, &program))
        return {};
    return sending([program](SoundEngine &engine) { return engine.sendProgram(quint8(program)); });
}

Run readSwitchCommand(Reader &reader)
{
    quint16 name = 0;
    bool isNamed = false;
    if (!readSwitch(reader.arguments.at(0), &name, &isNamed))
        return reader.fail(QStringLiteral("unknown switch \"%1\"; use %2, or any two letters")
                               .arg(reader.arguments.at(0), switchNames()));
    int value = 0;
    if (!reader.number(1, isNamed ? 1 : largestWord, &value))
        return {};
    return sending([=](SoundEngine &engine) { return engine.setSwitch(name, quint16(value)); });
}

Run readPot(Reader &reader)
{
    int pot = 0;
    if (!reader.number(0, lastPot, &pot))
        return {};
    const QString direction = reader.arguments.at(1);
    if (direction != QLatin1String("+") && direction != QLatin1String("-"))
        return reader.fail(QStringLiteral("a pot takes + or -, not \"%1\"").arg(direction));
    const bool up = direction == QLatin1String("+");
    return sending([=](SoundEngine &engine) { return engine.turnPot(quint16(pot), up); });
}

Run readTempo(Reader &reader)
{
    int tempo = 0;
    if (!reader.number(0, largestWord, &tempo))
        return {};
    return sending([tempo](SoundEngine &engine) { return engine.sendTempo(quint16(tempo)); });
}

Run readBeat(Reader &reader)
{
    int beat = 0;
    if (!reader.number(0, largestWord, &beat))
        return {};
    return sending([beat](SoundEngine &engine) { return engine.sendBeat(quint16(beat)); });
}

template<size_t size>
bool readLevels(Reader &reader, int first, std::array<quint16, size> *levels)
{
    for (int i = first; i < reader.count(); ++i) {
        int level = 0;
        if (!reader.number(i, largestWord, &level))
            return false;
        (*levels)[size_t(i - first)] = quint16(level);
    }
    return true;
}

Run readMeters(Reader &reader)
{
    bool on = false;
    if (reader.count() == 1 && reader.arguments.at(0) == QLatin1String("auto"))
        return setting([](SoundEngine &engine) { engine.followHits(); });
    if (reader.count() == 1 && readOnOff(reader.arguments.at(0), &on))
        return setting([on](SoundEngine &engine) { engine.setMeters(on); });
    OutputLevels levels{};
    if (!readLevels(reader, 0, &levels))
        return {};
    return sending([levels](SoundEngine &engine) {
        engine.setOutputLevels(levels);
        return engine.sendOutputMeters(levels);
    });
}

Run readComp(Reader &reader)
{
    CompressorLevels levels{};
    const Named *named = findNamed(sectionNames, reader.arguments.at(0));
    int section = 0;
    if (named != nullptr)
        section = named->value;
    else if (!readNumber(reader.arguments.at(0), largestWord, &section))
        return reader.fail(QStringLiteral("unknown section \"%1\"; use %2, or any number")
                               .arg(reader.arguments.at(0), listed(sectionNames)));
    if (!readLevels(reader, 1, &levels))
        return {};
    return sending([=](SoundEngine &engine) {
        engine.setCompressorLevels(SoundEngine::Section(quint16(section)), levels);
        return engine.sendCompressorMeters(quint16(section), levels);
    });
}

Run readFlash(Reader &reader)
{
    int high = 0;
    int low = 0;
    if (!reader.number(0, largestWord, &high) || !reader.number(1, largestWord, &low))
        return {};
    return sending([=](SoundEngine &engine) {
        engine.setFlashSize(quint16(high), quint16(low));
        return engine.sendFlashSize(quint16(high), quint16(low));
    });
}

Run readTestCommand(Reader &reader)
{
    QByteArray bytes;
    if (!readHex(reader.arguments, &bytes) || bytes.size() != 3)
        return reader.fail(QStringLiteral("a test command is three bytes in hexadecimal digits"));
    return sending([bytes](SoundEngine &engine) {
        return engine.sendTestCommand(quint8(bytes.at(0)), quint8(bytes.at(1)), quint8(bytes.at(2)));
    });
}

Run readSysEx(Reader &reader)
{
    QByteArray bytes;
    if (!readHex(reader.arguments, &bytes))
        return reader.fail(QStringLiteral("SysEx takes pairs of hexadecimal digits, including F0 and F7"));
    return sending([bytes](SoundEngine &engine) { return engine.sendSysEx(bytes); });
}

Run readEvent(Reader &reader)
{
    quint16 kind = 0;
    quint16 index = 0;
    quint16 data = 0;
    if (!readTag(reader.arguments.at(0), &kind))
        return reader.fail(
            QStringLiteral("an event's kind is two letters, not \"%1\"").arg(reader.arguments.at(0)));
    int number = 0;
    if (readNumber(reader.arguments.at(1), largestWord, &number))
        index = quint16(number);
    else if (!readTag(reader.arguments.at(1), &index))
        return reader.fail(
            QStringLiteral("\"%1\" is neither a number nor two letters").arg(reader.arguments.at(1)));
    if (!reader.number(2, largestWord, &number))
        return {};
    data = quint16(number);
    return sending([=](SoundEngine &engine) { return engine.sendEvent(kind, index, data); });
}

Run readSend(Reader &reader)
{
    QByteArray bytes;
    if (!readHex(reader.arguments, &bytes))
        return reader.fail(QStringLiteral("a datagram takes pairs of hexadecimal digits"));
    return sending([bytes](SoundEngine &engine) { return engine.sendRaw(bytes); });
}

} // namespace

const QVector<CommandRow> &sendCommands()
{
    static const QVector<CommandRow> rows = {
        {"strike", "PAD|NOTE|all [VELOCITY]", "strikes a pad; VELOCITY is 100 by default", 1, 2, readStrike},
        {"choke", "PAD|NOTE [PRESSURE]", "chokes a cymbal; PRESSURE is 127 by default", 1, 2, readChoke},
        {"hihat", "POSITION", "moves the hi-hat pedal, 0 to 127", 1, 1, readHiHat},
        {"controller", "NUMBER VALUE", "sends any controller", 2, 2, readController},
        {"program", "NUMBER", "sends a program change", 1, 1, readProgram},
        {"switch", "NAME VALUE",
         "power, foot1, foot2, aux3, aux4, headphone, mixin or home, 0 or 1; two letters take any value", 2,
         2, readSwitchCommand},
        {"pot", "NUMBER +|-", "turns a pot (0 to 3) one step", 2, 2, readPot},
        {"tempo", "BPM", "reports a tempo", 1, 1, readTempo},
        {"beat", "NUMBER", "reports a beat", 1, 1, readBeat},
        {"meters", "LEVEL ...|auto|on|off",
         "up to 18 output levels (70 is full), sent and kept; auto: follow the hits", 1, 18, readMeters},
        {"comp", "SECTION LEVEL ...",
         "up to 6 compressor levels of master, monitor, headphone or pad, sent and kept", 2, 7, readComp},
        {"flash", "HIGH LOW", "reports the flash sizes", 2, 2, readFlash},
        {"testcommand", "HH HH HH", "sends a test command, hexadecimal", 3, 3, readTestCommand},
        {"sysex", "HH ...", "sends a SysEx message, hexadecimal, with F0 and F7", 1, anyNumberOfWords,
         readSysEx},
        {"event", "KIND INDEX DATA", "sends an event of any kind, two letters", 3, 3, readEvent},
        {"send", "HH ...", "sends any datagram, hexadecimal", 1, anyNumberOfWords, readSend},
    };
    return rows;
}

} // namespace simulated
