// Scenarios that wait for strikes and switches.
#include "peer.h"

#include "simulator/scenarioplayer.h"

using namespace simulated;

class WaitsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void waits_data();
    void waits();
    void seesWhatHappenedBefore();
    void forgetsAtEachWait();
    void ignoresItsOwnSteps();
    void seesOtherPlayers();
    void seesTheGroove();
    void ignoresWhatIsNotSent();

private:
    void play(const char *text);
    // True when beat number has arrived. All that the engine has sent before is taken into account.
    bool hasBeat(int number)
    {
        m_taken += m_peer->take();
        return m_taken.contains(datagram("BT AC 00") + char(number) + hex("0000"));
    }
    // The scenarios end with beat 9.
    bool hasPassed() { return hasBeat(9); }

    // Plays some steps of another scenario. Afterwards the first one has gone as far as it can.
    void settle();

    QList<QByteArray> m_taken;
    int m_settled = 100;
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
    std::unique_ptr<ScenarioPlayer> m_player;
};

void WaitsTest::init()
{
    m_taken.clear();
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
    m_engine->setModule(QHostAddress(QHostAddress::LocalHost), m_peer->port());
}

void WaitsTest::cleanup()
{
    m_player.reset();
    m_peer.reset();
    m_engine.reset();
}

void WaitsTest::play(const char *text)
{
    Scenario scenario;
    QString problem;
    QVERIFY2(scenario.parse(QString::fromLatin1(text), &problem), qPrintable(problem));
    m_player = std::make_unique<ScenarioPlayer>(scenario, m_engine.get());
    m_player->start();
}

void WaitsTest::settle()
{
    Scenario steps;
    QString problem;
    ++m_settled;
    QVERIFY(steps.parse(QStringLiteral("repeat 5\ntempo 1\nend\nbeat %1\n").arg(m_settled), &problem));
    ScenarioPlayer player(steps, m_engine.get());
    player.start();
    QTRY_VERIFY(hasBeat(m_settled));
}

void WaitsTest::waits_data()
{
    QTest::addColumn<QByteArray>("wait");
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QByteArray>("sent");
    const auto row = [](const char *wait, const char *other, const char *sent) {
        QTest::newRow(wait) << QByteArray(wait) << datagram(other) << datagram(sent);
    };
    row("strike", "IM AC A90A 7F31", "IM AC 9909 6426");
    row("strike snare", "IM AC 9909 6428", "IM AC 9909 0126");
    row("strike 0x26", "IM AC 9909 2628", "IM AC 9909 0126");
    row("switch", "CO AC 4631 0001", "SW AC 4631 0001");
    row("switch foot1", "SW AC 4632 0001", "SW AC 4631 0000");
    row("switch foot1 1", "SW AC 4631 0000", "SW AC 4631 0001");
    row("switch ZZ 300", "SW AC 5A5A 012D", "SW AC 5A5A 012C");
    row("switch 0x4631 2", "SW AC 4631 0001", "SW AC 4631 0002");
}

void WaitsTest::waits()
{
    QFETCH(QByteArray, wait);
    play(("wait-for " + wait + "\nbeat 9\n").constData());
    QFETCH(QByteArray, other);
    QVERIFY(m_engine->sendRaw(other));
    settle();
    QVERIFY(!hasPassed());
    QFETCH(QByteArray, sent);
    QVERIFY(m_engine->sendRaw(sent));
    QTRY_VERIFY(hasPassed());
}

void WaitsTest::seesWhatHappenedBefore()
{
    play("after 100 tempo 90\nwait-for strike snare\nwait-for module\nbeat 9\n");
    QVERIFY(m_engine->strike(38, 100));
    QTRY_VERIFY(hasPassed());
}

void WaitsTest::forgetsAtEachWait()
{
    play("wait-for strike\nbeat 1\nwait-for strike\nbeat 2\nwait-for switch\nbeat 9\n");
    QVERIFY(m_engine->setSwitch(tag("PW"), 1));
    QVERIFY(m_engine->strike(38, 100));
    QTRY_VERIFY(hasBeat(1));
    settle();
    QVERIFY(!hasBeat(2));
    QVERIFY(m_engine->strike(38, 100));
    QTRY_VERIFY(hasBeat(2));
    settle();
    QVERIFY(!hasPassed()); // the switch was before the first wait
    QVERIFY(m_engine->setSwitch(tag("PW"), 0));
    QTRY_VERIFY(hasPassed());
}

void WaitsTest::ignoresItsOwnSteps()
{
    play("strike snare\nswitch power 1\nbeat 1\nwait-for strike\nbeat 2\nwait-for switch\nbeat 9\n");
    QTRY_VERIFY(hasBeat(1));
    settle();
    QVERIFY(!hasBeat(2));
    QVERIFY(m_engine->strike(36, 1));
    QTRY_VERIFY(hasBeat(2));
    settle();
    QVERIFY(!hasPassed());
    QVERIFY(m_engine->setSwitch(tag("HM"), 1));
    QTRY_VERIFY(hasPassed());
}

void WaitsTest::seesOtherPlayers()
{
    play("wait-for strike kick\nbeat 9\n");
    Scenario typed;
    QString problem;
    QVERIFY(typed.parse(QStringLiteral("strike kick\n"), &problem));
    ScenarioPlayer other(typed, m_engine.get());
    other.start();
    QTRY_VERIFY(hasPassed());
}

void WaitsTest::seesTheGroove()
{
    play("groove on\nwait-for strike within 20000\ngroove off\nbeat 9\n");
    QTRY_VERIFY_WITH_TIMEOUT(hasPassed(), 20000);
}

void WaitsTest::ignoresWhatIsNotSent()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("vanish=0")));
    QVERIFY(m_peer->send("DC TB 00000000 0001 0000"));
    play("wait-for strike\nbeat 9\n");
    QVERIFY(!m_engine->strike(38, 100));
    m_engine->clearFailures();
    settle();
    QVERIFY(!hasPassed());
    QVERIFY(m_engine->strike(38, 100));
    QTRY_VERIFY(hasPassed());
}

QTEST_GUILESS_MAIN(WaitsTest)
#include "tst_waits.moc"
