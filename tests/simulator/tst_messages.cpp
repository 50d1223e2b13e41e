// All messages except parameters, and all protocol violations.
#include "peer.h"

#include <QSignalSpy>

class MessagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void describes_data();
    void describes();
    void keepsWhatItIsSent();
    void countsViolations_data();
    void countsViolations();
    void survivesAnything();
    void keepsNoMoreThanAThousandViolations();
};

void MessagesTest::describes_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("line");
    const auto row = [](const char *name, const char *bytes, const char *line) {
        QTest::newRow(name) << datagram(bytes) << QString::fromLatin1(line);
    };
    row("drum kit volume", "IM 0001 0BB90764", "drum kit volume 100");
    row("other controller", "IM 0001 0BB90105", "controller 1 value 5");
    row("note on", "IM 0001 09993C7F", "note on 60 velocity 127");
    row("note off", "IM 0001 08893C00", "note off 60");
    row("program change", "IM 0001 0CC90500", "program change 5");
    row("power off", "PW 0002 0BB9634F 0BB96246", "power off");
    row("LED on", "LD 0003 0001", "LED 3 on");
    row("LED off", "LD 0102 0000", "LED 258 off");
    row("trigger curve", "TC 0102 0000 0010 0020 0030 0040 0050 0060 0070 007F",
        "trigger curve 258: 0 16 32 48 64 80 96 112 127");
    row("bluetooth name", "BN 4B6974 0000000000000000000000000000000000000000000000000000000000",
        "bluetooth name \"Kit\"");
    row("longest bluetooth name", "BN AB 434445464748494A4B4C4D4E4F505152535455565758595A303132333435",
        "bluetooth name \"ABCDEFGHIJKLMNOPQRSTUVWXYZ012345\"");
    row("name with control characters",
        "BN 411B42 0000000000000000000000000000000000000000000000000000000000", "bluetooth name \"A?B\"");
    row("empty SysEx", "IM 0001 05F0F700", "sysex F0 F7");
    row("SysEx of one value", "IM 0001 06F001F7", "sysex F0 01 F7");
    row("SysEx of two values", "IM 0002 07F00102 05F70000", "sysex F0 01 02 F7");
    row("SysEx of three values", "IM 0002 04F00102 0603F700", "sysex F0 01 02 03 F7");
    row("SysEx of four values", "IM 0002 04F07E7F 070601F7", "sysex F0 7E 7F 06 01 F7");
    row("SysEx of five values", "IM 0003 04F00102 04030405 05F70000", "sysex F0 01 02 03 04 05 F7");
    row("SysEx ending in zeros", "IM 0002 04F00100 070000F7", "sysex F0 01 00 00 00 F7");
    row("query VN", "VN 0000", "query VN: sound engine version");
    row("query TV", "TV 0000", "query TV: trigger board version");
    row("query SN", "SN 0000", "query SN: sound bank version");
    row("query TN", "TN 0000", "query TN: trigger bank version");
    row("query HL", "HL 0000", "query HL: hi-hat raw value");
    row("start of a sound bank", "DS SB 00000401", "transfer start SB, 1025 bytes");
    row("start of an import", "DS IW 00000010 0007 6B69636B2E77617600",
        "transfer start IW, 16 bytes, slot 7, name \"kick.wav\"");
    row("start of a bluetooth file", "DS BF 00000010 4950", "transfer start BF, 16 bytes, slot 18768");
}

void MessagesTest::describes()
{
    QFETCH(QByteArray, datagram);
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QSignalSpy lines(&engine, &SoundEngine::messageReceived);
    QSignalSpy values(&engine, &SoundEngine::parameterReceived);
    QVERIFY(peer.send(datagram));
    QTEST(lines.value(0).value(0).toString(), "line");
    QCOMPARE(lines.size(), 1);
    QCOMPARE(values.size(), 0);
    QCOMPARE(engine.violations(), QStringList());
    QCOMPARE(engine.counters().otherMessages, quint64(1));
}

void MessagesTest::keepsWhatItIsSent()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QCOMPARE(engine.controller(7), -1);
    QCOMPARE(engine.program(), -1);
    QCOMPARE(engine.led(3), -1);
    QVERIFY(!engine.isPoweredOff());
    QVERIFY(peer.send("IM 0001 0BB90764"));
    QVERIFY(peer.send("IM 0001 0CC90500"));
    QVERIFY(peer.send("LD 0003 0001"));
    QVERIFY(peer.send("LD 0004 0000"));
    QVERIFY(peer.send("PW 0002 0BB9634F 0BB96246"));
    QVERIFY(peer.send("BN 4B6974 0000000000000000000000000000000000000000000000000000000000"));
    QVERIFY(peer.send("TC 0102 0000 0010 0020 0030 0040 0050 0060 0070 007F"));
    QCOMPARE(engine.controller(7), 100);
    QCOMPARE(engine.program(), 5);
    QCOMPARE(engine.led(3), 1);
    QCOMPARE(engine.led(4), 0);
    QVERIFY(engine.isPoweredOff());
    QCOMPARE(engine.bluetoothName(), QByteArray("Kit"));
    QCOMPARE(engine.triggerCurve(0x0102), hex("00 10 20 30 40 50 60 70 7F"));
    QCOMPARE(peer.take(), QList<QByteArray>());
}

void MessagesTest::countsViolations_data()
{
    QTest::addColumn<QByteArray>("datagram");
    QTest::addColumn<QString>("violation"); // beginning of the line
    const auto row = [](const char *name, const char *bytes, const char *violation) {
        QTest::newRow(name) << datagram(bytes) << QString::fromLatin1(violation);
    };
    row("empty", "", "datagram of 0 bytes");
    row("one byte", "49", "datagram of 1 bytes");
    row("unknown header", "XX 0001 0BB90764", "unknown header XX");
    row("unprintable header", "0102", "unknown header 0x0102");
    row("tag in little-endian", "DL 0003 0001", "unknown header DL");
    row("event bytes swapped", "IM AC B90B0764", "header counts 16707 events");
    row("short header", "IM 00", "length 3 is not a whole number of events");
    row("cut event", "IM 0003 0BB96338 0BB96207 0BB906", "length 15 is not a whole number of events");
    row("count too high", "IM 0004 0BB96338 0BB96207 0BB90664", "header counts 4 events, datagram holds 3");
    row("count too low", "IM 0002 0BB96338 0BB96207 0BB90664", "header counts 2 events, datagram holds 3");
    row("no event", "IM 0000", "no event");
    row("two events", "IM 0002 0BB96338 0BB96207", "2 events in one packet");
    row("low number first", "IM 0003 0BB96207 0BB96338 0BB90664", "controller 98 instead of controller 99");
    row("value first", "IM 0003 0BB90664 0BB96338 0BB96207", "controller 6 instead of controller 99");
    row("low value last", "IM 0004 0BB96337 0BB96264 0BB90632 0BB92600",
        "controller 6 instead of controller 38");
    row("status of channel 1", "IM 0003 0BB06338 0BB06207 0BB00664", "status 0xb0, not 0xb9 on channel 10");
    row("one status wrong", "IM 0003 0BB96338 0BB06207 0BB90664", "status 0xb0, not 0xb9 on channel 10");
    row("code index wrong", "IM 0003 0BB96338 0BB96207 09B90664", "code index 0x09 instead of 0x0b");
    row("note on with channel 1", "IM 0001 09903C7F", "status 0x90, not 0x99 on channel 10");
    row("note off with note-on status", "IM 0001 08993C00", "status 0x99, not 0x89 on channel 10");
    row("unknown code index", "IM 0001 0EE90000", "unknown code index 0x0e");
    row("tempo without second byte", "IM 0003 0BB96337 0BB96264 0BB90632", "metronome tempo has 1 value");
    row("level with second byte", "IM 0004 0BB96338 0BB96207 0BB92600 0BB90664",
        "mixer master out level has 2 value");
    row("SysEx without end", "IM 0001 04F00102", "SysEx stream without its end");
    row("SysEx code index by the class rule", "IM 0002 04F00102 05F70000",
        "SysEx event 0 has code index 0x04");
    row("SysEx with an event too many", "IM 0002 05F0F700 00000000", "SysEx stream without its end");
    row("power off with value", "PW 0003 0BB9634F 0BB96246 0BB90600", "power-off without its two events");
    row("power off of another number", "PW 0002 0BB9634F 0BB96247", "power-off without its two events");
    row("LED record too short", "LD 0003 00", "LED record of 5 bytes");
    row("LED state", "LD 0003 0100", "LED state 256");
    row("curve too short", "TC 0102 0000 0010 0020 0030 0040 0050 0060 0070", "trigger curve of 20 bytes");
    row("curve with high byte", "TC 0102 0000 0110 0020 0030 0040 0050 0060 0070 007F",
        "curve point 1 has a high");
    row("name too short", "BN 4B6974", "bluetooth name of 5 bytes");
    row("name with rest", "BN 4B6974 0000000000000000000000000000000000000000000000000000000041",
        "bluetooth name is followed by more than zeros");
    row("query too long", "VN 000000", "query of 5 bytes");
    row("query with second word", "VN 0001", "query with second word 1");
    row("start too short", "DS SB 000004", "transfer packet of 7 bytes");
    row("start of sound bank with slot", "DS SB 00000401 0001", "SB start packet of 10 bytes");
    row("start of bluetooth file with name", "DS BF 00000401 0001 00", "BF start packet of 11 bytes");
    row("start with unknown content", "DS XX 00000401", "transfer of unknown content XX");
    row("name without closing zero", "DS IW 00000010 0007 6B",
        "name of a start packet without exactly one closing");
    row("name with two zeros", "DS IW 00000010 0007 6B0000",
        "name of a start packet without exactly one closing");
    row("data cut off", "DC SB 00000000 00", "data packet of 9 bytes");
    row("data length in bytes", "DC SB 00000000 0002 0102",
        "data packet 0 announces 2 words and holds 2 bytes");
    row("odd data", "DC SB 00000000 0001 010203", "data packet 0 announces 1 words and holds 3 bytes");
    row("data without start", "DC SB 00000000 0001 0102", "data packet 0 without a start packet");
    row("end without start", "DE SB 00000000", "SB end packet without its start");
    row("end too long", "DE SB 00000000 00", "end packet of 9 bytes");
}

void MessagesTest::countsViolations()
{
    QFETCH(QByteArray, datagram);
    QFETCH(QString, violation);
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    QSignalSpy violated(&engine, &SoundEngine::violated);
    QVERIFY(peer.send(datagram));
    QCOMPARE(engine.violations().size(), 1);
    QCOMPARE(engine.violations().at(0).left(violation.size()), violation);
    QCOMPARE(violated.size(), 1);
    QCOMPARE(engine.counters().violations, quint64(1));
    engine.clearViolations();
    QVERIFY(engine.violations().isEmpty());
}

void MessagesTest::survivesAnything()
{
    // Valid datagrams, shortened to every length and with one byte changed.
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    const QList<QByteArray> good = {datagram("IM 0004 0BB96337 0BB9620F 0BB92605 0BB90602"),
                                    datagram("IM 0002 04F07E7F 070601F7"),
                                    datagram("PW 0002 0BB9634F 0BB96246"),
                                    datagram("DS IW 00000010 0007 6B69636B2E77617600"),
                                    datagram("DC SB 00000000 0001 0102"),
                                    datagram("DE SB 00000000")};
    quint64 sent = 0;
    for (const QByteArray &datagram : good) {
        for (int length = 0; length <= datagram.size(); ++length) {
            for (int bent = 0; bent <= length; ++bent) {
                QByteArray bytes = datagram.left(length);
                if (bent < length)
                    bytes[bent] = char(~bytes.at(bent));
                QVERIFY(peer.send(bytes));
                ++sent;
            }
        }
    }
    QCOMPARE(engine.counters().datagrams, sent);
    QVERIFY(peer.send(QByteArray(65000, '\xFF')));
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(engine.parameter(0x38, 0x07), 100);
}

void MessagesTest::keepsNoMoreThanAThousandViolations()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    Peer peer(&engine);
    for (int i = 0; i < 1005; ++i)
        QVERIFY(peer.send("0102"));
    QCOMPARE(engine.violations().size(), 1000);
    QCOMPARE(engine.counters().violations, quint64(1005));
}

QTEST_GUILESS_MAIN(MessagesTest)
#include "tst_messages.moc"
