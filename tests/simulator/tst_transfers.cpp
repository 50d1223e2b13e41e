// Files that arrive complete, and files that do not.
#include "sender.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

using Outcome = SoundEngine::ReceivedFile::Outcome;

class TransfersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void takesEveryKindAndSize_data();
    void takesEveryKindAndSize();
    void takesExactlyTheseBytes();
    void keepsTheDataOfTheLatestFiles();
    void keepsNameAndSlot();
    void storesFiles();
    void doesNotStoreUnfinishedFilesAsWhole();
    void asksOnceForEachGap();
    void asksAgainWhenThePacketIsLostAgain();
    void asksWithTwentyFourBits();
    void countsLostPacketsInTheChecksum();
    void refusesBadFiles_data();
    void refusesBadFiles();
    void countsViolations_data();
    void countsViolations();
    void toleratesTheEmptyPacketOfAnAbort();
    void forgetsAnAbandonedTransfer();

private:
    const SoundEngine::ReceivedFile &last() const { return m_engine->receivedFiles().constLast(); }

    std::unique_ptr<SoundEngine> m_engine;
    std::unique_ptr<Peer> m_peer;
};

namespace {

QByteArray success()
{
    return datagram("DE AC 0000 0000");
}

QByteArray checksumError()
{
    return datagram("DE AC 0000 0001");
}

QByteArray incomplete()
{
    return datagram("DE AC 0000 0002");
}

} // namespace

void TransfersTest::init()
{
    m_engine = std::make_unique<SoundEngine>();
    QVERIFY(Peer::listen(m_engine.get()));
    m_peer = std::make_unique<Peer>(m_engine.get());
}

void TransfersTest::cleanup()
{
    m_peer.reset();
    m_engine.reset();
}

void TransfersTest::takesEveryKindAndSize_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("size");
    for (const char *content : {"FW", "TF", "SB", "TB", "IS", "IW", "BF"}) {
        const int chunk = qstrcmp(content, "SB") == 0 ? 1024 : 512;
        for (int size : {0, 1, chunk - 1, chunk, chunk + 1, 10 * chunk, 10 * chunk + 1})
            QTest::addRow("%s, %d bytes", content, size) << QByteArray(content) << size;
    }
}

void TransfersTest::takesEveryKindAndSize()
{
    QFETCH(QByteArray, content);
    QFETCH(int, size);
    const QByteArray file = noise(size);
    Sender sender(m_peer.get(), content.constData(), file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, sender.count() - 1));
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QCOMPARE(m_engine->violations(), QStringList());
    QCOMPARE(m_engine->receivedFiles().size(), 1);
    QVERIFY(last().outcome == Outcome::Whole);
    QCOMPARE(last().content, QString::fromLatin1(content));
    QCOMPARE(last().slot, -1);
    QCOMPARE(last().size, quint32(size));
    QVERIFY(last().data == file);
    QCOMPARE(last().packets, quint32(sender.count()));
    QCOMPARE(last().repeatedPackets, quint32(0));
}

void TransfersTest::takesExactlyTheseBytes()
{
    // Three bytes 01 02 03, padded to two words: 0x0102 + 0x0300 = 0x0402.
    QVERIFY(m_peer->send("DS TB 00000003"));
    QVERIFY(m_peer->send("DC TB 00000000 0002 01020300"));
    QVERIFY(m_peer->send("DE TB 00000402"));
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QCOMPARE(last().data, hex("01 02 03"));
    QCOMPARE(m_engine->violations(), QStringList());
}

void TransfersTest::keepsTheDataOfTheLatestFiles()
{
    const auto sendFileOf = [this](int size) {
        const QByteArray file = noise(size);
        Sender sender(m_peer.get(), "TB", file);
        sender.sendObeying(0);
        return file;
    };
    const auto &files = m_engine->receivedFiles();
    m_engine->setKeptBytes(3000);
    sendFileOf(1500);
    const QByteArray second = sendFileOf(1000);
    const QByteArray third = sendFileOf(2000);
    QCOMPARE(files.size(), 3);
    QCOMPARE(files.at(0).data, QByteArray());
    QVERIFY(files.at(1).data == second);
    QVERIFY(files.at(2).data == third);
    // Everything else about the file is kept.
    QCOMPARE(files.at(0).outcome, Outcome::Whole);
    QCOMPARE(files.at(0).received, qint64(1500));
    QCOMPARE(files.at(0).packets, quint32(3));

    // A file that is too large is received without its data. The data of other files is kept.
    sendFileOf(3001);
    QCOMPARE(files.size(), 4);
    QCOMPARE(files.at(3).outcome, Outcome::Whole);
    QCOMPARE(files.at(3).data, QByteArray());
    QVERIFY(files.at(2).data == third);

    m_engine->setKeptBytes(0);
    for (const SoundEngine::ReceivedFile &file : files)
        QCOMPARE(file.data, QByteArray());
    sendFileOf(1);
    QCOMPARE(last().data, QByteArray());
    QCOMPARE(last().outcome, Outcome::Whole);
}

void TransfersTest::keepsNameAndSlot()
{
    Sender sender(m_peer.get(), "IS", noise(100));
    QVERIFY(sender.start(7, QByteArray("Gr\xC3\xBC\xC3\x9F", 6) + '\0'));
    QVERIFY(sender.data(0));
    QVERIFY(sender.end());
    QCOMPARE(last().slot, 7);
    QCOMPARE(last().name, QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"));

    Sender bluetooth(m_peer.get(), "BF", noise(100));
    QVERIFY(bluetooth.start(0x4950, QByteArray()));
    QVERIFY(bluetooth.data(0));
    QVERIFY(bluetooth.end());
    QCOMPARE(last().slot, 0x4950);
    QCOMPARE(m_engine->violations(), QStringList());
}

void TransfersTest::storesFiles()
{
    const QTemporaryDir directory;
    m_engine->setStoreDirectory(directory.path());
    const QByteArray file = noise(5000);
    for (int round = 0; round < 2; ++round) {
        Sender sender(m_peer.get(), "IW", file);
        // A path in the name must not become a path of the stored file.
        QVERIFY(sender.start(3, QByteArray("../evil.wav") + '\0'));
        QVERIFY(sender.dataFromTo(0, sender.count() - 1));
        QVERIFY(sender.end());
    }
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files),
             QStringList({QStringLiteral("001-IW-slot3.bin"), QStringLiteral("002-IW-slot3.bin")}));
    QFile stored(last().path);
    QVERIFY(stored.open(QIODevice::ReadOnly));
    QVERIFY(stored.readAll() == file);
    QVERIFY(last().data.isEmpty());
    QVERIFY(last().stored);
}

void TransfersTest::doesNotStoreUnfinishedFilesAsWhole()
{
    const QTemporaryDir directory;
    m_engine->setStoreDirectory(directory.path());
    Sender sender(m_peer.get(), "TB", noise(1500));
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 1));
    QVERIFY(sender.end());
    QCOMPARE(QDir(directory.path()).entryList(QDir::Files), QStringList(QStringLiteral("001-TB.bin.part")));

    // The directory does not exist any more.
    m_engine->setStoreDirectory(directory.path() + QStringLiteral("/gone"));
    Sender second(m_peer.get(), "TB", noise(100));
    QVERIFY(second.start());
    QVERIFY(second.data(0));
    m_peer->take();
    QVERIFY(second.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{incomplete()});
    QVERIFY(!last().stored);
}

void TransfersTest::asksOnceForEachGap()
{
    const QByteArray file = noise(512 * 20);
    Sender sender(m_peer.get(), "TB", file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 4));
    sender.count(5);
    QVERIFY(sender.dataFromTo(6, 9));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0005 00BE")});
    QVERIFY(sender.dataFromTo(5, 11));
    sender.count(12);
    sender.count(13);
    QVERIFY(sender.dataFromTo(14, 16));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 000C 00BE")});
    QVERIFY(sender.dataFromTo(12, 19));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QVERIFY(last().data == file);
    QCOMPARE(last().gaps, quint32(2));
    QCOMPARE(last().resendRequests, quint32(2));
    QCOMPARE(m_engine->violations(), QStringList());
}

void TransfersTest::asksAgainWhenThePacketIsLostAgain()
{
    const QByteArray file = noise(512 * 10);
    Sender sender(m_peer.get(), "TB", file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 1));
    sender.count(2);
    QVERIFY(sender.dataFromTo(3, 5));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0002 00BE")});
    // The module pauses before a resend, so a packet out of order after a pause starts the resend.
    QElapsedTimer pause;
    pause.start();
    QTRY_VERIFY(pause.hasExpired(1100));
    sender.count(2);
    QVERIFY(sender.dataFromTo(3, 4));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0002 00BE")});
    QVERIFY(sender.dataFromTo(2, 9));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QVERIFY(last().data == file);
}

void TransfersTest::asksWithTwentyFourBits()
{
    // Packet 0x010005 is missing.
    const int missing = 0x010005;
    const QByteArray file = noise(512 * (missing + 3));
    Sender sender(m_peer.get(), "TB", file);
    QVERIFY(sender.start());
    const quint64 before = m_engine->counters().datagrams;
    for (int i = 0; i < missing; ++i) {
        m_peer->post(sender.packet(i));
        if (i % 50 == 49)
            QCoreApplication::processEvents();
    }
    QTRY_COMPARE(m_engine->counters().datagrams, before + quint64(missing));
    QVERIFY(m_peer->send(sender.packet(missing + 1)));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0005 01BE")});
}

void TransfersTest::countsLostPacketsInTheChecksum()
{
    // Packets are lost before the gap is detected and before the resend. The module has added all of them.
    const QByteArray file = noise(512 * 12 + 33);
    Sender sender(m_peer.get(), "TF", file);
    QVERIFY(sender.start());
    QVERIFY(sender.dataFromTo(0, 2));
    sender.count(3);
    sender.count(4);
    QVERIFY(sender.data(5));
    sender.count(6);
    QVERIFY(sender.data(7));
    QCOMPARE(m_peer->take(), QList<QByteArray>{datagram("DC AC 0003 00BE")});
    QVERIFY(sender.dataFromTo(3, 12));
    QVERIFY(sender.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QVERIFY(last().data == file);
}

using Script = std::function<bool(Sender &)>;
Q_DECLARE_METATYPE(Script)

void TransfersTest::refusesBadFiles_data()
{
    QTest::addColumn<Script>("script");
    QTest::addColumn<QByteArray>("status");
    const auto row = [](const char *name, const QByteArray &status, const Script &script) {
        QTest::newRow(name) << script << status;
    };
    row("checksum too high by one", checksumError(),
        [](Sender &s) { return s.start() && s.dataFromTo(0, 2) && s.end(s.sum() + 1); });
    row("checksum not computed", checksumError(),
        [](Sender &s) { return s.start() && s.dataFromTo(0, 2) && s.end(0); });
    row("last packet missing", incomplete(),
        [](Sender &s) { return s.start() && s.dataFromTo(0, 1) && s.end(); });
    row("no packet at all", incomplete(), [](Sender &s) { return s.start() && s.end(); });
    row("last packet only", incomplete(), [](Sender &s) { return s.start() && s.data(2) && s.end(); });
}

void TransfersTest::refusesBadFiles()
{
    QFETCH(Script, script);
    Sender sender(m_peer.get(), "TB", noise(1200));
    QVERIFY(script(sender));
    QFETCH(QByteArray, status);
    QCOMPARE(m_peer->take().last(), status);
    QVERIFY(last().outcome != Outcome::Whole);
}

void TransfersTest::countsViolations_data()
{
    QTest::addColumn<QList<QByteArray>>("datagrams");
    QTest::addColumn<QString>("violation");
    QTest::addColumn<QByteArray>("status");
    const QByteArray start = datagram("DS TB 00000003");
    const QByteArray data = datagram("DC TB 00000000 0002 01020300");
    const QByteArray end = datagram("DE TB 00000402");
    const auto row = [](const char *name, const QList<QByteArray> &datagrams, const char *violation,
                        const QByteArray &status) {
        QTest::newRow(name) << datagrams << QString::fromLatin1(violation) << status;
    };
    row("padding", {start, datagram("DC TB 00000000 0002 010203FF"), datagram("DE TB 00000501")},
        "data packet 0 is padded with a byte other than zero", success());
    row("too short", {start, datagram("DC TB 00000000 0001 0102"), datagram("DE TB 00000102")},
        "data packet 0 carries 2 bytes instead of 4", incomplete());
    row("too long", {start, datagram("DC TB 00000000 0003 010203000000"), datagram("DE TB 00000402")},
        "data packet 0 carries 6 bytes instead of 4", incomplete());
    row("past the end", {start, data, datagram("DC TB 00000001 0001 0000"), end},
        "data packet 1 of a file of 1 packets", incomplete());
    row("repeated", {start, data, data, end}, "data packet 0 sent again without a resend request", success());
    row("other content", {start, datagram("DC TF 00000000 0002 01020300"), data, end},
        "TF data packet within a transfer of TB", success());
    row("other end", {start, data, datagram("DE TF 00000402")}, "TF end packet without its start",
        datagram("DE AC 0000 0003"));
    row("end repeated", {start, data, end, end}, "TB end packet sent again", success());
    row("wrong checksum", {start, data, datagram("DE TB 00000403")}, "checksum 0x00000403 does not match",
        checksumError());
    row("firmware with a checksum",
        {datagram("DS FW 00000003"), datagram("DC FW 00000000 0002 01020300"), datagram("DE FW 00000402")},
        "FW end packet with a checksum", success());
    row("bluetooth firmware with a checksum",
        {datagram("DS BF 00000003 0001"), datagram("DC BF 00000000 0002 01020300"),
         datagram("DE BF 00000402")},
        "BF end packet with a checksum", success());
}

void TransfersTest::countsViolations()
{
    QFETCH(QList<QByteArray>, datagrams);
    for (const QByteArray &datagram : datagrams)
        QVERIFY(m_peer->send(datagram));
    QFETCH(QString, violation);
    QCOMPARE(m_engine->violations().size(), 1);
    QCOMPARE(m_engine->violations().at(0).left(violation.size()), violation);
    QFETCH(QByteArray, status);
    QCOMPARE(m_peer->take().last(), status);
}

void TransfersTest::toleratesTheEmptyPacketOfAnAbort()
{
    Sender sender(m_peer.get(), "TB", noise(1200));
    QVERIFY(sender.start());
    QVERIFY(sender.data(0));
    QVERIFY(m_peer->send("DC TB 00000001 0000"));
    QCOMPARE(m_engine->violations(), QStringList());
    QCOMPARE(m_peer->take(), QList<QByteArray>());
    QVERIFY(m_engine->receivedFiles().isEmpty());
}

void TransfersTest::forgetsAnAbandonedTransfer()
{
    Sender first(m_peer.get(), "TB", noise(1200));
    QVERIFY(first.start());
    QVERIFY(first.data(0));
    const QByteArray file = noise(700);
    Sender second(m_peer.get(), "SB", file);
    QVERIFY(second.start());
    QVERIFY(second.data(0));
    QVERIFY(second.end());
    QCOMPARE(m_peer->take(), QList<QByteArray>{success()});
    QCOMPARE(m_engine->receivedFiles().size(), 2);
    QVERIFY(m_engine->receivedFiles().at(0).outcome == Outcome::Abandoned);
    QVERIFY(last().outcome == Outcome::Whole);
    QVERIFY(last().data == file);
    QCOMPARE(m_engine->violations(), QStringList());
}

QTEST_GUILESS_MAIN(TransfersTest)
#include "tst_transfers.moc"
