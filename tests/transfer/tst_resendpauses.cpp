#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QTest>

// The pause of four seconds before a resend. Each case runs all kinds of files at once.

namespace {

constexpr Tag dataAck = "DC";
constexpr quint32 answeredPacket = 20;

} // namespace

class ResendPausesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pauseBeforeTheResend();
    void progressBeforeThePause();
    void requestDuringThePause();
    void refusalDuringThePause();
    void memoryFullDuringThePause();

private:
    TestFiles m_files;
};

// The pause lasts at least four seconds.
void ResendPausesTest::pauseBeforeTheResend()
{
    constexpr qint64 resendPauseMs = 4000;
    qint64 askedMs = -1;
    qint64 againMs = -1;
    QElapsedTimer clock;
    clock.start();
    // The kind with the shortest pauses notices the request first.
    const TransferKind bluetooth = quickKinds().constLast();
    RunningTransfer running(bluetooth, m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        // Called before the answer.
        peer.watch([&](const QByteArray &datagram) {
            if (!datagram.startsWith("DC"))
                return;
            const QByteArray number = datagram.mid(4, 4).toHex();
            if (number == "00000014" && askedMs < 0)
                askedMs = clock.elapsed();
            else if (number == "00000005" && askedMs >= 0)
                againMs = clock.elapsed();
        });
    });
    running.start();
    QVERIFY(running.session.finishTasks());
    running.session.peer().watch({});
    QVERIFY(askedMs >= 0 && againMs >= 0);
    QVERIFY2(againMs - askedMs >= resendPauseMs, QByteArray::number(againMs - askedMs));
}

// Progress is reported before the pause, not after it. After the signals of the first ten packets the GUI
// thread holds the lock that a packet needs, so that it handles the request before the next ten packets are
// sent.
void ResendPausesTest::progressBeforeThePause()
{
    constexpr int filesToCheck = 100000;
    constexpr qint64 reportedBeforeMs = 1000;
    QStringList files;
    const TransferKind bluetooth = quickKinds().constLast();
    for (int i = 0; i < 3; ++i) {
        RunningTransfer running(bluetooth, m_files, [](TransferPeer &peer) {
            peer.answerData(9, {{dataAck, 5, 0xBE}});
        });
        while (files.size() < filesToCheck)
            files.append(running.path);
        QVector<qint64> reportedMs;
        QConnectQmlPlugin &plugin = running.session.plugin();
        connect(&plugin, &QConnectQmlPlugin::btfwProgressChanged, this, [&] {
            reportedMs.append(QDateTime::currentMSecsSinceEpoch());
            if (reportedMs.size() == 10)
                QCOMPARE(plugin.checkBtFw(files), 0);
        });
        running.start();
        QVERIFY(running.session.finishTasks());
        const int restart = jump(running.stream().numbers);
        QVERIFY(restart > 0);
        // The start packet comes before the data.
        const qint64 resentMs = running.session.peer().receivedAtNs().at(restart + 1) / 1000000;
        QVERIFY2(resentMs - reportedMs.at(restart - 1) > reportedBeforeMs,
                 QByteArray::number(resentMs - reportedMs.at(restart - 1)));
    }
}

// A request during the pause is counted and has no other effect.
void ResendPausesTest::requestDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 2, 0xBE}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > 0, kind.name);
        QCOMPARE(stream.numbers.at(restart), 5U);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::tasksFinished()),
                 QString());
    }
}

// No further data packet is sent, but an end packet.
void ResendPausesTest::refusalDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 0, 0xE0}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QVERIFY2(stream.isPlain(stream.numbers.size()), kind.name);
        QVERIFY2(stream.numbers.size() < running->packets(), kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 1) << Session::tasksFinished()),
                 QString());
    }
}

// The packet after the pause is still sent, then the transfer is aborted.
void ResendPausesTest::memoryFullDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 0, 0xE1}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        const TransferPeer &peer = running->session.peer();
        QVERIFY2(QTest::qWaitFor([&] { return jump(FileStream(peer.received(), kind.content).numbers) > 0; },
                                 patienceMs),
                 kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        // A new task would withdraw the abort, so the transfer must have ended before.
        QVERIFY2(running->session.peer().waitUntilSilent(), kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), stream.numbers.size() - 1);
        QCOMPARE(stream.numbers.last(), 5U);
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(0xE1);
        QCOMPARE(running->session.difference(expected << Session::tasksFinished()), QString());
    }
}

QTEST_GUILESS_MAIN(ResendPausesTest)
#include "tst_resendpauses.moc"
