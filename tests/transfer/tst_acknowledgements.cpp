#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

// What the engine answers while a file is on its way, and at its end. Every case runs all kinds of files.

namespace {

constexpr quint16 dataAck = 0x4443;
constexpr quint16 endAck = 0x4445;
constexpr quint32 answeredPacket = 20;

} // namespace

class tst_Acknowledgements : public QObject
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
    void answersToNothing();

private:
    static void verifyUndisturbed(const RunningTransfers &all);

    TestFiles m_files;
};

void tst_Acknowledgements::refusal_data()
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

// The stream ends, the end packet is sent, and its acknowledgement decides.
void tst_Acknowledgements::refusal()
{
    QFETCH(const int, word);
    QFETCH(const int, endStatus);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 3, quint16(word)}});
        peer.answerEnd({{endAck, 0, quint16(endStatus)}});
    });
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QCOMPARE(stream.fault, QString());
        QVERIFY2(stream.isPlain(stream.numbers.size()), kind.name);
        QVERIFY2(stream.numbers.size() > int(answeredPacket), kind.name);
        QVERIFY2(stream.numbers.size() < running->packets(), kind.name);
        QVERIFY2(running->content.startsWith(stream.content(kind.chunkBytes)), kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(stream.ends.first().mid(4).toHex().toUInt(nullptr, 16), kind.checksum ? stream.sum() : 0U);
        QCOMPARE(
            running->session.difference(running->expected(stream, quint16(endStatus)) << Session::settled()),
            QString());
    }
}

void tst_Acknowledgements::memoryFull_data()
{
    QTest::addColumn<int>("word");

    QTest::newRow("E1") << 0x00E1;
    QTest::newRow("E2") << 0x00E2;
    QTest::newRow("E3") << 0x00E3;
    QTest::newRow("E2 with a number") << 0x12E2;
}

// No end packet. Imports tell with the engine's word; the others tell nothing. What is queued behind stays
// queued until something new comes.
void tst_Acknowledgements::memoryFull()
{
    QFETCH(const int, word);

    const RunningTransfers all = startAllKinds(m_files, [&](TransferPeer &peer) {
        peer.answerQuery(0x534E, {{0x534E, 2, 3}});
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

        QVERIFY2(running->session.settle(), kind.name);
        expected << QStringLiteral("soundbankVersionChanged()") << Session::settled();
        QCOMPARE(running->session.difference(expected), QString());
    }
}

// Each file arrives as if the engine had said nothing on its way.
void tst_Acknowledgements::verifyUndisturbed(const RunningTransfers &all)
{
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        QVERIFY2(running->session.settle(), kind.name);
        const FileStream stream = running->stream();
        QVERIFY2(stream.isPlain(running->packets()), kind.name);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(running->session.difference(running->expected(stream, 0) << Session::settled()), QString());
    }
}

void tst_Acknowledgements::withoutEffect_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");

    QTest::newRow("plain acknowledgement") << 0x4443 << 0 << 0;
    QTest::newRow("acknowledgement with a number") << 0x4443 << 5 << 0x0100;
    QTest::newRow("acknowledgement of the start") << 0x4453 << 0 << 0;
    QTest::newRow("end, before the end") << 0x4445 << 0 << 5;
    QTest::newRow("unknown kind") << 0x4142 << 5 << 0xBE;
    QTest::newRow("kind 0") << 0 << 5 << 0xE1;
}

void tst_Acknowledgements::withoutEffect()
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

// No kind but those of acknowledgements means one, whatever it carries: those that differ in one bit, and
// some of all others.
void tst_Acknowledgements::otherKinds()
{
    const QVector<quint16> known = {0x4443, 0x4445, 0x4652, 0x4254, 0x434F, 0x5357, 0x544D,
                                    0x494D, 0x564E, 0x5456, 0x534E, 0x544E, 0x484C};
    const QVector<quint16> words = {0x00BE, 0x0001, 0x00E0, 0x00E1, 0x01BE};
    EngineEvents events;
    for (int bit = 0; bit < 16; ++bit) {
        for (const quint16 word : words) {
            events.push_back({quint16(dataAck ^ (1 << bit)), 5, word});
            events.push_back({quint16(endAck ^ (1 << bit)), 5, word});
        }
    }
    for (int id = 0; id <= 0xFFFF; id += 0x101 - 2) {
        if (!known.contains(quint16(id)))
            events.push_back({quint16(id), 5, words.at(id % words.size())});
    }
    const RunningTransfers all =
        startAllKinds(m_files, [&](TransferPeer &peer) { peer.answerData(answeredPacket, events); });
    verifyUndisturbed(all);
}

void tst_Acknowledgements::end_data()
{
    QTest::addColumn<QVector<int>>("answer");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("more");

    QTest::newRow("good") << QVector<int>{0x4445, 7, 0} << 0 << QStringList();
    QTest::newRow("checksum error") << QVector<int>{0x4445, 0, 1} << 1 << QStringList();
    QTest::newRow("error above a byte") << QVector<int>{0x4445, 0, 0xABCD} << 0xABCD << QStringList();
    // Whatever is a reply ends the wait.
    QTest::newRow("answered with the engine's version")
        << QVector<int>{0x564E, 1, 4} << 0 << QStringList{QStringLiteral("zeltaVersionChanged()")};
    QTest::newRow("answered with the board's version")
        << QVector<int>{0x5456, 1, 4} << 0 << QStringList{QStringLiteral("triggerVersionChanged()")};
    QTest::newRow("answered with the sound bank's version")
        << QVector<int>{0x534E, 1, 4} << 0 << QStringList{QStringLiteral("soundbankVersionChanged()")};
    QTest::newRow("answered with the trigger bank's version")
        << QVector<int>{0x544E, 1, 4} << 0 << QStringList{QStringLiteral("triggerbankVersionChanged()")};
    QTest::newRow("answered with the pedal's value")
        << QVector<int>{0x484C, 77, 4} << 0 << QStringList{QStringLiteral("hihatRawValueChanged(77)")};
}

void tst_Acknowledgements::end()
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
        QCOMPARE(session.differenceWhenSettled(kind.before + kind.progressed(packets) + more +
                                               kind.completed(quint16(status))),
                 QString());
    }
}

// Nobody waits and nothing is on its way: nothing happens, and nothing is remembered.
void tst_Acknowledgements::answersToNothing()
{
    const RunningTransfers all = startAllKinds(m_files, [](TransferPeer &) {});
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        Session &session = running->session;
        QVERIFY2(session.settle(), kind.name);
        session.forgetSeen();
        const EngineEvents strays = {{dataAck, 5, 0xBE}, {dataAck, 5, 0x01}, {dataAck, 5, 0xE0},
                                     {dataAck, 5, 0xE1}, {dataAck, 0, 0},    {endAck, 0, 5},
                                     {0x4142, 9, 9}};
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
        QVERIFY2(session.settle(), kind.name);
        const FileStream stream(session.peer().received().mid(before), kind.content);
        QVERIFY2(stream.content(kind.chunkBytes) == running->content, kind.name);
        QCOMPARE(session.difference(running->expected(stream, 0) << Session::settled()), QString());
    }
}

QTEST_GUILESS_MAIN(tst_Acknowledgements)
#include "tst_acknowledgements.moc"
