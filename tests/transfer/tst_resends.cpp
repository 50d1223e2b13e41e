#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>

// The engine wants packets again. The stream pauses for four seconds before it starts over, so each case runs
// all kinds of files at once.

namespace {

constexpr quint16 dataAck = 0x4443;
constexpr quint32 answeredPacket = 20;

} // namespace

class tst_Resends : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void resend_data();
    void resend();
    void everyOtherCode();
    void twoRequestsTogether();
    void twoRequestsInTurn();
    void pastTheEnd_data();
    void pastTheEnd();
    void pastTheEndAfterAnError();
    void pauseBeforeTheResend();
    void requestDuringTheEndWait();
    void requestDuringThePause();
    void refusalDuringThePause();
    void memoryFullDuringThePause();

private:
    TestFiles m_files;
};

void tst_Resends::resend_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<quint32>("from");
    QTest::addColumn<int>("counted");

    QTest::newRow("requested") << 0xBE << 5U << 1;
    QTest::newRow("requested from the first packet") << 0xBE << 0U << 1;
    QTest::newRow("one chunk missed") << 0x01 << 5U << 0;
}

void tst_Resends::resend()
{
    QFETCH(const int, code);
    QFETCH(const quint32, from);
    QFETCH(const int, counted);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, quint16(from), quint16(code)}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(stream.fault, QString());

        // Everything up to somewhere behind the answered packet, then from the wanted one to the end.
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > int(answeredPacket), kind.name);
        QCOMPARE(stream.numbers.first(), 0U);
        QCOMPARE(stream.numbers.at(restart), from);
        QCOMPARE(stream.numbers.last(), quint32(running->packets() - 1));
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.size(), 1);
        // What came twice counts twice.
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(running->session.difference(running->expected(stream, 0, counted) << Session::settled()),
                 QString());
    }
}

// Every low byte that is neither 0 nor a refusal asks for packets again; only BE is counted.
void tst_Resends::everyOtherCode()
{
    const TransferKind soundBank = quickKinds().at(1);
    QVector<int> codes = {0x01, 0x02, 0x0E, 0x10, 0x7F, 0x80, 0xBD, 0xBF, 0xC0, 0xDF, 0xF0, 0xF1, 0xFE, 0xFF};
    RunningTransfers all;
    for (const int code : qAsConst(codes)) {
        all.push_back(std::make_unique<RunningTransfer>(soundBank, m_files, [&](TransferPeer &peer) {
            peer.answerData(answeredPacket, {{dataAck, 5, quint16(code)}});
        }));
    }
    for (const auto &running : all)
        running->start();
    for (int i = 0; i < codes.size(); ++i) {
        const RunningTransfer &running = *all.at(std::size_t(i));
        const QByteArray code = QByteArray::number(codes.at(i), 16);
        QVERIFY2(running.session.settle(), code);
        const FileStream stream = running.stream();
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > 0 && stream.numbers.at(restart) == 5, code);
        QVERIFY2(stream.content(soundBank.chunkBytes) == running.content, code);
        QCOMPARE(running.session.difference(running.expected(stream, 0, 0) << Session::settled()), QString());
    }
}

// Whether the second request still finds the stream before its pause or within it, there is one resend, and
// both are counted.
void tst_Resends::twoRequestsTogether()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}, {dataAck, 9, 0xBE}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > int(answeredPacket), kind.name);
        QVERIFY2(stream.numbers.at(restart) == 5 || stream.numbers.at(restart) == 9, kind.name);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::settled()),
                 QString());
    }
}

void tst_Resends::twoRequestsInTurn()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerData(600, {{dataAck, 590, 0xBE}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), -2);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::settled()),
                 QString());
    }
}

void tst_Resends::pastTheEnd_data()
{
    QTest::addColumn<quint16>("low");
    QTest::addColumn<quint16>("high");
    QTest::addColumn<QByteArray>("number");

    QTest::newRow("24 bits") << quint16(0x0005) << quint16(0x01BE) << QByteArray("00010005");
    // A place that 32 bits do not hold: it would be the beginning of the file.
    QTest::newRow("4 GiB") << quint16(0x0000) << quint16(0x80BE) << QByteArray("00800000");
}

// There is nothing to read there, so an empty packet goes out and the transfer is given up without an end
// packet.
void tst_Resends::pastTheEnd()
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
        QVERIFY2(
            running->session.peer().waitForPrefix("DC" + QByteArray(kind.content) + numberAndLength, 20000),
            kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        // What is queued takes an abort back, so the sender has to be through with it.
        QVERIFY2(running->session.peer().waitUntilSilent(), kind.name);
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), stream.numbers.size() - 1);
        QCOMPARE(stream.lastData.toHex(), "4443" + QByteArray(kind.content).toHex() + number + "0000");
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(0);
        QCOMPARE(running->session.difference(expected << Session::settled()), QString());
    }
}

// An import that is given up without a word of the engine reports the one before.
void tst_Resends::pastTheEndAfterAnError()
{
    const TransferKind sample = quickKinds().at(4);
    RunningTransfer running(sample, m_files, [](TransferPeer &peer) { peer.answerEnd({{0x4445, 0, 5}}); });
    const QString small = m_files.write(QStringLiteral("small/") + sample.fileName, sample.file(10));
    sample.send(running.session.plugin(), small);
    QCOMPARE(running.session.differenceWhenSettled(sample.progressed(1) + sample.completed(5)), QString());

    running.session.forgetSeen();
    running.session.peer().answerData(answeredPacket, {{dataAck, 0x0005, 0x01BE}});
    running.start();
    QVERIFY(running.session.waitFor(sample.completed(5).constFirst(), 20000));
}

// The engine needs the time to be ready for what comes again.
void tst_Resends::pauseBeforeTheResend()
{
    constexpr qint64 resendPauseMs = 4000;
    QVector<qint64> arrivals;
    QElapsedTimer clock;
    clock.start();
    const TransferKind triggerBank = quickKinds().at(2);
    RunningTransfer running(triggerBank, m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.watch([&](const QByteArray &datagram) {
            if (datagram.startsWith("DC"))
                arrivals.append(clock.elapsed());
        });
    });
    running.start();
    QVERIFY(running.session.settle());
    running.session.peer().watch({});
    const int restart = jump(running.stream().numbers);
    QVERIFY(restart > 0 && restart < arrivals.size());
    const qint64 pauseMs = arrivals.at(restart) - arrivals.at(restart - 1);
    QVERIFY2(pauseMs >= resendPauseMs - 50, QByteArray::number(pauseMs));
}

// A request that comes when all is sent is counted, and nothing is sent again.
void tst_Resends::requestDuringTheEndWait()
{
    const TransferKind soundBank = quickKinds().at(1);
    RunningTransfer running(soundBank, m_files, [](TransferPeer &peer) {
        peer.answerEnd({{dataAck, 5, 0xBE}, {dataAck, 6, 0xBE}, {0x4445, 0, 0}});
    });
    running.start();
    QVERIFY(running.session.settle());
    const FileStream stream = running.stream();
    QVERIFY(stream.isPlain(running.packets()));
    QCOMPARE(stream.ends.size(), 1);
    QCOMPARE(running.session.difference(running.expected(stream, 0, 2) << Session::settled()), QString());
}

// What is asked for during the pause is counted and nothing else.
void tst_Resends::requestDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 2, 0xBE}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        const int restart = jump(stream.numbers);
        QVERIFY2(restart > 0, kind.name);
        QCOMPARE(stream.numbers.at(restart), 5U);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 2) << Session::settled()),
                 QString());
    }
}

// No further data packet, but an end packet.
void tst_Resends::refusalDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 0, 0xE0}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QVERIFY2(stream.isPlain(stream.numbers.size()), kind.name);
        QVERIFY2(stream.numbers.size() < running->packets(), kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(running->session.difference(running->expected(stream, 0, 1) << Session::settled()),
                 QString());
    }
}

// The packet that the pause was for still goes out, then the transfer is given up.
void tst_Resends::memoryFullDuringThePause()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        peer.answerPause({{dataAck, 0, 0xE1}});
    });
    // A task that is queued takes an abort back, so settling has to wait until the abort has had its effect.
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        const TransferPeer &peer = running->session.peer();
        QVERIFY2(QTest::qWaitFor([&] { return jump(FileStream(peer.received(), kind.content).numbers) > 0; },
                                 20000),
                 kind.name);
        if (kind.passesStatusOn)
            QVERIFY2(running->session.waitFor(kind.completed(0xE1).constFirst()), kind.name);
        else if (!kind.progress.isEmpty())
            QVERIFY2(QTest::qWaitFor(
                         [&] {
                             const int packets = running->stream().numbers.size();
                             return running->session.seen() == kind.before + kind.progressed(packets);
                         },
                         10000),
                     kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(jump(stream.numbers), stream.numbers.size() - 1);
        QCOMPARE(stream.numbers.last(), 5U);
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(0xE1);
        QCOMPARE(running->session.difference(expected << Session::settled()), QString());
    }
}

QTEST_GUILESS_MAIN(tst_Resends)
#include "tst_resends.moc"
