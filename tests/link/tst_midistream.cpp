// Test commands and SysEx messages in the engine's MIDI stream: one event per datagram, with the bytes of
// each pair swapped. The tables contain the events as they are sent, and the complete list of signals that
// QML receives.

#include "link/sockettransceiver.h"
#include "support/connectedmodule.h"
#include "support/datagram.h"
#include "support/logcatcher.h"
#include "support/texts.h"

#include <QTest>

using namespace testsupport;

namespace {

// The datagram of a MIDI event: tags "IM" and "AC", then the event as it is sent.
QByteArray midi(const QString &event)
{
    return datagram("IM AC") + QByteArray::fromHex(event.toLatin1());
}

QList<QByteArray> stream(const QStringList &events)
{
    QList<QByteArray> datagrams;
    for (const QString &event : events)
        datagrams += midi(event);
    return datagrams;
}

// The signals of test commands and SysEx messages, without the pad signals that the same events cause.
QStringList messages(const SignalRecorder &recorder)
{
    QStringList result;
    const QStringList all = recorder.texts();
    for (const QString &text : all) {
        if (text.startsWith(QLatin1String("testCommand(")) || text.startsWith(QLatin1String("sysEx(")))
            result += text;
    }
    return result;
}

} // namespace

class MidiStreamTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void sysExContent_data();
    void sysExContent();
    void testCommands_data();
    void testCommands();
    void sysEx_data();
    void sysEx();
    void oneByOne_data() { sysEx_data(); }
    void oneByOne();
    void otherDatagramsBetweenParts_data();
    void otherDatagramsBetweenParts();
    void longMessage();
    void endlessMessage();
    void otherStatusAndCodeIndex();
    void orderAmongSignals();
    void stateIsPerModule();
};

void MidiStreamTest::sysExContent_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QString>("content");

    QTest::newRow("whole event") << "f0044110"
                                 << "04f01041";
    QTest::newRow("another") << "01234567"
                             << "23016745";
    QTest::newRow("too short") << "f00441"
                               << "";
    QTest::newRow("one short") << "f004411"
                               << "";
    QTest::newRow("too long") << "f00441100"
                              << "";
    QTest::newRow("empty") << ""
                           << "";
}

void MidiStreamTest::sysExContent()
{
    QFETCH(QString, event);
    QFETCH(QString, content);

    QCOMPARE(SocketTransceiver::getSysExContent(event), content);
}

void MidiStreamTest::testCommands_data()
{
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("expected");

    const QString msb = QStringLiteral("b90b1263");
    const QString lsb = QStringLiteral("b90b3462");
    const QString value = QStringLiteral("b90b5606");
    const QString later = QStringLiteral("b90b7806");

    QTest::newRow("nothing") << QStringList() << QStringList();
    QTest::newRow("usual order") << QStringList{msb, lsb, value}
                                 << texts({"testCommand(\"12\", \"34\", \"56\")"});
    QTest::newRow("msb and lsb swapped")
        << QStringList{lsb, msb, value} << texts({"testCommand(\"12\", \"34\", \"56\")"});
    QTest::newRow("value before lsb") << QStringList{msb, value, lsb} << QStringList();
    QTest::newRow("value before msb") << QStringList{lsb, value, msb} << QStringList();
    QTest::newRow("value first") << QStringList{value, msb, lsb} << QStringList();
    QTest::newRow("value first, lsb before msb") << QStringList{value, lsb, msb} << QStringList();
    QTest::newRow("value first, then a later one")
        << QStringList{value, msb, lsb, later} << texts({"testCommand(\"12\", \"34\", \"78\")"});
    QTest::newRow("value in the middle, then a later one")
        << QStringList{msb, value, lsb, later} << texts({"testCommand(\"12\", \"34\", \"78\")"});
    QTest::newRow("lone value") << QStringList{value} << QStringList();
    QTest::newRow("lone value after a command")
        << QStringList{msb, lsb, value, later} << texts({"testCommand(\"12\", \"34\", \"56\")"});
    QTest::newRow("a lone value and two more parts make a command")
        << QStringList{msb, lsb, value, later, QStringLiteral("b90b0163"), QStringLiteral("b90b0206")}
        << texts({"testCommand(\"12\", \"34\", \"56\")", "testCommand(\"01\", \"34\", \"02\")"});
    QTest::newRow("three parts without a value, then one")
        << QStringList{msb,
                       lsb,
                       value,
                       later,
                       QStringLiteral("b90b0163"),
                       QStringLiteral("b90b0262"),
                       QStringLiteral("b90b0306")}
        << texts({"testCommand(\"12\", \"34\", \"56\")", "testCommand(\"01\", \"02\", \"03\")"});
    QTest::newRow("counter restarts after each command")
        << QStringList{msb,
                       lsb,
                       value,
                       QStringLiteral("b90b0163"),
                       QStringLiteral("b90b0206"),
                       QStringLiteral("b90b0306")}
        << texts({"testCommand(\"12\", \"34\", \"56\")", "testCommand(\"01\", \"34\", \"03\")"});
    QTest::newRow("two commands in a row")
        << QStringList{msb,
                       lsb,
                       value,
                       QStringLiteral("b90b0163"),
                       QStringLiteral("b90b0262"),
                       QStringLiteral("b90b0306")}
        << texts({"testCommand(\"12\", \"34\", \"56\")", "testCommand(\"01\", \"02\", \"03\")"});
    QTest::newRow("values alone") << texts({"b90b0106", "b90b0206", "b90b0306"})
                                  << texts({"testCommand(\"\", \"\", \"03\")"});
    QTest::newRow("no lsb") << QStringList{msb, QStringLiteral("b90b1363"), value}
                            << texts({"testCommand(\"13\", \"\", \"56\")"});
    QTest::newRow("no msb") << QStringList{lsb, QStringLiteral("b90b3562"), value}
                            << texts({"testCommand(\"\", \"35\", \"56\")"});
    QTest::newRow("the last msb counts")
        << QStringList{msb, QStringLiteral("b90b1363"), QStringLiteral("b90b1463"), lsb, value}
        << texts({"testCommand(\"14\", \"34\", \"56\")"});
    QTest::newRow("other controllers do not count")
        << QStringList{msb, QStringLiteral("b90b0126"), QStringLiteral("b90b0207"),
                       QStringLiteral("b90b0364"), value}
        << QStringList();
    QTest::newRow("other controllers between parts are ignored")
        << QStringList{msb, QStringLiteral("b90b0126"), lsb, QStringLiteral("b90b0207"), value}
        << texts({"testCommand(\"12\", \"34\", \"56\")"});
    QTest::newRow("other channel") << texts({"b80b1263", "b80b3462", "b80b5606"}) << QStringList();
    QTest::newRow("other code index") << texts({"b90a1263", "b90a3462", "b90a5606"}) << QStringList();
    QTest::newRow("bytes in MIDI order") << texts({"0bb96312", "0bb96234", "0bb90656"}) << QStringList();
    QTest::newRow("highest data") << texts({"b90bff63", "b90b8062", "b90b7f06"})
                                  << texts({"testCommand(\"ff\", \"80\", \"7f\")"});
}

void MidiStreamTest::testCommands()
{
    QFETCH(QStringList, events);
    QFETCH(QStringList, expected);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QVERIFY(engine.deliver(stream(events)));
    QCOMPARE(messages(engine.recorder), expected);
    QCOMPARE(log.lines().size(), 0);
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

void MidiStreamTest::sysEx_data()
{
    QTest::addColumn<QStringList>("events");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("three events") << texts({"f0044110", "10044212", "f7050000"})
                                  << texts({"sysEx(\"04f010410410124205f70000\")"});
    QTest::newRow("lone end") << texts({"f7050000"}) << texts({"sysEx(\"05f70000\")"});
    QTest::newRow("lone end in the second byte") << texts({"10f70000"}) << texts({"sysEx(\"f7100000\")"});
    QTest::newRow("lone end in the third byte") << texts({"1007f742"}) << texts({"sysEx(\"071042f7\")"});
    QTest::newRow("lone end in the fourth byte") << texts({"100742f7"}) << texts({"sysEx(\"0710f742\")"});
    QTest::newRow("end across the first bytes")
        << texts({"f0044110", "0f700000"}) << texts({"sysEx(\"04f01041700f0000\")"});
    QTest::newRow("end across the middle bytes")
        << texts({"f0044110", "000f7000"}) << texts({"sysEx(\"04f010410f000070\")"});
    QTest::newRow("end across the last bytes")
        << texts({"f0044110", "00000f70"}) << texts({"sysEx(\"04f010410000700f\")"});
    QTest::newRow("end across bytes, idle") << texts({"0f700000"}) << texts({"sysEx(\"700f0000\")"});
    QTest::newRow("a strike whose bytes read as an end")
        << texts({"99097f7f"}) << texts({"sysEx(\"09997f7f\")"});
    QTest::newRow("value f7 of a test command") << texts({"b90bf706"}) << texts({"sysEx(\"0bb906f7\")"});
    QTest::newRow("start while gathering")
        << texts({"f0044110", "f0041111", "f7050000"}) << texts({"sysEx(\"04f0104104f0111105f70000\")"});
    QTest::newRow("start that holds an end") << texts({"f007f741"}) << QStringList();
    QTest::newRow("start that holds an end, then an end")
        << texts({"f007f741", "f7050000"}) << texts({"sysEx(\"07f041f705f70000\")"});
    QTest::newRow("no end") << texts({"f0044110", "10044212"}) << QStringList();
    QTest::newRow("middle without a start") << texts({"10044212", "10044212"}) << QStringList();
    QTest::newRow("two messages") << texts({"f0044110", "f7050000", "f0044210", "f7050000"})
                                  << texts({"sysEx(\"04f0104105f70000\")", "sysEx(\"04f0104205f70000\")"});
    QTest::newRow("two ends") << texts({"f0044110", "f7050000", "f7060100"})
                              << texts({"sysEx(\"04f0104105f70000\")", "sysEx(\"06f70001\")"});
    QTest::newRow("test command inside")
        << texts({"f0044110", "b90b1263", "b90b3462", "b90b5606", "f7050000"})
        << texts({"sysEx(\"04f010410bb963120bb962340bb9065605f70000\")"});
    QTest::newRow("parts inside a message do not count")
        << texts({"b90b1263", "f0044110", "b90b3462", "f7050000", "b90b5606"})
        << texts({"sysEx(\"04f010410bb9623405f70000\")"});
    QTest::newRow("parts around a message count")
        << texts({"b90b1263", "b90b3462", "f0044110", "f7050000", "b90b5606"})
        << texts({"sysEx(\"04f0104105f70000\")", "testCommand(\"12\", \"34\", \"56\")"});
    QTest::newRow("strike inside") << texts({"f0044110", "99095026", "f7050000"})
                                   << texts({"sysEx(\"04f010410999265005f70000\")"});
}

void MidiStreamTest::sysEx()
{
    QFETCH(QStringList, events);
    QFETCH(QStringList, expected);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    QVERIFY(engine.deliver(stream(events)));
    QCOMPARE(messages(engine.recorder), expected);
    QCOMPARE(log.lines().size(), 0);
    QVERIFY(engine.peer.nothingSentBy(&engine.module));
}

// The same streams. Each event is handled before the next one is sent.
void MidiStreamTest::oneByOne()
{
    QFETCH(QStringList, events);
    QFETCH(QStringList, expected);

    ConnectedModule engine;
    QVERIFY(engine.connected);
    for (const QString &event : qAsConst(events))
        QVERIFY(engine.deliver({midi(event)}));
    QCOMPARE(messages(engine.recorder), expected);
}

void MidiStreamTest::otherDatagramsBetweenParts_data()
{
    QTest::addColumn<QByteArray>("other");

    QTest::newRow("acknowledgement") << datagram("AB AC 00010002");
    QTest::newRow("switch that reads as an end") << datagram("SW AC f7050000");
    QTest::newRow("tempo that reads as a part") << datagram("TM AC b90b0063");
    QTest::newRow("wrong tag") << datagram("IM AD f7050000");
    QTest::newRow("compressor meters") << datagram("CR 0000 f7f7 f7f7 f7f7 f7f7 f7f7 f7f7");
    QTest::newRow("output meters") << datagram("DR") + QByteArray(36, '\xF7');
    QTest::newRow("event cut short") << datagram("IM AC f70500");
    QTest::newRow("event with one byte more") << datagram("IM AC f7050000 00");
    QTest::newRow("two events in one datagram") << datagram("IM AC f7050000 f7050000");
    QTest::newRow("empty") << QByteArray("");
}

// A message and a command of three parts each. The other datagram is inserted at each position, then at all
// positions.
void MidiStreamTest::otherDatagramsBetweenParts()
{
    QFETCH(QByteArray, other);

    const QList<QByteArray> parts =
        stream(texts({"f0044110", "10044212", "f7050000", "b90b1263", "b90b3462", "b90b5606"}));
    const QStringList expected =
        texts({"sysEx(\"04f010410410124205f70000\")", "testCommand(\"12\", \"34\", \"56\")"});
    ConnectedModule engine;
    QVERIFY(engine.connected);
    const LogCatcher log;
    for (int position = 0; position <= parts.size(); ++position) {
        QList<QByteArray> datagrams = parts;
        datagrams.insert(position, other);
        engine.recorder.clear();
        QVERIFY(engine.deliver(datagrams));
        QCOMPARE(messages(engine.recorder), expected);
    }
    QList<QByteArray> datagrams;
    for (const QByteArray &part : parts) {
        datagrams += part;
        datagrams += other;
    }
    engine.recorder.clear();
    QVERIFY(engine.deliver(datagrams));
    QCOMPARE(messages(engine.recorder), expected);
    QCOMPARE(log.warnings(), QStringList());
}

void MidiStreamTest::longMessage()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    QStringList events{QStringLiteral("f0044110")};
    QString expected = QStringLiteral("04f01041");
    for (int i = 0; i < 500; ++i) {
        events += QStringLiteral("10044212");
        expected += QStringLiteral("04101242");
    }
    events += QStringLiteral("f7050000");
    expected += QStringLiteral("05f70000");
    QVERIFY(engine.deliver(stream(events)));
    QCOMPARE(messages(engine.recorder), QStringList{QStringLiteral("sysEx(\"%1\")").arg(expected)});
}

// At four megabytes the message is dropped with a warning, and decoding continues.
void MidiStreamTest::endlessMessage()
{
    const LogCatcher log;
    SocketTransceiver link;
    const SignalRecorder recorder(&link);
    const QString status = QStringLiteral("b9");
    const QString codeIndex = QStringLiteral("0b");
    link.parseDatagram(QStringLiteral("494d4143f0044110"), status, codeIndex);
    // Code index 4: three more bytes of a message, not its end.
    const QString part = QStringLiteral("494d414301040302");
    constexpr int limit = 4 * 1024 * 1024;
    for (int bytes = 4; bytes < limit; bytes += 4)
        link.parseDatagram(part, status, codeIndex);
    QCOMPARE(log.warnings(), QStringList());
    link.parseDatagram(part, status, codeIndex);
    QCOMPARE(log.warnings(), texts({"SysEx message without end dropped after 4194304 bytes"}));
    QCOMPARE(recorder.texts(), QStringList());
    link.parseDatagram(QStringLiteral("494d4143f7050000"), status, codeIndex);
    QCOMPARE(recorder.texts(), texts({"receivedSysEx(\"0401020305f70000\")"}));
}

// The caller chooses the status byte and the code index of a test command.
void MidiStreamTest::otherStatusAndCodeIndex()
{
    SocketTransceiver link;
    const SignalRecorder recorder(&link);
    const auto parse = [&link](const QStringList &events) {
        for (const QString &event : events)
            link.parseDatagram(QStringLiteral("494d4143") + event, QStringLiteral("b3"),
                               QStringLiteral("1b"));
    };
    parse(texts({"b90b1263", "b90b3462", "b90b5606"}));
    parse(texts({"b30b1263", "b30b3462", "b30b5606"}));
    QCOMPARE(recorder.texts(), QStringList());
    parse(texts({"b31b1263", "b31b3462", "b31b5606"}));
    QCOMPARE(recorder.texts(), texts({"receivedTestCommand(\"12\", \"34\", \"56\")"}));
}

// The stream is decoded before the event is dispatched by its kind.
void MidiStreamTest::orderAmongSignals()
{
    ConnectedModule engine;
    QVERIFY(engine.connected);
    QVERIFY(engine.deliver(stream(texts({"b90b1263", "b90b3462", "b90b5606", "f7050000"}))));
    QCOMPARE(engine.recorder.texts(),
             texts({"positionChanged()", "notePacketArrived(18765, 47371, 4707)", "positionChanged()",
                    "notePacketArrived(18765, 47371, 13410)", "testCommand(\"12\", \"34\", \"56\")",
                    "positionChanged()", "notePacketArrived(18765, 47371, 22022)", "sysEx(\"05f70000\")",
                    "notePacketArrived(18765, 63237, 0)"}));
}

void MidiStreamTest::stateIsPerModule()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    QConnectQmlPlugin first;
    QVERIFY(peer.connectTo(&first));
    const quint16 firstPort = peer.modulePort();
    QConnectQmlPlugin second;
    QVERIFY(peer.connectTo(&second));
    QVERIFY(peer.modulePort() != firstPort);

    SignalRecorder firstRecorder(&first);
    SignalRecorder secondRecorder(&second);
    // The first module is in the middle of a message, the second is not.
    QVERIFY(peer.sendTo(midi(QStringLiteral("f0044110")), peer.moduleAddress(), firstPort));
    const auto parts = stream(texts({"b90b1263", "b90b3462", "b90b5606"}));
    for (const QByteArray &part : parts)
        QVERIFY(peer.send(part));
    QVERIFY(peer.settle(&second));
    QCOMPARE(messages(secondRecorder), texts({"testCommand(\"12\", \"34\", \"56\")"}));
    QVERIFY(peer.connectTo(&first));
    QCOMPARE(peer.modulePort(), firstPort);
    QVERIFY(peer.settle(&first));
    QCOMPARE(messages(firstRecorder), QStringList());
}

QTEST_MAIN(MidiStreamTest)
#include "tst_midistream.moc"
