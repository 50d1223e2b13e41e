// The datagrams that the engine sends in each failure mode.
#include "sender.h"

#include "simulator/failures.h"

#include <QElapsedTimer>
#include <QSet>
#include <QSignalSpy>

using Outcome = SoundEngine::ReceivedFile::Outcome;

class FailuresTest : public QObject
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
    void twoModesOfOneTransfer_data();
    void twoModesOfOneTransfer();
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
    return datagram("VN AC 0001 0000");
}

QByteArray success()
{
    return datagram("DE AC 0000 0000");
}

} // namespace

void FailuresTest::init()
{
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
}

void FailuresTest::cleanup()
{
    m_peer.reset();
    m_engine.reset();
}

void FailuresTest::listsTheirNames()
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

void FailuresTest::refusesWhatIsNone_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QString();
    QTest::newRow("unknown") << QStringLiteral("explode");
    QTest::newRow("no number") << QStringLiteral("resend=many");
    QTest::newRow("negative") << QStringLiteral("resend=-1");
    QTest::newRow("with a sign") << QStringLiteral("resend=+1");
    QTest::newRow("beyond 24 bits") << QStringLiteral("resend=16777216");
    QTest::newRow("number for a mode without one") << QStringLiteral("bad-checksum=3");
    QTest::newRow("every zeroth") << QStringLiteral("drop=0");
    QTest::newRow("empty list") << QStringLiteral("resend=");
    QTest::newRow("comma at the end") << QStringLiteral("resend=5,");
    QTest::newRow("comma at the beginning") << QStringLiteral("resend=,5");
    QTest::newRow("wrong number in a list") << QStringLiteral("resend=5,x,9");
    QTest::newRow("list for a mode without a packet") << QStringLiteral("drop=5,9");
    QTest::newRow("list of delays") << QStringLiteral("late-query-reply=5,9");
    QTest::newRow("list for a mode without a number") << QStringLiteral("bad-checksum=1,2");
    QTest::newRow("too many packets") << QStringLiteral("resend=1") + QStringLiteral(",1").repeated(1000);
}

void FailuresTest::refusesWhatIsNone()
{
    QFETCH(QString, text);
    QString problem;
    QVERIFY(!m_engine->setFailure(text, &problem));
    QVERIFY(!problem.isEmpty());
    QVERIFY(!problem.contains(QLatin1Char('\n')));
    // Nothing is added, not even the good part of a list.
    Sender sender(m_peer.get(), "TB", noise(512 * 20));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 19));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
}

void FailuresTest::happens_data()
{
    // Replies to a version query and to a file of 20 packets whose sender ignores resend requests. An event:
    // "DC" (44 43) or another tag, "AC" (41 43), packet number, high byte of the number and code.
    QTest::addColumn<QString>("failure");
    QTest::addColumn<QList<QByteArray>>("replies");
    const auto row = [](const char *failure, const QList<QByteArray> &replies) {
        QTest::newRow(failure) << QString::fromLatin1(failure) << replies;
    };
    row("resend=5", {version(), datagram("DC AC 0005 00BE"), success()});
    row("resend-twice=5", {version(), datagram("DC AC 0005 00BE"), datagram("DC AC 0005 00BE"), success()});
    row("resend-before-start", {version(), datagram("DC AC 0000 00BE"), success()});
    row("resend-past-end=5", {version(), datagram("DC AC 0078 00BE"), success()});
    row("unknown-low-byte=5", {version(), datagram("DC AC 0005 0042"), success()});
    row("refuse-e0=5", {version(), datagram("DC AC 0005 00E0"), datagram("DE AC 0000 00E0")});
    row("memory-full-e1=5", {version(), datagram("DC AC 0005 00E1"), datagram("DE AC 0000 00E1")});
    row("memory-full-e2=5", {version(), datagram("DC AC 0005 00E2"), datagram("DE AC 0000 00E2")});
    row("memory-full-e3=5", {version(), datagram("DC AC 0005 00E3"), datagram("DE AC 0000 00E3")});
    row("refuse-e4=5", {version(), datagram("DC AC 0005 00E4"), datagram("DE AC 0000 00E4")});
    row("refuse-e5=5", {version(), datagram("DC AC 0005 00E5"), datagram("DE AC 0000 00E5")});
    row("refuse-e6=5", {version(), datagram("DC AC 0005 00E6"), datagram("DE AC 0000 00E6")});
    row("refuse-e7=5", {version(), datagram("DC AC 0005 00E7"), datagram("DE AC 0000 00E7")});
    row("refuse-e8=5", {version(), datagram("DC AC 0005 00E8"), datagram("DE AC 0000 00E8")});
    row("refuse-e9=5", {version(), datagram("DC AC 0005 00E9"), datagram("DE AC 0000 00E9")});
    row("refuse-ea=5", {version(), datagram("DC AC 0005 00EA"), datagram("DE AC 0000 00EA")});
    row("refuse-eb=5", {version(), datagram("DC AC 0005 00EB"), datagram("DE AC 0000 00EB")});
    row("refuse-ec=5", {version(), datagram("DC AC 0005 00EC"), datagram("DE AC 0000 00EC")});
    row("refuse-ed=5", {version(), datagram("DC AC 0005 00ED"), datagram("DE AC 0000 00ED")});
    row("refuse-ee=5", {version(), datagram("DC AC 0005 00EE"), datagram("DE AC 0000 00EE")});
    row("refuse-ef=5", {version(), datagram("DC AC 0005 00EF"), datagram("DE AC 0000 00EF")});
    row("bad-checksum", {version(), datagram("DE AC 0000 0001")});
    row("no-end-ack", {version()});
    row("no-query-reply", {success()});
    row("late-query-reply=60000", {success()});
    row("wrong-query-reply", {datagram("TV AC 0000 0064"), success()});
    row("stray-acks=5", {datagram("DC AC 0000 0000"), version(), datagram("DC AC FFFF FF00"), success(),
                         datagram("ZZ AC 0000 0000"), success()});
    row("vanish=5", {version()});
    row("vanish-and-return=5", {version()});
    row("drop=1", {});
    row("duplicate=1", {version(), version(), success(), success()});
    row("reorder=1000", {version(), success()}); // seed 1 selects none of these
    row("lose-once=5", {version(), datagram("DC AC 0005 00BE"), datagram("DE AC 0000 0002")});
    row("duplicate-once=5", {version(), success()});
    row("delay-once=5", {version(), datagram("DC AC 0005 00BE"), datagram("DE AC 0000 0002")});
}

void FailuresTest::happens()
{
    QFETCH(QString, failure);
    QVERIFY(m_engine->setFailure(failure));
    QVERIFY(m_peer->send("VN 0000"));
    Sender sender(m_peer.get(), "TB", noise(512 * 20));
    QVERIFY(sender.start());
    QVERIFY(sender.dataAtOnce(0, 19)); // a delayed packet waits up to 50 ms for the next one
    QVERIFY(sender.end());
    m_engine->clearFailures(); // so that a vanished engine sends the marker of take()
    QTEST(m_peer->take(), "replies");
}

void FailuresTest::happensAtThePacketNamed()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("memory-full-e2=300")));
    Sender sender(m_peer.get(), "TB", noise(512 * 302));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 299));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(sender.data(300));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 012C 00E2")});
    // Later packets are no violation and are not refused again.
    QVERIFY(sender.data(301));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QCOMPARE(m_engine->violations(), QStringList());
}

void FailuresTest::happensOncePerTransfer()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("resend=2")));
    for (int round = 0; round < 2; ++round) {
        const QByteArray file = noise(512 * 6);
        Sender sender(m_peer.get(), "TB", file);
        QVERIFY(sender.start());
        QVERIFY(sender.dataFromTo(0, 3));
        QVERIFY(sender.dataFromTo(2, 5));
        QVERIFY(sender.end());
        const QList<QByteArray> replies = {datagram("DC AC 0002 00BE"), success()};
        QCOMPARE(m_peer->take(), replies);
        QVERIFY(m_engine->receivedFiles().constLast().data == file);
    }
    QCOMPARE(m_engine->violations(), QStringList());
}

// The same mode with two numbers, or two different modes: each happens at its packet.
void FailuresTest::twoModesOfOneTransfer_data()
{
    QTest::addColumn<QStringList>("failures");
    QTest::addColumn<QList<QByteArray>>("replies");
    const auto row = [](const char *failures, const QList<QByteArray> &replies) {
        QTest::newRow(failures) << QString::fromLatin1(failures).split(QLatin1Char(' ')) << replies;
    };
    row("resend=4 resend=8", {datagram("DC AC 0004 00BE"), datagram("DC AC 0008 00BE"), success()});
    row("resend=8 resend=4", {datagram("DC AC 0004 00BE"), datagram("DC AC 0008 00BE"), success()});
    row("resend=4 unknown-low-byte=8", {datagram("DC AC 0004 00BE"), datagram("DC AC 0008 0042"), success()});
    row("refuse-e0=8 refuse-e5=4", {datagram("DC AC 0004 00E5"), datagram("DE AC 0000 00E5")});
    row("refuse-e0=4 refuse-e5=8", {datagram("DC AC 0004 00E0"), datagram("DE AC 0000 00E0")});
    row("resend=4,8", {datagram("DC AC 0004 00BE"), datagram("DC AC 0008 00BE"), success()});
    row("resend=12,4 resend=8",
        {datagram("DC AC 0004 00BE"), datagram("DC AC 0008 00BE"), datagram("DC AC 000C 00BE"), success()});
    row("refuse-e0=8,4", {datagram("DC AC 0004 00E0"), datagram("DE AC 0000 00E0")});
    row("lose-once=4,8", {datagram("DC AC 0004 00BE"), datagram("DE AC 0000 0002")});
    row("lose-once=4 lose-once=8", {datagram("DC AC 0004 00BE"), datagram("DE AC 0000 0002")});
}

void FailuresTest::twoModesOfOneTransfer()
{
    QFETCH(QStringList, failures);
    for (const QString &failure : qAsConst(failures))
        QVERIFY(m_engine->setFailure(failure));
    Sender sender(m_peer.get(), "TB", noise(512 * 20));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 19));
    QVERIFY(sender.end());
    QTEST(m_peer->take(), "replies");
    const QString all = failures.join(QLatin1Char(','));
    const quint64 lost = all.startsWith(QLatin1String("lose-once")) ? 2 : 0;
    QCOMPARE(m_engine->counters().lost, lost);
}

void FailuresTest::endsWhenCleared()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("no-query-reply")));
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    m_engine->clearFailures();
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{version()});
}

void FailuresTest::answersLate()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("late-query-reply=300")));
    QElapsedTimer time;
    time.start();
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{version()});
    QVERIFY(time.elapsed() >= 290);
}

void FailuresTest::vanishesForGood()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("vanish=1")));
    Sender sender(m_peer.get(), "TB", noise(512 * 3));
    QVERIFY(sender.start());
    QVERIFY(sender.data(0));
    QVERIFY(m_engine->strike(38, 100));
    QVERIFY(sender.data(1));
    QVERIFY(!m_engine->strike(38, 100));
    QVERIFY(m_peer->send("VN 0000"));
    QCOMPARE(m_engine->counters().lost, quint64(2));
    QCOMPARE(m_engine->counters().datagrams, quint64(2));
    QTRY_COMPARE(m_peer->received, QList<QByteArray>{datagram("IM AC 9909 6426")});
}

void FailuresTest::vanishesAndReturns()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("vanish-and-return=5")));
    const QByteArray file = noise(512 * 30);
    Sender sender(m_peer.get(), "TB", file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 26));
    QCOMPARE(m_engine->counters().lost, quint64(20));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0005 00BE")});
    QVERIFY(sender.dataFromTo(5, 29));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QVERIFY(m_engine->receivedFiles().constLast().data == file);
}

void FailuresTest::losesOneOfEveryN()
{
    const auto lostOf = [](quint32 seed) {
        SoundEngine engine;
        Peer::listen(&engine);
        Peer peer(&engine);
        engine.setSeed(seed);
        engine.setFailure(QStringLiteral("drop=10"));
        for (int i = 0; i < 100; ++i)
            peer.send(datagram("IM 0003 0BB96341 0BB962") + char(i) + hex("0BB90601"));
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

void FailuresTest::doublesOneOfEveryN()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("duplicate=10")));
    for (int i = 0; i < 100; ++i)
        QVERIFY(m_peer->send("IM 0003 0BB96338 0BB96207 0BB90664"));
    QCOMPARE(m_engine->counters().datagrams, quint64(110));
    QCOMPARE(m_engine->counters().lost, quint64(0));
}

void FailuresTest::swapsOneOfEveryN()
{
    QVERIFY(m_engine->setFailure(QStringLiteral("reorder=10")));
    QSignalSpy values(m_engine.get(), &SoundEngine::parameterReceived);
    for (int i = 0; i < 100; ++i)
        m_peer->post(datagram("IM 0003 0BB96341 0BB962") + char(i) + hex("0BB90601"));
    // A delayed last datagram is released, too.
    QTRY_COMPARE(values.size(), 100);
    int swaps = 0;
    for (int i = 1; i < 100; ++i) {
        const int step = values.at(i).at(1).toInt() - values.at(i - 1).at(1).toInt();
        swaps += step < 0 ? 1 : 0;
        QVERIFY(step == 1 || step == 2 || step == -1 || step == 3);
    }
    QVERIFY(swaps >= 9 && swaps <= 10);
}

void FailuresTest::fileIsWholeOrRefused_data()
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

// With a sender that follows the resend requests, the file arrives.
void FailuresTest::fileIsWholeOrRefused()
{
    QFETCH(QString, failure);
    QFETCH(int, lag);
    QVERIFY(m_engine->setFailure(failure));
    const QByteArray file = noise(512 * 40 - 5);
    Sender sender(m_peer.get(), "TB", file);
    const QList<QByteArray> replies = sender.sendObeying(lag);
    QVERIFY(!m_engine->receivedFiles().isEmpty());
    const auto &received = m_engine->receivedFiles().constFirst();
    QVERIFY2(received.outcome == Outcome::Whole, qPrintable(simulated::fileText(received)));
    QVERIFY(received.data == file);
    QVERIFY(replies.contains(success()));
}

void FailuresTest::fileIsNeverWholeByMistake_data()
{
    QTest::addColumn<QString>("failure");
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 10; ++seed) {
        for (const char *failure : {"drop=10", "reorder=10", "drop=37"})
            QTest::addRow("%s, seed %d", failure, seed) << QString::fromLatin1(failure) << seed;
    }
}

void FailuresTest::fileIsNeverWholeByMistake()
{
    QFETCH(QString, failure);
    QFETCH(int, seed);
    m_engine->setSeed(quint32(seed));
    QVERIFY(m_engine->setFailure(failure));
    const QByteArray file = noise(512 * 100);
    Sender sender(m_peer.get(), "TB", file);
    const QList<QByteArray> replies = sender.sendObeying(2);
    bool whole = false;
    for (const auto &received : m_engine->receivedFiles()) {
        if (received.outcome != Outcome::Whole)
            continue;
        whole = true;
        QVERIFY(received.data == file);
    }
    QCOMPARE(replies.contains(success()), whole);
}

QTEST_GUILESS_MAIN(FailuresTest)
#include "tst_failures.moc"
