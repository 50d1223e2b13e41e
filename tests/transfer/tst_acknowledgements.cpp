#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

#include <algorithm>
#include <iterator>

// Answers of the engine during and after the data. Every case runs all kinds of files.

namespace {

constexpr Tag dataAck = "DC";
constexpr Tag endAck = "DE";
constexpr quint32 answeredPacket = 20;

} // namespace

class AcknowledgementsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void refusal_data();
    void refusal();
    void memoryFull_data();
    void memoryFull();
    void withoutEffect_data();
    void withoutEffect();
    void otherKinds();
    void end_data();
    void end();
    void endAfterAFailedOne();
    void answersToNothing();

private:
    static void verifyUndisturbed(const RunningTransfers &all);

    TestFiles m_files;
};

void AcknowledgementsTest::refusal_data()
{
    QTest::addColumn<int>("word");
    QTest::addColumn<int>("endStatus");

    for (int code = 0xE0; code <= 0xEF; ++code) {
        if (code >= 0xE1 && code <= 0xE3)
            continue;
        QTest::addRow("code %02X, end good", code) << code << 0;
    }
    QTest::newRow("code E0, end bad") << 0xE0 << 0x0007;
    QTest::newRow("code EF with a number, end bad") << 0x12EF << 0x0100;
}

// The data ends, the end packet is sent, and its acknowledgement decides the status.
void AcknowledgementsTest::refusal()
{
    QFETCH(const int, word);
    QFETCH(const int, endStatus);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 3, quint16(word)}});
        peer.answerEnd({{endAck, 0, quint16(endStatus)}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(stream.fault, QString());
        QVERIFY2(stream.isPlain(stream.numbers.size()), kind.name);
        QVERIFY2(stream.numbers.size() > int(answeredPacket), kind.name);
        QVERIFY2(stream.numbers.size() < running->packets(), kind.name);
        QVERIFY2(running->content.startsWith(stream.content(kind.chunkBytes)), kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(running->session.difference(running->expected(stream, quint16(endStatus))
                                             << Session::tasksFinished()),
                 QString());
    }
}

void AcknowledgementsTest::memoryFull_data()
{
    QTest::addColumn<int>("word");

    QTest::newRow("E1") << 0x00E1;
    QTest::newRow("E2") << 0x00E2;
    QTest::newRow("E3") << 0x00E3;
    QTest::newRow("E2 with a number") << 0x12E2;
}

// No end packet is sent. Imports report the engine's status, other kinds report nothing. The next task stays
// in the queue until another one is queued.
void AcknowledgementsTest::memoryFull()
{
    QFETCH(const int, word);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerQuery("SN", {{"SN", 2, 3}});
        peer.answerData(answeredPacket, {{dataAck, 0, quint16(word)}});
    });
    for (const auto &running : all)
        running->session.plugin().requestSoundBankVersion();
    for (const auto &running : all) {
        const TransferPeer &peer = running->session.peer();
        QVERIFY2(QTest::qWaitFor([&] { return peer.lastDataNumber() >= answeredPacket; }, patienceMs),
                 running->kind.name);
        QVERIFY2(peer.waitUntilSilent(), running->kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        const FileStream stream = running->stream();
        QVERIFY2(stream.isPlain(stream.numbers.size()), kind.name);
        QVERIFY2(stream.numbers.size() > int(answeredPacket), kind.name);
        QVERIFY2(stream.numbers.size() < running->packets(), kind.name);
        QVERIFY2(stream.ends.isEmpty(), kind.name);
        QStringList expected = kind.before + kind.progressed(stream.numbers.size());
        if (kind.passesStatusOn)
            expected += kind.completed(quint16(word));
        QCOMPARE(running->session.difference(expected), QString());
        QVERIFY2(!running->session.peer().received().contains(QByteArray("SN\0\0", 4)), kind.name);

        QVERIFY2(running->session.finishTasks(), kind.name);
        expected << QStringLiteral("soundbankVersionChanged()") << Session::tasksFinished();
        QCOMPARE(running->session.difference(expected), QString());
    }
}

// Each file arrives as if the engine had sent no answer to its data.
void AcknowledgementsTest::verifyUndisturbed(const RunningTransfers &all)
{
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.finishTasks(), kind.name);
        const FileStream stream = running->stream();
        QVERIFY2(stream.isPlain(running->packets()), kind.name);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(running->session.difference(running->expected(stream, 0) << Session::tasksFinished()),
                 QString());
    }
}

void AcknowledgementsTest::withoutEffect_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");

    const auto row = [](const char *name, Tag id, int a, int b) {
        QTest::newRow(name) << int(id) << a << b;
    };
    row("plain acknowledgement", "DC", 0, 0);
    row("acknowledgement with a number", "DC", 5, 0x0100);
    row("acknowledgement of the start", "DS", 0, 0);
    row("end, before the end", "DE", 0, 5);
    row("unknown kind", "AB", 5, 0xBE);
    row("kind 0", 0, 5, 0xE1);
}

void AcknowledgementsTest::withoutEffect()
{
    QFETCH(const int, id);
    QFETCH(const int, a);
    QFETCH(const int, b);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerStart({{quint16(id), quint16(a), quint16(b)}});
        peer.answerData(answeredPacket, {{quint16(id), quint16(a), quint16(b)}});
    });
    verifyUndisturbed(all);
}

// Events with any other tag are not acknowledgements: tags that differ in one bit, and a selection of all
// others.
void AcknowledgementsTest::otherKinds()
{
    constexpr Tag known[] = {"DC", "DE", "FR", "BT", "CO", "SW", "TM", "IM", "VN", "TV", "SN", "TN", "HL"};
    const QVector<quint16> words = {0x00BE, 0x0001, 0x00E0, 0x00E1, 0x01BE};
    EngineEvents events;
    for (int bit = 0; bit < 16; ++bit) {
        for (const quint16 word : words) {
            events.push_back({quint16(dataAck ^ (1 << bit)), 5, word});
            events.push_back({quint16(endAck ^ (1 << bit)), 5, word});
        }
    }
    for (int id = 0; id <= 0xFFFF; id += 0x101 - 2) {
        if (std::find(std::begin(known), std::end(known), id) == std::end(known))
            events.push_back({quint16(id), 5, words.at(id % words.size())});
    }
    const RunningTransfers all =
        startAllKinds(m_files, [&](TransferPeer &peer) { peer.answerData(answeredPacket, events); });
    verifyUndisturbed(all);
}

void AcknowledgementsTest::end_data()
{
    QTest::addColumn<QVector<int>>("answer");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("more");

    QTest::newRow("good") << QVector<int>{Tag("DE"), 7, 0} << 0 << QStringList();
    QTest::newRow("checksum error") << QVector<int>{Tag("DE"), 0, 1} << 1 << QStringList();
    QTest::newRow("error above a byte") << QVector<int>{Tag("DE"), 0, 0xABCD} << 0xABCD << QStringList();
    // Any reply ends the wait.
    QTest::newRow("answered with the engine's version")
        << QVector<int>{Tag("VN"), 1, 4} << 0 << QStringList{QStringLiteral("zeltaVersionChanged()")};
    QTest::newRow("answered with the board's version")
        << QVector<int>{Tag("TV"), 1, 4} << 0 << QStringList{QStringLiteral("triggerVersionChanged()")};
    QTest::newRow("answered with the sound bank's version")
        << QVector<int>{Tag("SN"), 1, 4} << 0 << QStringList{QStringLiteral("soundbankVersionChanged()")};
    QTest::newRow("answered with the trigger bank's version")
        << QVector<int>{Tag("TN"), 1, 4} << 0 << QStringList{QStringLiteral("triggerbankVersionChanged()")};
    QTest::newRow("answered with the pedal's value")
        << QVector<int>{Tag("HL"), 77, 4} << 0 << QStringList{QStringLiteral("hihatRawValueChanged(77)")};
}

void AcknowledgementsTest::end()
{
    QFETCH(const QVector<int>, answer);
    QFETCH(const int, status);
    QFETCH(const QStringList, more);

    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        Session session;
        answerOldVersions(session.peer());
        session.peer().answerEnd({{quint16(answer.at(0)), quint16(answer.at(1)), quint16(answer.at(2))}});
        kind.send(session.plugin(), m_files.write(kind.fileName, kind.file(600)));
        const int packets = kind.chunkBytes == 512 ? 2 : 1;
        QCOMPARE(session.differenceWhenFinished(kind.before + kind.progressed(packets) + more +
                                                kind.completed(quint16(status))),
                 QString());
    }
}

// The status of a file is not that of the file before. The reply to a query ends the wait of the second file
// without a status of its own.
void AcknowledgementsTest::endAfterAFailedOne()
{
    const auto kinds = quickKinds();
    for (const TransferKind &kind : kinds) {
        Session session;
        answerOldVersions(session.peer());
        session.peer().answerEnd({{endAck, 0, 7}});
        const QString path = m_files.write(kind.fileName, kind.file(kind.chunkBytes));
        kind.send(session.plugin(), path);
        QCOMPARE(session.differenceWhenFinished(kind.before + kind.progressed(1) + kind.completed(7)),
                 QString());

        session.forgetSeen();
        session.peer().answerEnd({{"TN", 1, 4}});
        kind.send(session.plugin(), path);
        QCOMPARE(session.differenceWhenFinished(kind.before + kind.progressed(1) +
                                                QStringList{QStringLiteral("triggerbankVersionChanged()")} +
                                                kind.completed(0)),
                 QString());
    }
}

// Answers without a transfer have no effect, also not on the next transfer.
void AcknowledgementsTest::answersToNothing()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &) {});
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        Session &session = running->session;
        QVERIFY2(session.finishTasks(), kind.name);
        session.forgetSeen();
        const EngineEvents strays = {{dataAck, 5, 0xBE}, {dataAck, 5, 0x01}, {dataAck, 5, 0xE0},
                                     {dataAck, 5, 0xE1}, {dataAck, 0, 0},    {endAck, 0, 5},
                                     {"AB", 9, 9}};
        for (const EngineEvent &event : strays)
            session.peer().raise(event);
        QVERIFY(session.waitFor(QStringLiteral("udpPacketArrived(16706, 9, 9)")));
        QCOMPARE(session.difference({}), QString());
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        Session &session = running->session;
        const int before = session.peer().received().size();
        kind.send(session.plugin(), running->path);
        QVERIFY2(session.finishTasks(), kind.name);
        const FileStream stream(session.peer().received().mid(before), kind.content);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(session.difference(running->expected(stream, 0) << Session::tasksFinished()), QString());
    }
}

QTEST_GUILESS_MAIN(AcknowledgementsTest)
#include "tst_acknowledgements.moc"
