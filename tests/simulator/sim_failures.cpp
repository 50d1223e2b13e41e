// Every failure mode, on the wire.
#include "sender.h"

#include "simulator/failures.h"

#include <QElapsedTimer>
#include <QSet>
#include <QSignalSpy>

using Outcome = SoundEngine::ReceivedFile::Outcome;

class SimFailures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void listsTheirNames();
    void refusesWhatIsNone_data();
    void refusesWhatIsNone();
    void happens_data();
    void happens();
    void happensAtThePacketNamed();
    void happensOncePerTransfer();
    void endsWhenCleared();
    void answersLate();
    void vanishesForGood();
    void vanishesAndReturns();
    void losesOneOfEveryN();
    void doublesOneOfEveryN();
    void swapsOneOfEveryN();
    void fileIsWholeOrRefused_data();
    void fileIsWholeOrRefused();
    void fileIsNeverWholeByMistake_data();
    void fileIsNeverWholeByMistake();

private:
    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
};

namespace {

QByteArray version()
{
    return hex("564E4143 0001 0000");
}

QByteArray success()
{
    return hex("44454143 0000 0000");
}

} // namespace

void SimFailures::init()
{
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
}

void SimFailures::cleanup()
{
    m_peer.reset();
    m_engine.reset();
}

void SimFailures::listsTheirNames()
{
    QSet<QString> names;
    for (const simulated::FailureMode &mode : simulated::failureModes()) {
        names.insert(QLatin1String(mode.name));
        QVERIFY2(m_engine->setFailure(QLatin1String(mode.name)), mode.name);
        QVERIFY(qstrlen(mode.description) > 0);
    }
    QCOMPARE(names.size(), simulated::failureModes().size());
    QCOMPARE(simulated::failureHelp().size(), names.size());
}

void SimFailures::refusesWhatIsNone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("explode");
    QTest::newRow("no number") << QStringLiteral("resend=many");
    QTest::newRow("negative") << QStringLiteral("resend=-1");
    QTest::newRow("number where none belongs") << QStringLiteral("bad-checksum=3");
    QTest::newRow("every zeroth") << QStringLiteral("drop=0");
}

void SimFailures::refusesWhatIsNone()
{
    QFETCH(QString, text);
    QString problem;
    QVERIFY(!m_engine->setFailure(text, &problem));
    QVERIFY(!problem.isEmpty());
}

void SimFailures::happens_data()
{
    // A version query and a file of 20 packets whose sender does not listen: what the engine says to it.
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QList<QByteArray>>("said");
    const auto row = [](const char *failure, const QList<QByteArray> &said) {
        QTest::newRow(failure) << QString::fromLatin1(failure) << said;
    };
    row("resend=5", {version(), hex("44434143 0005 00BE"), success()});
    row("resend-twice=5", {version(), hex("44434143 0005 00BE"), hex("44434143 0005 00BE"), success()});
    row("resend-before-start", {version(), hex("44434143 0000 00BE"), success()});
    row("resend-past-end=5", {version(), hex("44434143 0078 00BE"), success()});
    row("unknown-low-byte=5", {version(), hex("44434143 0005 0042"), success()});
    row("refuse-e0=5", {version(), hex("44434143 0005 00E0"), hex("44454143 0000 00E0")});
    row("memory-full-e1=5", {version(), hex("44434143 0005 00E1"), hex("44454143 0000 00E1")});
    row("memory-full-e2=5", {version(), hex("44434143 0005 00E2"), hex("44454143 0000 00E2")});
    row("memory-full-e3=5", {version(), hex("44434143 0005 00E3"), hex("44454143 0000 00E3")});
    row("refuse-e4=5", {version(), hex("44434143 0005 00E4"), hex("44454143 0000 00E4")});
    row("refuse-e5=5", {version(), hex("44434143 0005 00E5"), hex("44454143 0000 00E5")});
    row("refuse-e6=5", {version(), hex("44434143 0005 00E6"), hex("44454143 0000 00E6")});
    row("refuse-e7=5", {version(), hex("44434143 0005 00E7"), hex("44454143 0000 00E7")});
    row("refuse-e8=5", {version(), hex("44434143 0005 00E8"), hex("44454143 0000 00E8")});
    row("refuse-e9=5", {version(), hex("44434143 0005 00E9"), hex("44454143 0000 00E9")});
    row("refuse-ea=5", {version(), hex("44434143 0005 00EA"), hex("44454143 0000 00EA")});
    row("refuse-eb=5", {version(), hex("44434143 0005 00EB"), hex("44454143 0000 00EB")});
    row("refuse-ec=5", {version(), hex("44434143 0005 00EC"), hex("44454143 0000 00EC")});
    row("refuse-ed=5", {version(), hex("44434143 0005 00ED"), hex("44454143 0000 00ED")});
    row("refuse-ee=5", {version(), hex("44434143 0005 00EE"), hex("44454143 0000 00EE")});
    row("refuse-ef=5", {version(), hex("44434143 0005 00EF"), hex("44454143 0000 00EF")});
    row("bad-checksum", {version(), hex("44454143 0000 0001")});
    row("no-end-ack", {version()});
    row("no-query-reply", {success()});
    row("late-query-reply=60000", {success()});
    row("wrong-query-reply", {hex("54564143 0000 0064"), success()});
    row("stray-acks=5", {hex("44434143 0000 0000"), version(), hex("44434143 FFFF FF00"), success(),
                         hex("5A5A4143 0000 0000"), success()});
    row("vanish=5", {version()});
    row("vanish-and-return=5", {version()});
    row("drop=1", {});
    row("duplicate=1", {version(), version(), success(), success()});
    row("reorder=1000", {version(), success()}); // seed 1 leaves these alone
    row("lose-once=5", {version(), hex("44434143 0005 00BE"), hex("44454143 0000 0002")});
    row("duplicate-once=5", {version(), success()});
    row("delay-once=5", {version(), hex("44434143 0005 00BE"), hex("44454143 0000 0002")});
}

void SimFailures::happens()
{
    QFETCH(QString, failure);
    QVERIFY(m_engine->setFailure(failure));
    QVERIFY(m_peer->send("564E0000"));
    Sender sender(m_peer.get(), "TB", someFile(512 * 20));
    QVERIFY(sender.start());
    QVERIFY(sender.dataAtOnce(0, 19)); // what is held back waits for the next packet no longer than 50 ms
    QVERIFY(sender.end());
    m_engine->clearFailures(); // an engine that has vanished could not send the marker of take()
    QTEST(m_peer->take(), "said");
}

void SimFailures::happensAtThePacketNamed()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("memory-full-e2=300")));
    Sender sender(m_peer.get(), "TB", someFile(512 * 302));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 299));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(sender.data(300));
    QCOMPARE(m_peer->take(), QList<QByteArray>{hex("44434143 012C 00E2")});
    // What is still on its way is neither an offence nor refused again.
    QVERIFY(sender.data(301));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QCOMPARE(m_engine->violations(), QStringList());
}

void SimFailures::happensOncePerTransfer()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("resend=2")));
    for (int round = 0; round < 2; ++round) {
        const QByteArray file = someFile(512 * 6);
        Sender sender(m_peer.get(), "TB", file);
        QVERIFY(sender.start());
        QVERIFY(sender.dataFromTo(0, 3));
        QVERIFY(sender.dataFromTo(2, 5));
        QVERIFY(sender.end());
        const QList<QByteArray> said = {hex("44434143 0002 00BE"), success()};
        QCOMPARE(m_peer->take(), said);
        QVERIFY(m_engine->receivedFiles().constLast().data == file);
    }
    QCOMPARE(m_engine->violations(), QStringList());
}

void SimFailures::endsWhenCleared()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("no-query-reply")));
    QVERIFY(m_peer->send("564E0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    m_engine->clearFailures();
    QVERIFY(m_peer->send("564E0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{version()});
}

void SimFailures::answersLate()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("late-query-reply=300")));
    QElapsedTimer time;
    time.start();
    QVERIFY(m_peer->send("564E0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{version()});
    QVERIFY(time.elapsed() >= 290);
}

void SimFailures::vanishesForGood()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("vanish=1")));
    Sender sender(m_peer.get(), "TB", someFile(512 * 3));
    QVERIFY(sender.start());
    QVERIFY(sender.data(0));
    QVERIFY(m_engine->strike(38, 100));
    QVERIFY(sender.data(1));
    QVERIFY(!m_engine->strike(38, 100));
    QVERIFY(m_peer->send("564E0000"));
    QCOMPARE(m_engine->counters().lost, quint64(2));
    QCOMPARE(m_engine->counters().datagrams, quint64(2));
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{hex("494D4143 9909 6426")});
}

void SimFailures::vanishesAndReturns()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("vanish-and-return=5")));
    const QByteArray file = someFile(512 * 30);
    Sender sender(m_peer.get(), "TB", file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 26));
    QCOMPARE(m_engine->counters().lost, quint64(20));
    QCOMPARE(m_peer->take(), QList<QByteArray>{hex("44434143 0005 00BE")});
    QVERIFY(sender.dataFromTo(5, 29));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QVERIFY(m_engine->receivedFiles().constLast().data == file);
}

void SimFailures::losesOneOfEveryN()
{
    const auto lostOf = [](quint32 seed) {
        SoundEngine engine;
        Peer::listen(&engine);
        Peer peer(&engine);
        engine.setSeed(seed);
        engine.setFailure(QStringLiteral("drop=10"));
        for (int i = 0; i < 100; ++i)
            peer.send(hex("494D0003 0BB96341 0BB962") + char(i) + hex("0BB90601"));
        QVector<int> lost;
        for (int i = 0; i < 100; ++i) {
            if (engine.parameter(0x41, quint8(i)) < 0)
                lost.append(i);
        }
        return lost;
    };
    const QVector<int> lost = lostOf(7);
    QCOMPARE(lost.size(), 10);
    for (int block = 0; block < 10; ++block)
        QCOMPARE(lost.at(block) / 10, block);
    QCOMPARE(lostOf(7), lost);
    QVERIFY(lostOf(8) != lost);
}

void SimFailures::doublesOneOfEveryN()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("duplicate=10")));
    for (int i = 0; i < 100; ++i)
        QVERIFY(m_peer->send("494D0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(m_engine->counters().datagrams, quint64(110));
    QCOMPARE(m_engine->counters().lost, quint64(0));
}

void SimFailures::swapsOneOfEveryN()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("reorder=10")));
    QSignalSpy values(m_engine.get(), &SoundEngine::parameterReceived);
    for (int i = 0; i < 100; ++i)
        m_peer->throwAt(hex("494D0003 0BB96341 0BB962") + char(i) + hex("0BB90601"));
    // The last one may have nothing to follow it; it comes all the same.
    QTRY_COMPARE(values.size(), 100);
    int swaps = 0;
    for (int i = 1; i < 100; ++i) {
        const int step = values.at(i).at(1).toInt() - values.at(i - 1).at(1).toInt();
        swaps += step < 0 ? 1 : 0;
        QVERIFY(step == 1 || step == 2 || step == -1 || step == 3);
    }
    QVERIFY(swaps >= 9 && swaps <= 10);
}

void SimFailures::fileIsWholeOrRefused_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("lag");
    for (int lag : {0, 3}) {
        for (const char *failure : {"resend=0", "resend=7", "resend-twice=7", "resend-before-start",
                                    "unknown-low-byte=7", "vanish-and-return=7", "duplicate=3"})
            QTest::addRow("%s, lag %d", failure, lag) << QString::fromLatin1(failure) << lag;
        for (int packet : {0, 1, 7, 38}) {
            for (const char *failure : {"lose-once", "duplicate-once", "delay-once"})
                QTest::addRow("%s=%d, lag %d", failure, packet, lag)
                    << QStringLiteral("%1=%2").arg(QLatin1String(failure)).arg(packet) << lag;
        }
    }
}

// A sender that goes back where it is asked to gets its file across.
void SimFailures::fileIsWholeOrRefused()
{
    QFETCH(QString, failure);
    QFETCH(int, lag);
    QVERIFY(m_engine->setFailure(failure));
    const QByteArray file = someFile(512 * 40 - 5);
    Sender sender(m_peer.get(), "TB", file);
    const QList<QByteArray> said = sender.sendObeying(lag);
    QVERIFY(!m_engine->receivedFiles().isEmpty());
    const auto &received = m_engine->receivedFiles().constFirst();
    QVERIFY2(received.outcome == Outcome::Whole, qPrintable(simulated::fileText(received)));
    QVERIFY(received.data == file);
    QVERIFY(said.contains(success()));
}

void SimFailures::fileIsNeverWholeByMistake_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 10; ++seed) {
        for (const char *failure : {"drop=10", "reorder=10", "drop=37"})
            QTest::addRow("%s, seed %d", failure, seed) << QString::fromLatin1(failure) << seed;
    }
}

void SimFailures::fileIsNeverWholeByMistake()
{
    QFETCH(QString, failure);
    QFETCH(int, seed);
    m_engine->setSeed(quint32(seed));
    QVERIFY(m_engine->setFailure(failure));
    const QByteArray file = someFile(512 * 100);
    Sender sender(m_peer.get(), "TB", file);
    const QList<QByteArray> said = sender.sendObeying(2);
    bool whole = false;
    for (const auto &received : m_engine->receivedFiles()) {
        if (received.outcome != Outcome::Whole)
            continue;
        whole = true;
        QVERIFY(received.data == file);
    }
    QCOMPARE(said.contains(success()), whole);
}

QTEST_GUILESS_MAIN(SimFailures)
#include "sim_failures.moc"
