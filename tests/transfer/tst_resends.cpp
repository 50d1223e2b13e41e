#include "progressvalues.h"
#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

#include <memory>

// The engine requests packets again. The stream pauses for four seconds before a resend, so each case runs
// all kinds of files at once.

namespace {

constexpr Tag dataAck = "DC";
constexpr quint32 answeredPacket = 20;

} // namespace

class ResendsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resend_data();
    void resend();
    void twoRequestsTogether();
    void twoRequestsInTurn();
    void pastTheEnd_data();
    void pastTheEnd();
    void pastTheEndThenAnotherTask();
    void pastTheEndAfterAnError();
    void requestDuringTheEndWait();

private:
    TestFiles m_files;
};

void ResendsTest::resend_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<quint32>("from");
    QTest::addColumn<int>("counted");

    QTest::newRow("requested") << 0xBE << 5U << 1;
    QTest::newRow("requested from the first packet") << 0xBE << 0U << 1;
    QTest::newRow("one chunk missed") << 0x01 << 5U << 0;
}

void ResendsTest::resend()
{
    QFETCH(const int, code);
    QFETCH(const quint32, from);
    QFETCH(const int, counted);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, quint16(from), quint16(code)}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(stream.fault, QString());

        // All packets to some packet after the answered one, then from the requested one to the end.
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > int(answeredPacket), kind.name);
        QCOMPARE(stream.numbers.first(), 0U);
        QCOMPARE(stream.numbers.at(restart), from);
        QCOMPARE(stream.numbers.last(), quint32(running->packets() - 1));
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.size(), 1);
        // Chunks that were sent twice count twice.
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(
            running->session.difference(running->expected(stream, 0, counted) << Session::tasksFinished()),
            QString());
    }
}

// The second request arrives before or during the pause. There is one resend, and both requests are counted.
void ResendsTest::twoRequestsTogether()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}, {dataAck, 9, 0xBE}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > int(answeredPacket), kind.name);
        QVERIFY2(stream.numbers.at(restart) == 5 || stream.numbers.at(restart) == 9, kind.name);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::tasksFinished()),
                 QString());
    }
}

void ResendsTest::twoRequestsInTurn()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        // The second request follows the resend of the first one.
        const auto fifths = std::make_shared<int>(0);
        peer.watch([&peer, fifths](const QByteArray &datagram) {
            const bool isFifth =
                datagram.startsWith("DC") && datagram.mid(4, 4) == QByteArray("\0\0\0\x05", 4);
            if (isFifth && ++*fifths == 2)
                peer.answerData(60, {{dataAck, 50, 0xBE}});
        });
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), -2);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::tasksFinished()),
                 QString());
    }
}

void ResendsTest::pastTheEnd_data()
{
    QTest::addColumn<quint16>("low");
    QTest::addColumn<quint16>("high");
    QTest::addColumn<QByteArray>("number");

    QTest::newRow("24 bits") << quint16(0x0005) << quint16(0x01BE) << QByteArray("00010005");
    // A position beyond 32 bits; its low 32 bits are the beginning of the file.
    QTest::newRow("4 GiB") << quint16(0x0000) << quint16(0x80BE) << QByteArray("00800000");
}

// Nothing can be read there, so an empty packet is sent and the transfer is aborted without an end packet.
void ResendsTest::pastTheEnd()
{
    QFETCH(const quint16, low);
    QFETCH(const quint16, high);
    QFETCH(const QByteArray, number);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, low, high}});
    });
    const QByteArray numberAndLength = QByteArray::fromHex(number) + QByteArray(2, '\0');
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.peer().waitForPrefix("DC" + QByteArray(kind.content) + numberAndLength,
                                                       patienceMs),
                 kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        // A new task would withdraw the abort, so the transfer must have ended before.
        QVERIFY2(running->session.peer().waitUntilSilent(), kind.name);
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), stream.numbers.size() - 1);
        QCOMPARE(stream.lastData.toHex(), "4443" + QByteArray(kind.content).toHex() + number + "0000");
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(0);
        QCOMPARE(running->session.difference(expected << Session::tasksFinished()), QString());
    }
}

// The file stays aborted although the next task is queued at once: no end packet follows the empty packet.
// Its number is the last one before a pause, so the task is queued before the transfer ends.
void ResendsTest::pastTheEndThenAnotherTask()
{
    constexpr quint32 beyondTheEnd = 0x010003;
    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerQuery("SN", {{"SN", 2, 3}});
        peer.answerData(answeredPacket, {{dataAck, 0x0003, 0x01BE}});
    });
    std::vector<std::unique_ptr<ProgressValues>> progress;
    for (const auto &running : all) {
        QConnectQmlPlugin &plugin = running->session.plugin();
        progress.push_back(std::make_unique<ProgressValues>(plugin));
        running->session.peer().watch([&plugin](const QByteArray &datagram) {
            if (datagram.startsWith("DC") && datagram.mid(4, 4) == QByteArray("\0\x01\0\x03", 4))
                QMetaObject::invokeMethod(&plugin, [&plugin] { plugin.requestSoundBankVersion(); });
        });
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        RunningTransfer &running = *all.at(i);
        const TransferKind &kind = running.kind;
        QVERIFY2(running.session.waitFor(QStringLiteral("soundbankVersionChanged()")), kind.name);
        QVERIFY2(running.session.finishTasks(), kind.name);
        const FileStream stream = running.stream();
        QCOMPARE(stream.numbers.last(), beyondTheEnd);
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(0);
        expected << QStringLiteral("soundbankVersionChanged()") << Session::tasksFinished();
        QCOMPARE(running.session.difference(expected), QString());
        // The position that the engine asked for, as a fraction of the file.
        if (!kind.progress.isEmpty() && qstrcmp(kind.content, "BF") != 0)
            QCOMPARE(progress.at(i)->values.last(),
                     double(beyondTheEnd) * kind.chunkBytes / running.content.size());
    }
    for (const auto &running : all)
        running->session.peer().watch({});
}

// An import that is aborted without a status of the engine reports the status of the previous transfer.
void ResendsTest::pastTheEndAfterAnError()
{
    const TransferKind sample = quickKinds().at(4);
    RunningTransfer running(sample, m_files, [](TransferPeer &peer) { peer.answerEnd({{"DE", 0, 5}}); });
    const QString small = m_files.write(QStringLiteral("small/") + sample.fileName, sample.file(10));
    sample.send(running.session.plugin(), small);
    QCOMPARE(running.session.differenceWhenFinished(sample.progressed(1) + sample.completed(5)), QString());

    running.session.forgetSeen();
    running.session.peer().answerData(answeredPacket, {{dataAck, 0x0005, 0x01BE}});
    running.start();
    QVERIFY(running.session.waitFor(sample.completed(5).constFirst()));
}

// A request that arrives after the end packet is counted, and nothing is sent again.
void ResendsTest::requestDuringTheEndWait()
{
    const TransferKind soundBank = quickKinds().at(1);
    RunningTransfer running(soundBank, m_files, [](TransferPeer &peer) {
        peer.answerEnd({{dataAck, 5, 0xBE}, {dataAck, 6, 0xBE}, {"DE", 0, 0}});
    });
    running.start();
    QVERIFY(running.session.finishTasks());
    const FileStream stream = running.stream();
    QVERIFY(stream.isPlain(running.packets()));
    QCOMPARE(stream.ends.size(), 1);
    QCOMPARE(running.session.difference(running.expected(stream, 0, 2) << Session::tasksFinished()),
             QString());
}

QTEST_GUILESS_MAIN(ResendsTest)
#include "tst_resends.moc"
