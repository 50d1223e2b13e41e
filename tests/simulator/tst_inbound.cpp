// The bytes of every datagram that the engine sends to the module, and the cases in which it sends none.
#include "peer.h"

#include <QElapsedTimer>
#include <QSignalSpy>

#include <functional>

class InboundTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void sends_data();
    void sends();
    void strikesEveryZone();
    void splitsSysEx_data();
    void splitsSysEx();
    void answersQueries_data();
    void answersQueries();
    void answersMeterRequests();
    void answersSlotAndMemoryRequests();
    void answersTheOneThatAsked();
    void saysNothingByItself();
    void reportsTempoOnlyWhenLive();
    void playsTheTempoThatIsPrinted_data();
    void playsTheTempoThatIsPrinted();
    void beatsWithTheMetronomeWhenLive();
    void knowsNoModuleAtFirst();
    void refusesAnAddressThatIsTaken();

private:
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
};

using Act = std::function<bool(SoundEngine &)>;
Q_DECLARE_METATYPE(Act)

void InboundTest::init()
{
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
    m_engine->setModule(QHostAddress(QHostAddress::LocalHost), m_peer->port());
}

void InboundTest::cleanup()
{
    m_peer.reset();
    m_engine.reset();
}

void InboundTest::sends_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QByteArray>("datagram");
    const auto row = [](const char *name, const Act &act, const char *bytes) {
        QTest::newRow(name) << act << datagram(bytes);
    };
    row(
        "strike", [](SoundEngine &e) { return e.strike(38, 100); }, "IM AC 9909 6426");
    row(
        "strike with velocity 0", [](SoundEngine &e) { return e.strike(36, 0); }, "IM AC 9909 0024");
    row(
        "choke", [](SoundEngine &e) { return e.choke(49, 127); }, "IM AC A90A 7F31");
    row(
        "controller", [](SoundEngine &e) { return e.sendController(6, 0x2A); }, "IM AC B90B 2A06");
    row(
        "hi-hat", [](SoundEngine &e) { return e.moveHiHat(64); }, "IM AC B90B 4004");
    row(
        "program", [](SoundEngine &e) { return e.sendProgram(5); }, "IM AC C90C 0005");
    row(
        "tempo", [](SoundEngine &e) { return e.sendTempo(120); }, "TM AC 0078 0000");
    row(
        "beat", [](SoundEngine &e) { return e.sendBeat(3); }, "BT AC 0003 0000");
    row(
        "power switch", [](SoundEngine &e) { return e.setSwitch(simulated::tag("PW"), 5); },
        "SW AC 5057 0005");
    row(
        "home switch", [](SoundEngine &e) { return e.setSwitch(simulated::tag("HM"), 0); },
        "SW AC 484D 0000");
    row(
        "pot up", [](SoundEngine &e) { return e.turnPot(3, true); }, "CO AC 0003 0001");
    row(
        "pot down", [](SoundEngine &e) { return e.turnPot(0, false); }, "CO AC 0000 0000");
    row(
        "flash sizes", [](SoundEngine &e) { return e.sendFlashSize(1, 2); }, "FR AC 0001 0002");
    row(
        "any event", [](SoundEngine &e) { return e.sendEvent(0x4142, 0x0102, 0x0304); }, "AB AC 0102 0304");
    row(
        "output meters",
        [](SoundEngine &e) {
            return e.sendOutputMeters({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 0x0118});
        },
        "DR 0001 0002 0003 0004 0005 0006 0007 0008 0009 000A 000B 000C 000D 000E 000F 0010 0011 0118");
    row(
        "compressor meters",
        [](SoundEngine &e) {
            return e.sendCompressorMeters(2, {1, 2, 3, 4, 5, 0x0106});
        },
        "CR 0002 0001 0002 0003 0004 0005 0106");
    row(
        "raw", [](SoundEngine &e) { return e.sendRaw(hex("01 02 03")); }, "010203");
    row(
        "nothing at all", [](SoundEngine &e) { return e.sendRaw(QByteArray()); }, "");
}

void InboundTest::sends()
{
    QFETCH(Act, act);
    QFETCH(QByteArray, datagram);
    QVERIFY(act(*m_engine));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram});
}

void InboundTest::strikesEveryZone()
{
    // The zones of pads 0 to 13.
    const QList<int> notes = {36, 38, 37, 40, 48, 50, 45, 47, 43, 58, 41, 39, 51, 59, 53, 21, 42, 44, 46, 26,
                              19, 49, 55, 17, 57, 52, 18, 88, 89, 22, 90, 91, 23, 92, 93, 24, 94, 95, 25};
    for (int note : notes) {
        QVERIFY(m_engine->strike(quint8(note), 100));
        QByteArray expected = datagram("IM AC 9909 64");
        expected.append(char(note));
        QCOMPARE(m_peer->take(), QList<QByteArray>{expected});
    }
    QCOMPARE(m_engine->counters().padHits, quint64(notes.size()));
}

void InboundTest::splitsSysEx_data()
{
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::newRow("nine bytes") << hex("F0 10 41 10 12 42 05 06 F7")
                                << QList<QByteArray>{datagram("IM AC F004 4110"), datagram("IM AC 1004 4212"),
                                                     datagram("IM AC 0507 F706")};
    QTest::newRow("two bytes") << hex("F0 F7") << QList<QByteArray>{datagram("IM AC F006 00F7")};
    QTest::newRow("three bytes") << hex("F0 01 F7") << QList<QByteArray>{datagram("IM AC F007 F701")};
    QTest::newRow("four bytes") << hex("F0 01 02 F7")
                                << QList<QByteArray>{datagram("IM AC F004 0201"),
                                                     datagram("IM AC F705 0000")};
}

void InboundTest::splitsSysEx()
{
    QFETCH(QByteArray, message);
    QVERIFY(m_engine->sendSysEx(message));
    QTEST(m_peer->take(), "datagrams");

    // A test command is three datagrams of one event each.
    QVERIFY(m_engine->sendTestCommand(0x12, 0x34, 0x56));
    const QList<QByteArray> command = {datagram("IM AC B90B 1263"), datagram("IM AC B90B 3462"),
                                       datagram("IM AC B90B 5606")};
    QCOMPARE(m_peer->take(), command);
}

void InboundTest::answersQueries_data()
{
    QTest::addColumn<QByteArray>("query");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("sound engine") << datagram("VN 0000") << datagram("VN AC 0001 0005");
    QTest::newRow("trigger board") << datagram("TV 0000") << datagram("TV AC 0002 0006");
    QTest::newRow("sound bank") << datagram("SN 0000") << datagram("SN AC 0003 0007");
    QTest::newRow("trigger bank") << datagram("TN 0000") << datagram("TN AC FFFF 0008");
    QTest::newRow("hi-hat") << datagram("HL 0000") << datagram("HL AC 0209 0000");
}

void InboundTest::answersQueries()
{
    QFETCH(QByteArray, query);
    m_engine->setVersion(SoundEngine::Version::SoundEngine, 1, 5);
    m_engine->setVersion(SoundEngine::Version::TriggerBoard, 2, 6);
    m_engine->setVersion(SoundEngine::Version::SoundBank, 3, 7);
    m_engine->setVersion(SoundEngine::Version::TriggerBank, 0xFFFF, 8);
    m_engine->setHiHatRaw(0x0209);
    QVERIFY(m_peer->send(query));
    QFETCH(QByteArray, answer);
    QCOMPARE(m_peer->take(), QList<QByteArray>{answer});
}

void InboundTest::answersMeterRequests()
{
    // One loud hit on the bass drum, which is panned to the centre.
    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB9067F"));
    QVERIFY(m_engine->strike(36, 127));
    m_peer->take();
    QVERIFY(m_peer->send("IM 0003 0BB9633B 0BB9621F 0BB90600"));
    QList<QByteArray> taken = m_peer->take();
    QCOMPARE(taken.size(), 1);
    QCOMPARE(taken.at(0).size(), 38);
    QCOMPARE(taken.at(0).left(6), datagram("DR 0046 0046")); // full scale is 70
    QCOMPARE(taken.at(0).mid(14, 4), hex("0046 0000"));      // only the bass drum uses the first direct out

    QVERIFY(m_peer->send("IM 0003 0BB96338 0BB9621F 0BB90600"));
    taken = m_peer->take();
    QCOMPARE(taken.size(), 1);
    QCOMPARE(taken.at(0).left(8), datagram("CR 0000 0046 0046"));
    QVERIFY(taken.at(0).mid(8, 2) != hex("0000")); // gain reduction

    // Section numbers of the answers, with levels that were set.
    m_engine->setCompressorLevels(SoundEngine::Section::Monitor, {1, 2, 3, 4, 5, 6});
    m_engine->setCompressorLevels(SoundEngine::Section::Headphone, {7, 8, 9, 10, 11, 12});
    m_engine->setCompressorLevels(SoundEngine::Section::Pad, {13, 14, 15, 16, 17, 18});
    QVERIFY(m_peer->send("IM 0003 0BB96339 0BB9621F 0BB90600"));
    QVERIFY(m_peer->send("IM 0003 0BB9633A 0BB9621F 0BB90600"));
    QVERIFY(m_peer->send("IM 0003 0BB9632F 0BB96226 0BB90600"));
    const QList<QByteArray> expected = {datagram("CR 0001 0001 0002 0003 0004 0005 0006"),
                                        datagram("CR 0002 0007 0008 0009 000A 000B 000C"),
                                        datagram("CR 0003 000D 000E 000F 0010 0011 0012")};
    QCOMPARE(m_peer->take(), expected);
    QCOMPARE(m_engine->counters().compressorMeters, quint64(4));
}

void InboundTest::answersSlotAndMemoryRequests()
{
    m_engine->setFlashSize(1, 2);
    QVERIFY(m_peer->send("IM 0003 0BB9633D 0BB9620F 0BB90600"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("FR AC 0001 0002")});

    QVERIFY(m_peer->send("IM 0003 0BB9633D 0BB96201 0BB90607"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("IW AC 0007 0000")});
    QVERIFY(m_peer->send("DS IW 00000000 0007 00"));
    QVERIFY(m_peer->send("DE IW 00000000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DE AC 0000 0000")});
    QVERIFY(m_peer->send("IM 0003 0BB9633D 0BB96201 0BB90607"));
    QVERIFY(m_peer->send("IM 0003 0BB9633D 0BB96200 0BB90607"));
    const QList<QByteArray> expected = {datagram("IW AC 0007 0001"), datagram("IS AC 0007 0000")};
    QCOMPARE(m_peer->take(), expected);
}

void InboundTest::answersTheOneThatAsked()
{
    Peer other(m_engine.get());
    QVERIFY(other.send("HL 0000"));
    QCOMPARE(other.take().size(), 1);
    QCOMPARE(m_engine->modulePort(), other.port());
    QVERIFY(m_peer->send("HL 0000"));
    QCOMPARE(m_peer->take().size(), 1);
    QCOMPARE(m_engine->modulePort(), m_peer->port());
    QVERIFY(other.received.isEmpty());
}

void InboundTest::saysNothingByItself()
{
    // Longer than the interval of meter reports and beats.
    QElapsedTimer time;
    time.start();
    QTRY_VERIFY(time.elapsed() >= 700);
    QCOMPARE(m_peer->take(), QList<QByteArray>());
}

void InboundTest::reportsTempoOnlyWhenLive()
{
    QVERIFY(m_peer->send("IM 0004 0BB96337 0BB96264 0BB92640 0BB90632"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QCOMPARE(m_engine->tempo(), 121);
    m_engine->setLive(true);
    QVERIFY(m_peer->send("IM 0004 0BB96337 0BB96264 0BB92600 0BB90646"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("TM AC 00A0 0000")});
    // The same tempo again is not reported.
    QVERIFY(m_peer->send("IM 0004 0BB96337 0BB96264 0BB92600 0BB90646"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
}

void InboundTest::playsTheTempoThatIsPrinted_data()
{
    QTest::addColumn<QByteArray>("dataBytes"); // of controllers 38 and 6
    QTest::addColumn<int>("tempo");
    QTest::newRow("slowest") << hex("00 00") << 20;
    QTest::newRow("above a 7-bit value") << hex("40 80") << 277;
    QTest::newRow("fastest") << hex("40 FF") << 531;
}

void InboundTest::playsTheTempoThatIsPrinted()
{
    QFETCH(QByteArray, dataBytes);
    QFETCH(int, tempo);
    QSignalSpy lines(m_engine.get(), &SoundEngine::messageReceived);
    QVERIFY(m_peer->send(datagram("IM 0004 0BB96337 0BB96264 0BB926") + dataBytes.left(1) + hex("0BB906") +
                         dataBytes.right(1)));
    QCOMPARE(lines.value(0).value(0).toString(), QStringLiteral("metronome tempo %1").arg(tempo));
    QCOMPARE(m_engine->tempo(), tempo);
}

void InboundTest::beatsWithTheMetronomeWhenLive()
{
    m_engine->setLive(true);
    QVERIFY(m_peer->send("IM 0004 0BB96337 0BB96264 0BB92600 0BB9067E")); // 272 bpm: a beat every 221 ms
    m_peer->take();
    QVERIFY(m_peer->send("IM 0003 0BB96337 0BB96263 0BB90601"));
    QTRY_VERIFY(m_peer->received.size() >= 5);
    QVERIFY(m_peer->send("IM 0003 0BB96337 0BB96263 0BB90600"));
    const QList<QByteArray> expected = {datagram("BT AC 0001 0000"), datagram("BT AC 0002 0000"),
                                        datagram("BT AC 0003 0000"), datagram("BT AC 0004 0000"),
                                        datagram("BT AC 0001 0000")};
    QCOMPARE(m_peer->take().mid(0, 5), expected);
}

void InboundTest::knowsNoModuleAtFirst()
{
    SoundEngine engine;
    QVERIFY(Peer::listen(&engine));
    QVERIFY(!engine.knowsModule());
    QVERIFY(!engine.strike(38, 100));
    QCOMPARE(engine.counters().padHits, quint64(0));
    QCOMPARE(engine.counters().sent, quint64(0));
    Peer peer(&engine);
    QVERIFY(peer.send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(engine.modulePort(), peer.port());
    QVERIFY(engine.strike(38, 100));
    QCOMPARE(peer.take(), QList<QByteArray>{datagram("IM AC 9909 6426")});
}

void InboundTest::refusesAnAddressThatIsTaken()
{
    SoundEngine second;
    QVERIFY(!second.listen(m_engine->address(), m_engine->port()));
    QVERIFY(!second.errorString().isEmpty());
}

QTEST_GUILESS_MAIN(InboundTest)
#include "tst_inbound.moc"
