// Datagrams from the engine: every form as tshark shows it, and pads as the product reads them.

#include "simulator/enginetext.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"
#include "wireshark/fieldrows.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace testsupport;

namespace {

constexpr char text[] = "zelta.text";
constexpr char reports[] = "_ws.expert.message";

// The first row, byte by byte: 42 54 is the tag BT, 41 43 the tag AC of every event, 00 03 the first word
// with the beat, FF FF the second word, which is unused here.
// clang-format off
constexpr FieldRow rows[] = {
    {"beat", "BT AC 0003 FFFF", text, "beat 3"},
    {"beat, field", "BT AC 0003 FFFF", "zelta.beat", "3"},
    {"tag", "BT AC 0003 0000", "zelta.tag", "BT"},
    {"direction", "BT AC 0003 0000", "zelta.direction", "from the engine"},
    {"event", "BT AC 0003 0000", "zelta.event.kind", "BT"},
    {"first word", "BT AC 0003 FFFF", "zelta.event.index", "3"},
    {"second word", "BT AC 0003 FFFF", "zelta.event.data", "65535"},
    {"tempo", "TM AC 0078 0000", text, "tempo 120"},
    {"tempo, field", "TM AC 0078 0000", "zelta.tempo", "120"},

    {"switch power", "SW AC 5057 0001", text, "switch power 1"},
    {"switch foot1", "SW AC 4631 0001", text, "switch foot1 1"},
    {"switch foot2", "SW AC 4632 0000", text, "switch foot2 0"},
    {"switch aux3", "SW AC 4133 0001", text, "switch aux3 1"},
    {"switch aux4", "SW AC 4134 0001", text, "switch aux4 1"},
    {"switch headphone", "SW AC 4850 0001", text, "switch headphone 1"},
    {"switch mixin", "SW AC 4D49 0005", text, "switch mixin 5"},
    {"switch home", "SW AC 484D 0001", text, "switch home 1"},
    {"switch, field", "SW AC 484D 0001", "zelta.switch.name", "home"},
    {"switch value", "SW AC 484D 0001", "zelta.switch.value", "1"},
    {"unknown switch", "SW AC 5A5A 0001", text, "switch ZZ 1"},
    {"unknown switch, report", "SW AC 5A5A 0001", reports, "unknown switch ZZ"},

    {"pot up", "CO AC 0002 0001", text, "pot 2 +"},
    {"pot down", "CO AC 0000 0000", text, "pot 0 -"},
    {"pot, field", "CO AC 0002 0001", "zelta.pot.number", "2"},
    {"pot step", "CO AC 0002 0001", "zelta.pot.up", "1"},
    {"no such pot", "CO AC 0004 0001", reports, "there is no pot 4"},

    {"flash sizes", "FR AC 0001 0002", text, "flash size 262144, total 131076"},
    {"flash size", "FR AC 0001 0002", "zelta.flash.samples", "262144"},
    {"total flash size", "FR AC 0001 0002", "zelta.flash.total", "131076"},
    {"flash sizes, largest", "FR AC FFFF FFFF", text, "flash size 4294836224, total 4294967294"},

    {"strike", "IM AC 9909 6426", text, "pad 1 snare zone 0 velocity 100"},
    {"strike, info column", "IM AC 9909 6426", "_ws.col.Info", "pad 1 snare zone 0 velocity 100"},
    {"strike of the bell", "IM AC 9909 0135", text, "pad 6 ride-bell zone 2 velocity 1"},
    {"pad", "IM AC 9909 6426", "zelta.pad.number", "1"},
    {"pad name", "IM AC 9909 6426", "zelta.pad.name", "snare"},
    {"pad note", "IM AC 9909 6426", "zelta.pad.note", "38"},
    {"pad velocity", "IM AC 9909 6426", "zelta.pad.velocity", "100"},
    {"pad zone", "IM AC 9909 0135", "zelta.pad.zone", "2"},
    {"status", "IM AC 9909 6426", "zelta.midi.status", "0x99"},
    {"code index", "IM AC 9909 6426", "zelta.midi.code_index", "0x09"},
    {"first data byte", "IM AC 9909 6426", "zelta.midi.data1", "38"},
    {"second data byte", "IM AC 9909 6426", "zelta.midi.data2", "100"},
    {"note without a pad", "IM AC 9909 643C", text, "note 60 velocity 100, no pad"},
    {"note without a pad, report", "IM AC 9909 643C", reports, "note 60 belongs to no pad"},
    {"pressure", "IM AC A90A 7F31", text, "pad 8 crash1 pressure 127"},
    {"pressure, field", "IM AC A90A 7F31", "zelta.pad.pressure", "127"},
    {"pressure on a drum", "IM AC A90A 7F26", text, "note 38 pressure 127, no pad"},
    {"controller", "IM AC B90B 4004", text, "controller 4 value 64"},
    {"controller number", "IM AC B90B 4004", "zelta.controller.number", "4"},
    {"controller value", "IM AC B90B 4004", "zelta.controller.value", "64"},
    {"program", "IM AC C90C 0005", text, "program change 5"},
    {"program, field", "IM AC C90C 0005", "zelta.program", "5"},
    {"ignored MIDI event", "IM AC FFFF FFFE", text, "MIDI event FF FF FF FE, which the module ignores"},

    {"SysEx, first event", "IM AC F004 4110", text, "sysex event 1"},
    {"SysEx", "494D 4143 F004 4110 | 494D 4143 1004 4212 | 494D 4143 F705 0000", text, "sysex F0 10 41 10 12 42 F7"},
    {"SysEx message", "494D 4143 F004 4110 | 494D 4143 F705 0000", "zelta.sysex.message", "f01041f7"},
    {"SysEx as reported", "494D 4143 F004 4110 | 494D 4143 1004 4212 | 494D 4143 F705 0000", "zelta.sysex.text",
     "04f010410410124205f70000"},
    {"SysEx, number of events", "494D 4143 F004 4110 | 494D 4143 F705 0000", "zelta.sysex.events", "2"},
    {"end of SysEx across a byte boundary", "IM AC 0F70 0000", "zelta.sysex.text", "700f0000"},
    {"start in a SysEx, end in the start", "494D 4143 F007 F77D | 494D 4143 0005 00F7", "zelta.sysex.text",
     "07f07df70500f700"},
    {"strike within a SysEx", "494D 4143 F004 4110 | 494D 4143 9909 6426", text,
     "pad 1 snare zone 0 velocity 100, sysex event 2"},
    {"test command within a SysEx", "494D 4143 F004 4110 | 494D 4143 B90B 1263 | 494D 4143 F705 0000",
     "zelta.sysex.text", "04f010410bb9631205f70000"},

    {"test command", "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 7D06", text, "test command 12 34 7d"},
    {"test command, high", "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 7D06",
     "zelta.testcommand.high", "0x12"},
    {"test command, low", "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 7D06",
     "zelta.testcommand.low", "0x34"},
    {"test command, value", "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 7D06",
     "zelta.testcommand.value", "0x7d"},
    {"second value after a test command",
     "494D 4143 B90B 1263 | 494D 4143 B90B 3462 | 494D 4143 B90B 5606 | 494D 4143 B90B 7806", text,
     "controller 6 value 120"},
    {"value alone", "IM AC B90B 7806", text, "controller 6 value 120"},

    {"compressor meters", "CR 0001 0007 000E 0015 001C 0023 002A", text,
     "compressor meters monitor in 7 14 reduction 21 28 out 35 42"},
    {"compressor meters, master", "CR 0000 0007 000E 0015 001C 0023 002A", text,
     "compressor meters master in 7 14 reduction 21 28 out 35 42"},
    {"compressor meters, headphone", "CR 0002 0007 000E 0015 001C 0023 002A", text,
     "compressor meters headphone in 7 14 reduction 21 28 out 35 42"},
    {"compressor meters, pad", "CR 0007 0007 000E 0015 001C 0023 002A", text,
     "compressor meters pad in 7 14 reduction 21 28 out 35 42"},
    {"section", "CR 0001 0007 000E 0015 001C 0023 002A", "zelta.comp.section", "1"},
    {"input level", "CR 0001 0007 000E 0015 001C 0023 002A", "zelta.comp.in_right", "14"},
    {"gain reduction", "CR 0001 0007 000E 0015 001C 0023 002A", "zelta.comp.reduction_left", "21"},
    {"output level of a compressor", "CR 0001 0007 000E 0015 001C 0023 002A", "zelta.comp.out_right", "42"},
    {"levels as fractions", "CR 0001 0046 0000 008C 0046 0046 0046", "zelta.level.fraction", "1|0|2|1|1|1"},
    {"output meters", "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
     text, "output meters 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18"},
    {"first output",
     "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
     "zelta.out.master_left", "1"},
    {"seventh output",
     "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
     "zelta.out.direct_1", "7"},
    {"last output",
     "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
     "zelta.out.usb_right", "18"},

    {"reply VN", "VN AC 0001 0004", text, "reply VN: sound engine version 1.4"},
    {"reply TV", "TV AC 0000 0064", text, "reply TV: trigger board version 0.100"},
    {"reply SN", "SN AC 0001 0000", text, "reply SN: sound bank version 1.0"},
    {"reply TN", "TN AC 0001 0000", text, "reply TN: trigger bank version 1.0"},
    {"reply HL", "HL AC 0200 0000", text, "reply HL: hi-hat raw value 512"},
    {"major version", "VN AC 0001 0004", "zelta.version.major", "1"},
    {"minor version", "VN AC 0001 0004", "zelta.version.minor", "4"},
    {"hi-hat raw value", "HL AC 0200 0000", "zelta.hihat.raw", "512"},
    {"slot info", "IS AC 0003 0001", text, "event IS 3 1"},
    {"unknown event", "AB AC 0001 0002", text, "event AB 1 2"},
    {"unknown event, report", "AB AC 0001 0002", reports, "unknown event AB"},

    {"packet acknowledged", "DC AC 0005 0100", text, "transfer packet 65541 acknowledged"},
    {"resend", "DC AC 0005 01BE", text, "transfer resend from packet 65541"},
    {"resend, field", "DC AC 0005 01BE", "zelta.transfer.resend_from", "65541"},
    {"resend for an unknown code", "DC AC 0005 0042", text, "transfer resend from packet 5, unknown code 0x42"},
    {"refused", "DC AC 0005 00E0", text, "transfer refused, code 0xe0"},
    {"memory full", "DC AC 0005 00E2", text, "transfer refused, memory full, code 0xe2"},
    {"memory full, report", "DC AC 0005 00E2", reports, "memory full, code 0xe2"},
    {"refused by the last code", "DC AC 0005 00EF", text, "transfer refused, code 0xef"},
    {"acknowledgement code", "DC AC 0005 00EF", "zelta.transfer.ack_code", "0xef"},
    {"end acknowledged", "DE AC 0000 0000", text, "transfer end acknowledged, status 0x0000"},
    {"end acknowledged with an error", "DE AC 0000 0001", reports, "end status 0x0001"},
    {"end status", "DE AC 0000 0001", "zelta.transfer.status", "0x0001"},

    {"no known length", "BT AC 0003", text, "unreadable datagram: 6 bytes of no known form"},
    {"event without AC", "BT AD 0003 0000", text, "unreadable datagram: 8 bytes of no known form"},
    {"DR with the length of CR", "DR 0001 0007 000E 0015 001C 0023 002A", text,
     "unreadable datagram: 16 bytes of no known form"},
};
// clang-format on

} // namespace

class EngineTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void datagrams_data();
    void datagrams() { compareField(); }
    void simulatorInTheSameWords_data();
    void simulatorInTheSameWords();
    void padsAsTheModuleReadsThem();

private:
    QTemporaryDir m_dir;
};

void EngineTest::datagrams_data()
{
    addFieldRows(rows, Capture::Direction::FromEngine, m_dir.filePath(QStringLiteral("engine.pcap")));
}

void EngineTest::simulatorInTheSameWords_data()
{
    QTest::addColumn<QString>("datagrams");
    QTest::addColumn<QString>("value");
    for (const FieldRow &row : rows) {
        if (qstrcmp(row.field, text) == 0)
            QTest::newRow(row.name) << QString::fromLatin1(row.datagrams) << QString::fromUtf8(row.value);
    }
}

void EngineTest::simulatorInTheSameWords()
{
    QFETCH(QString, datagrams);
    simulated::EngineText lines;
    QString line;
    const QStringList each = datagrams.split(QLatin1Char('|'));
    for (const QString &datagram : each)
        line = lines.take(testsupport::datagram(datagram.toLatin1()));
    QTEST(line, "value");
}

void EngineTest::padsAsTheModuleReadsThem()
{
    ConnectedModule connected;
    QVERIFY(connected.connected);
    QSignalSpy strikes(&connected.module, &QConnectQmlPlugin::noteChanged);
    QSignalSpy chokes(&connected.module, &QConnectQmlPlugin::afterTouchNoteChanged);
    const QString path = m_dir.filePath(QStringLiteral("pads.pcap"));
    Capture capture(path);
    QStringList expected;
    for (int note = 0; note < 256; ++note) {
        const QByteArray strike = QByteArray("IMAC\x99\x09\x64", 7) + char(note);
        const QByteArray choke = QByteArray("IMAC\xA9\x0A\x64", 7) + char(note);
        strikes.clear();
        chokes.clear();
        QVERIFY(connected.deliver({strike, choke}));
        const uint read = connected.module.property("note").toUInt();
        const uint held = connected.module.property("afterTouchNote").toUInt();
        expected += strikes.isEmpty()
                        ? QString()
                        : QStringLiteral("pad %1 zone %2").arg(read >> 16 & 0xFF).arg(read >> 24);
        expected += chokes.isEmpty() ? QString() : QStringLiteral("pad %1 zone ").arg(held >> 16 & 0xFF);
        capture.append(Capture::Direction::FromEngine, strike);
        capture.append(Capture::Direction::FromEngine, choke);
    }
    QVERIFY(capture.finish());
    const QString pad = QStringLiteral("zelta.pad.number");
    const QString zone = QStringLiteral("zelta.pad.zone");
    const Dissection dissection(path, {pad, zone});
    QCOMPARE(dissection.problem(), QString());
    QStringList shown;
    for (const Dissection::Frame &frame : dissection.frames()) {
        shown += frame.value(pad).isEmpty()
                     ? QString()
                     : QStringLiteral("pad %1 zone %2").arg(frame.value(pad), frame.value(zone));
    }
    QCOMPARE(shown, expected);
    QCOMPARE(expected.filter(QStringLiteral("pad")).size(), 39 + 27);
}

QTEST_MAIN(EngineTest)
#include "tst_engine.moc"
