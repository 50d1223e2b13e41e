// Raw MIDI bytes into messages.
#include "support/hex.h"
#include "support/noise.h"

#include "simulator/midiparser.h"

#include <QTest>

using simulated::MidiMessage;
using simulated::MidiParser;
using testsupport::hex;
using testsupport::noise;

class MidiParserTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void parses_data();
    void parses();
    void parsesByteByByte_data() { parses_data(); }
    void parsesByteByByte();
    void resets();
    void survivesAnything();

private:
    static QString textOf(const QVector<MidiMessage> &messages);
};

QString MidiParserTest::textOf(const QVector<MidiMessage> &messages)
{
    static const char *const names[] = {"off", "on", "poly", "control", "program", "pressure", "bend"};
    QStringList texts;
    for (const MidiMessage &m : messages) {
        texts.append(QStringLiteral("%1 %2 %3 %4")
                         .arg(QLatin1String(names[int(m.kind)]))
                         .arg(m.channel)
                         .arg(m.data1)
                         .arg(m.data2));
    }
    return texts.join(QStringLiteral(", "));
}

void MidiParserTest::parses_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("messages");
    const auto row = [](const char *name, const char *bytes, const char *messages) {
        QTest::newRow(name) << hex(bytes) << QString::fromLatin1(messages);
    };
    row("nothing", "", "");
    row("note off", "89 26 40", "off 9 38 64");
    row("note on", "99 26 64", "on 9 38 100");
    row("note on with velocity 0", "99 26 00", "on 9 38 0");
    row("poly pressure", "A9 31 7F", "poly 9 49 127");
    row("controller", "B9 04 40", "control 9 4 64");
    row("program change", "C9 05", "program 9 5 0");
    row("channel pressure", "D9 05", "pressure 9 5 0");
    row("pitch bend", "E9 00 40", "bend 9 0 64");
    row("first channel", "90 26 64", "on 0 38 100");
    row("last channel", "9F 7F 7F", "on 15 127 127");

    row("running status", "99 26 64 28 50 24 01", "on 9 38 100, on 9 40 80, on 9 36 1");
    row("running status of one data byte", "C9 05 06 07", "program 9 5 0, program 9 6 0, program 9 7 0");
    row("another status", "99 26 64 B9 04 40 05 41", "on 9 38 100, control 9 4 64, control 9 5 65");
    row("real time within a message", "99 F8 26 FE 64", "on 9 38 100");
    row("real time within running status", "99 26 64 F8 28 FA 50 FF", "on 9 38 100, on 9 40 80");
    row("every real-time byte", "F8 F9 FA FB FC FD FE FF 99 26 64", "on 9 38 100");

    row("SysEx", "F0 7E 7F 06 01 F7 99 26 64", "on 9 38 100");
    row("SysEx ends running status", "99 26 64 F0 01 02 F7 28 50", "on 9 38 100");
    row("real time within SysEx", "F0 7E F8 7F F7 99 26 64", "on 9 38 100");
    row("SysEx cut short by a note", "F0 7E 7F 99 26 64", "on 9 38 100");
    row("SysEx without end", "F0 01 02 03 04 05 06", "");
    row("end of SysEx alone", "F7 26 64 99 26 64", "on 9 38 100");
    row("system messages with data", "F1 26 F2 26 64 F3 05 99 26 64", "on 9 38 100");
    row("system messages end running status", "99 26 64 F6 28 50", "on 9 38 100");
    row("undefined system messages", "F4 26 F5 64 99 26 64", "on 9 38 100");

    row("data without a status", "26 64 28 50", "");
    row("data before the first status", "26 64 99 26 64", "on 9 38 100");
    row("cut short by another status", "99 26 99 28 50", "on 9 40 80");
    row("cut short at the end", "99 26 64 99 28", "on 9 38 100");
    row("cut short in running status", "99 26 64 28 B9 04 40", "on 9 38 100, control 9 4 64");
}

void MidiParserTest::parses()
{
    QFETCH(QByteArray, bytes);
    MidiParser parser;
    QTEST(textOf(parser.take(bytes)), "messages");
}

void MidiParserTest::parsesByteByByte()
{
    QFETCH(QByteArray, bytes);
    MidiParser parser;
    QVector<MidiMessage> messages;
    for (const char byte : bytes)
        messages += parser.take(QByteArray(1, byte));
    QTEST(textOf(messages), "messages");
}

void MidiParserTest::resets()
{
    MidiParser parser;
    QVERIFY(parser.take(hex("99 26")).isEmpty());
    parser.reset();
    QVERIFY(parser.take(hex("64 28 50")).isEmpty());
    QCOMPARE(textOf(parser.take(hex("99 26 64"))), QStringLiteral("on 9 38 100"));
}

void MidiParserTest::survivesAnything()
{
    MidiParser parser;
    const auto messages = parser.take(noise(1000000));
    QVERIFY(messages.size() > 1000);
    for (const MidiMessage &message : messages) {
        QVERIFY(message.data1 < 128 && message.data2 < 128);
        QVERIFY(message.channel >= 0 && message.channel < 16);
    }
}

QTEST_APPLESS_MAIN(MidiParserTest)
#include "tst_midiparser.moc"
