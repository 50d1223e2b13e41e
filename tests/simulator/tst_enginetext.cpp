// The engine's datagrams as text.
#include "support/datagram.h"
#include "support/noise.h"

#include "simulator/enginetext.h"

#include <QTest>

using simulated::EngineText;
using testsupport::datagram;
using testsupport::noise;

class EngineTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describes_data();
    void describes();
    void gathersOverEvents_data();
    void gathersOverEvents();
    void describesAnything();
};

void EngineTextTest::describes_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *bytes, const char *line) {
        QTest::newRow(name) << datagram(bytes) << QString::fromLatin1(line);
    };
    row("strike", "IM AC 9909 6426", "pad 1 snare zone 0 velocity 100");
    row("strike on the rim", "IM AC 9909 0128", "pad 1 snare-rim zone 1 velocity 1");
    row("strike on the bell", "IM AC 9909 7F35", "pad 6 ride-bell zone 2 velocity 127");
    row("strike on no pad", "IM AC 9909 643C", "note 60 velocity 100, no pad");
    row("choke", "IM AC A90A 7F31", "pad 8 crash1 pressure 127");
    row("choke of a drum", "IM AC A90A 0A26", "note 38 pressure 10, no pad");
    row("pedal", "IM AC B90B 4004", "controller 4 value 64");
    row("program", "IM AC C90C 0005", "program change 5");
    row("other MIDI event", "IM AC 8908 0026", "MIDI event 89 08 00 26, which the module ignores");
    row("switch", "SW AC 4631 0001", "switch foot1 1");
    row("switch without a name", "SW AC 5A5A FFFF", "switch ZZ 65535");
    row("pot up", "CO AC 0002 0001", "pot 2 +");
    row("pot down", "CO AC 0003 0000", "pot 3 -");
    row("tempo", "TM AC 0078 0000", "tempo 120");
    row("beat", "BT AC 0004 0000", "beat 4");
    row("flash sizes", "FR AC 0001 0002", "flash size 262144, total 131076");
    row("largest flash sizes", "FR AC FFFF FFFF", "flash size 4294836224, total 4294967294");
    row("version", "TV AC 0000 0064", "reply TV: trigger board version 0.100");
    row("hi-hat", "HL AC 0200 0000", "reply HL: hi-hat raw value 512");
    row("slot", "IW AC 0007 0001", "event IW 7 1");
    row("unknown event", "01024143 0001 0002", "event 0x0102 1 2");
    row("packet acknowledged", "DC AC 0005 0100", "transfer packet 65541 acknowledged");
    row("resend", "DC AC 0005 01BE", "transfer resend from packet 65541");
    row("resend, unknown code", "DC AC 0005 0042", "transfer resend from packet 5, unknown code 0x42");
    row("refused", "DC AC 0005 00E0", "transfer refused, code 0xe0");
    row("memory full", "DC AC 0005 00E3", "transfer refused, memory full, code 0xe3");
    row("end acknowledged", "DE AC 0000 0001", "transfer end acknowledged, status 0x0001");
    row("meters of a section", "CR 0002 0007 000E 0015 001C 0023 002A",
        "compressor meters headphone in 7 14 reduction 21 28 out 35 42");
    row("meters of a pad", "CR FFFF 0007 000E 0015 001C 0023 002A",
        "compressor meters pad in 7 14 reduction 21 28 out 35 42");
    row("output meters",
        "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0012",
        "output meters 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 16 17 18");
    row("nothing", "", "unreadable datagram: 0 bytes of no known form");
    row("no event", "IM AD 9909 6426", "unreadable datagram: 8 bytes of no known form");
    row("cut short", "DR 0001", "unreadable datagram: 4 bytes of no known form");
}

void EngineTextTest::describes()
{
    QFETCH(QByteArray, datagram);
    EngineText text;
    QTEST(text.take(datagram), "line");
}

void EngineTextTest::gathersOverEvents_data()
{
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("SysEx") << QList<QByteArray>{datagram("IM AC F004 4110"), datagram("IM AC 1004 4212"),
                                                datagram("IM AC F705 0000")}
                           << QStringList{QStringLiteral("sysex event 1"), QStringLiteral("sysex event 2"),
                                          QStringLiteral("sysex F0 10 41 10 12 42 F7")};
    // The module takes everything within a SysEx message for a part of it.
    QTest::newRow("strike within a SysEx")
        << QList<QByteArray>{datagram("IM AC F004 4110"), datagram("IM AC 9909 6426"),
                             datagram("IM AC F705 0000"), datagram("IM AC 9909 6426")}
        << QStringList{QStringLiteral("sysex event 1"),
                       QStringLiteral("pad 1 snare zone 0 velocity 100, sysex event 2"),
                       QStringLiteral("sysex F0 10 41 99 26 64 F7"),
                       QStringLiteral("pad 1 snare zone 0 velocity 100")};
    QTest::newRow("test command, then a value")
        << QList<QByteArray>{datagram("IM AC B90B 1263"), datagram("IM AC B90B 3462"),
                             datagram("IM AC B90B 5606"), datagram("IM AC B90B 7806")}
        << QStringList{QStringLiteral("controller 99 value 18"), QStringLiteral("controller 98 value 52"),
                       QStringLiteral("test command 12 34 56"), QStringLiteral("controller 6 value 120")};
    // The module counts all three controllers, in any order.
    QTest::newRow("values before the third controller")
        << QList<QByteArray>{datagram("IM AC B90B 1263"), datagram("IM AC B90B 5606"),
                             datagram("IM AC B90B 3462"), datagram("IM AC B90B 5706")}
        << QStringList{QStringLiteral("controller 99 value 18"), QStringLiteral("controller 6 value 86"),
                       QStringLiteral("controller 98 value 52"), QStringLiteral("test command 12 34 57")};
    QTest::newRow("test command without its low byte")
        << QList<QByteArray>{datagram("IM AC B90B 1263"), datagram("IM AC B90B 1363"),
                             datagram("IM AC B90B 5606")}
        << QStringList{QStringLiteral("controller 99 value 18"), QStringLiteral("controller 99 value 19"),
                       QStringLiteral("test command 13 - 56")};
}

void EngineTextTest::gathersOverEvents()
{
    QFETCH(QList<QByteArray>, datagrams);
    EngineText text;
    QStringList lines;
    for (const QByteArray &datagram : datagrams)
        lines.append(text.take(datagram));
    QTEST(lines, "lines");
}

// The command "send" sends any bytes.
void EngineTextTest::describesAnything()
{
    constexpr int count = 20000;
    constexpr int largest = 40;
    const QByteArray bytes = noise(count * largest);
    EngineText text;
    for (int i = 0; i < count; ++i) {
        const int size = quint8(bytes.at((i + 1) * largest - 1)) % largest;
        const QByteArray any = bytes.mid(i * largest, size);
        const QString line = text.take(i % 2 == 0 ? "IMAC" + any : any);
        QVERIFY(!line.isEmpty());
        QVERIFY(!line.contains(QLatin1Char('\n')));
    }
}

QTEST_APPLESS_MAIN(EngineTextTest)
#include "tst_enginetext.moc"
