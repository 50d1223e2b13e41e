// The ping at start-up: its host, the number of attempts, and the summaries that count as a reply.

#include "control/qconnectqmlplugin.h"
#include "link/ping.h"
#include "support/enginepeer.h"
#include "support/fakeping.h"
#include "support/hex.h"
#include "support/logcatcher.h"
#include "support/texts.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace testsupport;

namespace {

const char answered[] = "PING 127.20.21.107 (127.20.21.107): 56 data bytes\n"
                        "64 bytes from 127.20.21.107: icmp_seq=0 ttl=64 time=0.123 ms\n"
                        "--- 127.20.21.107 ping statistics ---\n"
                        "1 packets transmitted, 1 packets received, 0% packet loss\n"
                        "round-trip min/avg/max/stddev = 0.123/0.123/0.123/0.000 ms\n";
const char lost[] = "PING 127.20.21.107 (127.20.21.107): 56 data bytes\n"
                    "--- 127.20.21.107 ping statistics ---\n"
                    "1 packets transmitted, 0 packets received, 100% packet loss\n";
const char otherSummary[] = "1 packets transmitted, 1 received, 0% packet loss, time 0ms\n";

} // namespace

class PingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void repliesReceived_data();
    void repliesReceived();
    void answerOnAttempt_data();
    void answerOnAttempt();
    void givesUpAfterFiveAttempts_data();
    void givesUpAfterFiveAttempts();
    void noPingProgram();

private:
    // Constructs a module and checks that it works. Returns the duration of the construction in ms, -1 on
    // failure.
    static qint64 startUp(EnginePeer &peer);
};

void PingTest::repliesReceived_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("replies");

    QTest::newRow("inetutils and BusyBox, answered") << QString::fromLatin1(answered) << 1;
    QTest::newRow("inetutils and BusyBox, lost") << QString::fromLatin1(lost) << 0;
    QTest::newRow("iputils, answered") << QString::fromLatin1(otherSummary) << 0;
    QTest::newRow("iputils, lost") << "1 packets transmitted, 0 received, 100% packet loss, time 0ms\n" << 0;
    QTest::newRow("duplicates") << "1 packets transmitted, 1 packets received, +2 duplicates, 0% packet loss"
                                << 1;
    QTest::newRow("many") << "12 packets transmitted, 11 packets received, 8% packet loss" << 11;
    QTest::newRow("no blanks") << "1 packets transmitted,1packets received" << 1;
    QTest::newRow("many blanks") << "1 packets transmitted,  \t 1 \n packets received" << 1;
    QTest::newRow("empty") << "" << 0;
    QTest::newRow("unknown host") << "ping: unknown host\n" << 0;
    QTest::newRow("no number") << "transmitted, packets received" << 0;
    QTest::newRow("text instead of the number") << "1 packets transmitted, some packets received" << 0;
    QTest::newRow("other text before the number") << "transmitted, of them 1 packets received" << 0;
    QTest::newRow("hexadecimal") << "transmitted, 0x1 packets received" << 0;
    QTest::newRow("negative") << "transmitted, -1 packets received" << -1;
    QTest::newRow("beyond an int") << "transmitted, 99999999999 packets received" << 0;
    QTest::newRow("only the first half") << "1 packets transmitted, 1" << 0;
    QTest::newRow("only the second half") << "1 packets received" << 0;
    QTest::newRow("halves in the wrong order") << "1 packets received, 1 packets transmitted," << 0;
    QTest::newRow("an earlier second half")
        << "0 packets received; 1 packets transmitted, 1 packets received" << 1;
    QTest::newRow("upper case") << "1 PACKETS TRANSMITTED, 1 PACKETS RECEIVED" << 0;
}

void PingTest::repliesReceived()
{
    QFETCH(QString, output);
    QFETCH(int, replies);

    QCOMPARE(zelta::pingRepliesReceived(output), replies);
}

qint64 PingTest::startUp(EnginePeer &peer)
{
    QElapsedTimer starting;
    starting.start();
    QConnectQmlPlugin module;
    const qint64 elapsed = starting.elapsed();
    return peer.connectTo(&module) && peer.settle(&module) ? elapsed : -1;
}

void PingTest::answerOnAttempt_data()
{
    QTest::addColumn<QStringList>("outputs");
    QTest::addColumn<int>("attempts");

    QTest::newRow("first") << texts({answered}) << 1;
    QTest::newRow("second, after a loss") << texts({lost, answered}) << 2;
    QTest::newRow("second, after another form of summary") << texts({otherSummary, answered}) << 2;
}

void PingTest::answerOnAttempt()
{
    QFETCH(QStringList, outputs);
    QFETCH(int, attempts);

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    QStringList expected;
    for (int i = 0; i < attempts; ++i)
        expected += QStringLiteral("-c 1 127.20.21.107");
    QStringList calls;
    // On a busy machine an attempt may take more than a second and count as failed, so the test repeats.
    constexpr int tries = 5;
    for (int i = 0; i < tries && calls != expected; ++i) {
        const FakePing ping(outputs);
        const qint64 elapsed = startUp(peer);
        calls = ping.calls();
        // A pause of one second before each further attempt.
        QVERIFY2(elapsed >= (attempts - 1) * 1000, qPrintable(QString::number(elapsed)));
    }
    QCOMPARE(calls, expected);
    QCOMPARE(log.warnings(), QStringList());
}

void PingTest::givesUpAfterFiveAttempts_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<int>("shortestMs");

    QTest::newRow("no answer") << QString::fromLatin1(lost) << 5000;
    QTest::newRow("ping that never ends") << "hang\n" << 10000;
}

void PingTest::givesUpAfterFiveAttempts()
{
    QFETCH(QString, output);
    QFETCH(int, shortestMs);

    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const LogCatcher log;
    const FakePing ping({output});
    const qint64 elapsed = startUp(peer);
    // A pause of one second follows each attempt, so the duration shows that there were at least five.
    QVERIFY2(ping.calls().size() <= 5, qPrintable(QString::number(ping.calls().size())));
    // The ping that hangs sleeps for a minute.
    QVERIFY2(elapsed >= shortestMs && elapsed < 60000, qPrintable(QString::number(elapsed)));
    QCOMPARE(log.debugTexts("zeltaconnect.link"), QStringList());
}

void PingTest::noPingProgram()
{
    EnginePeer peer;
    QVERIFY2(peer.isOpen(), qPrintable(peer.errorString()));
    const NoPing none;
    const qint64 elapsed = startUp(peer);
    QVERIFY2(elapsed >= 5000, qPrintable(QString::number(elapsed)));
}

QTEST_MAIN(PingTest)
#include "tst_ping.moc"
