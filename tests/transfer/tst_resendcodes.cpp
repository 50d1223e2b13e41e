#include "runningtransfer.h"

#include "control/qconnectqmlplugin.h"

#include <QTest>

#include <memory>

// Every code of a data acknowledgement that requests a resend.

namespace {

constexpr Tag dataAck = "DC";
constexpr quint32 answeredPacket = 20;
constexpr int firstWanted = 18;

} // namespace

class ResendCodesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyOtherCode();

private:
    TestFiles m_files;
};

// Every low byte that is neither 0 nor a refusal requests packets again; only BE is counted. Each request
// causes a pause of four seconds, so many engines run side by side with some requests each. They start one
// after the other, so that few streams run while the others pause.
void ResendCodesTest::everyOtherCode()
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
        // Packet 20 is answered with a request for packet 18, packet 18 with one for packet 17, and so on;
        // the last packet is refused.
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
        QVERIFY2(session.finishTasks(), name);
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
                                    QStringList{Session::tasksFinished()}),
                 QString());
    }
}

QTEST_GUILESS_MAIN(ResendCodesTest)
#include "tst_resendcodes.moc"
