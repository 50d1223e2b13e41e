#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

// The engine wants packets again. The stream pauses for four seconds before it starts over, so each case runs
// all kinds of files at once.

namespace {

constexpr quint16 dataAck = 0x4443;
constexpr quint32 answeredPacket = 20;
constexpr int firstWanted = 18;

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

// Every low byte that is neither 0 nor a refusal asks for packets again; only BE is counted. Each request
// costs a pause, so every engine makes some of them, and many do so side by side. They begin one after the
// other, so that few streams flow at a time while the others pause.
void tst_Resends::everyOtherCode()
{
    constexpr int codesEach = 8;
    QVector<int> codes;
    for (int code = 0x01; code <= 0xFF; ++code) {
        if (code != 0xBE && (code & 0xF0) != 0xE0)
            codes.append(code);
    }
    QCOMPARE(codes.size(), 238);

    const TransferKind soundBank = quickKinds().at(1);
    const QByteArray content = soundBank.file(soundBank.chunkBytes * soundBank.packetsFor(5000));
    const QString path = m_files.write(QStringLiteral("codes/") + soundBank.fileName, content);
    std::vector<std::unique_ptr<Session>> sessions;
    for (int first = 0; first < codes.size(); first += codesEach) {
        sessions.push_back(std::make_unique<Session>());
        TransferPeer &peer = sessions.back()->peer();
        // When packet 20 comes, packet 18 is wanted; when that comes again, packet 17, and so on; at last no
        // more is wanted.
        const auto asked = std::make_shared<int>(0);
        peer.watch([&peer, asked, wanted = codes.mid(first, codesEach)](const QByteArray &datagram) {
            const int last = firstWanted + 1 - *asked;
            const quint32 awaited = *asked == 0 ? answeredPacket : quint32(last);
            if (!datagram.startsWith("DCSB") || datagram.mid(4, 4).toHex().toUInt(nullptr, 16) != awaited)
                return;
            if (*asked < wanted.size())
                peer.raise({dataAck, quint16(last - 1), quint16(wanted.at(*asked))});
            else if (*asked == wanted.size())
                peer.raise({dataAck, 0, 0xE0});
            ++*asked;
        });
    }
    for (const auto &session : sessions) {
        soundBank.send(session->plugin(), path);
        QVERIFY(
            QTest::qWaitFor([&] { return session->peer().lastDataNumber() >= answeredPacket; }, patienceMs));
    }
    for (int i = 0; i < int(sessions.size()); ++i) {
        Session &session = *sessions.at(std::size_t(i));
        const QByteArray name = "from code " + QByteArray::number(codes.at(i * codesEach), 16);
        QVERIFY2(session.settle(), name);
        const FileStream stream(session.peer().received(), soundBank.content);
        QVector<quint32> restarts;
        for (int packet = 1; packet < stream.numbers.size(); ++packet) {
            if (stream.numbers.at(packet) != stream.numbers.at(packet - 1) + 1)
                restarts.append(stream.numbers.at(packet));
        }
        const int count = qMin(codesEach, codes.size() - i * codesEach);
        QVERIFY2(restarts == (QVector<quint32>{18, 17, 16, 15, 14, 13, 12, 11}).mid(0, count), name);
        QCOMPARE(stream.ends.size(), 1);
        QCOMPARE(session.difference(soundBank.progressed(stream.numbers.size()) + soundBank.completed(0, 0) +
                                    QStringList{Session::settled()}),
                 QString());
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
        // The second request is about the stream after the first one's pause.
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
        QVERIFY2(running->session.peer().waitForPrefix("DC" + QByteArray(kind.content) + numberAndLength,
                                                       patienceMs),
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
    QVERIFY(running.session.waitFor(sample.completed(5).constFirst()));
}

// The engine needs the time to be ready for what comes again.
void tst_Resends::pauseBeforeTheResend()
{
    constexpr qint64 resendPauseMs = 4000;
    qint64 askedMs = -1;
    qint64 againMs = -1;
    QElapsedTimer clock;
    clock.start();
    // Its stream stands still for the shortest time, so the request is met at once.
    const TransferKind bluetooth = quickKinds().constLast();
    RunningTransfer running(bluetooth, m_files, [&](TransferPeer &peer) {
        peer.answerData(answeredPacket, {{dataAck, 5, 0xBE}});
        // Sees a packet before it is answered.
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
    QVERIFY(running.session.settle());
    running.session.peer().watch({});
    QVERIFY(askedMs >= 0 && againMs >= 0);
    QVERIFY2(againMs - askedMs >= resendPauseMs, QByteArray::number(againMs - askedMs));
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
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        const TransferPeer &peer = running->session.peer();
        QVERIFY2(QTest::qWaitFor([&] { return jump(FileStream(peer.received(), kind.content).numbers) > 0; },
                                 patienceMs),
                 kind.name);
    }
    for (const auto &running : all) {
        const TransferKind &kind = running->kind;
        // What is queued takes an abort back, so the sender has to be through with it.
        QVERIFY2(running->session.peer().waitUntilSilent(), kind.name);
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
