// Information from several datagrams: requests and answers, packet numbers, checksums. Also the port of the
// dissector.

#include "support/datagram.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using testsupport::datagram;

namespace {

using Direction = Capture::Direction;
constexpr Direction toEngine = Direction::ToEngine;
constexpr Direction fromEngine = Direction::FromEngine;

constexpr QLatin1String requestIn = latin1("zelta.request_in");
constexpr QLatin1String answerIn = latin1("zelta.answer_in");
constexpr QLatin1String answerTime = latin1("zelta.answer_time");

QByteArray word(quint16 value)
{
    return QByteArray(1, char(value >> 8)) + char(value & 0xFF);
}

QByteArray start(const QByteArray &content, quint16 size)
{
    return "DS" + content + word(0) + word(size);
}

QByteArray data(const QByteArray &content, quint16 number, const QByteArray &chunk)
{
    return "DC" + content + word(0) + word(number) + word(quint16(chunk.size() / 2)) + chunk;
}

QByteArray end(const QByteArray &content, quint32 checksum)
{
    return "DE" + content + word(quint16(checksum >> 16)) + word(quint16(checksum));
}

} // namespace

class ConversationsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void requestsAndAnswers_data();
    void requestsAndAnswers();
    void answersOfOtherConversations();
    void packetNumbersAndChecksums_data();
    void packetNumbersAndChecksums();
    void resend();
    void refusal();
    void throughput();
    void checksumOfPacketsThatWereNotCaptured();
    void ports_data();
    void ports();
    void secondPass();
    void filtersOfTheGuide();

private:
    QString path() const { return m_dir.filePath(QStringLiteral("conversation.pcap")); }

    QTemporaryDir m_dir;
};

void ConversationsTest::requestsAndAnswers_data()
{
    QTest::addColumn<QStringList>("requests");
    QTest::addColumn<QString>("time");
    struct Row
    {
        const char *name;
        QByteArray request;
        QByteArray answer;
    };
    QVector<Row> rows;
    const auto row = [&rows](const char *name, const char *request, const char *answer) {
        rows.append({name, datagram(request), datagram(answer)});
    };
    row("sound engine version", "VN 0000", "VN AC 0001 0004");
    row("trigger board version", "TV 0000", "TV AC 0001 0004");
    row("sound bank version", "SN 0000", "SN AC 0001 0004");
    row("trigger bank version", "TN 0000", "TN AC 0001 0004");
    row("hi-hat raw value", "HL 0000", "HL AC 0200 0000");
    row("master compressor", "IM 0003 0BB96338 0BB9621F 0BB90600", "CR 0000 0007 000E 0015 001C 0023 002A");
    row("monitor compressor", "IM 0003 0BB96339 0BB9621F 0BB90600", "CR 0001 0007 000E 0015 001C 0023 002A");
    row("headphone compressor", "IM 0003 0BB9633A 0BB9621F 0BB90600",
        "CR 0002 0007 000E 0015 001C 0023 002A");
    row("pad compressor", "IM 0003 0BB9632F 0BB96226 0BB90600", "CR 0003 0007 000E 0015 001C 0023 002A");
    row("output meters", "IM 0003 0BB9633B 0BB9621F 0BB90600",
        "DR 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000 0000");
    row("sound bank slot", "IM 0003 0BB9633D 0BB96200 0BB90603", "IS AC 0003 0001");
    row("wave slot", "IM 0003 0BB9633D 0BB96201 0BB90603", "IW AC 0003 0001");
    row("memory", "IM 0003 0BB9633D 0BB9620F 0BB90600", "FR AC 0001 0002");
    row("end of a file", "DE SB 00000000", "DE AC 0000 0000");

    Capture capture(path());
    for (int i = 0; i < rows.size(); ++i) {
        capture.setConversation(quint8(i));
        capture.append(toEngine, rows.at(i).request);
        capture.append(fromEngine, datagram("BT AC 0001 0000"));
        capture.append(fromEngine, rows.at(i).answer);
        capture.append(fromEngine, rows.at(i).answer);
    }
    QVERIFY(capture.finish());
    const Dissection dissection(path(), {requestIn, answerTime});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), rows.size() * 4);
    for (int i = 0; i < rows.size(); ++i) {
        QStringList requests;
        for (int j = 0; j < 4; ++j) {
            const QString request = dissection.frames().at(4 * i + j).value(requestIn);
            requests += request.isEmpty() ? QString() : QString::number(request.toInt() - 4 * i);
        }
        QTest::newRow(rows.at(i).name) << requests << dissection.frames().at(4 * i + 2).value(answerTime);
    }
}

// Frame 1 is the request, frame 2 something else, frame 3 the answer and frame 4 an answer to nothing.
void ConversationsTest::requestsAndAnswers()
{
    QFETCH(QStringList, requests);
    QFETCH(QString, time);
    QCOMPARE(requests, (QStringList{{}, {}, QStringLiteral("1"), {}}));
    QCOMPARE(time, QStringLiteral("0.002000000"));
}

void ConversationsTest::answersOfOtherConversations()
{
    const QByteArray query = datagram("VN 0000");
    const QByteArray reply = datagram("VN AC 0001 0004");
    Capture capture(path());
    capture.append(toEngine, query);
    capture.setConversation(2);
    capture.append(fromEngine, reply);
    capture.append(toEngine, query);
    capture.setConversation(1);
    capture.append(fromEngine, reply);
    QVERIFY(capture.finish());
    const Dissection dissection(path(), {requestIn});
    QCOMPARE(dissection.frames().at(1).value(requestIn), QString());
    QCOMPARE(dissection.frames().at(3).value(requestIn), QStringLiteral("1"));
}

void ConversationsTest::packetNumbersAndChecksums_data()
{
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("reports");
    struct Row
    {
        const char *name;
        QList<QByteArray> fromModule;
        QStringList reports;
    };
    QVector<Row> rows;
    // Chunk n holds the byte n 512 times; its words sum up to n * 0x10100.
    const QByteArray first(512, '\1');
    const QByteArray second(512, '\2');
    const QByteArray third(512, '\3');
    const QByteArray begin = start("TB", 1536);
    const auto row = [&rows](const char *name, const QList<QByteArray> &fromModule,
                             const QStringList &reports) {
        rows.append({name, fromModule, reports});
    };
    const auto packet = [](quint16 number, const QByteArray &chunk) {
        return data("TB", number, chunk);
    };
    row("whole file", {begin, packet(0, first), packet(1, second), packet(2, third), end("TB", 0x60600)}, {});
    row("wrong checksum", {begin, packet(0, first), packet(1, second), packet(2, third), end("TB", 0x60601)},
        {QStringLiteral("checksum 0x00060601, the packets seen give 0x00060600")});
    row("gap, and no report about the checksum",
        {begin, packet(0, first), packet(2, third), end("TB", 0x60600)},
        {QStringLiteral("1 packet(s) are missing before packet 2")});
    row("gap before the end, and no report about the checksum", {begin, packet(0, first), end("TB", 0x60600)},
        {QStringLiteral("2 packet(s) are missing before the end")});
    row("repeated packet", {begin, packet(0, first), packet(0, first), packet(1, second), packet(2, third)},
        {QStringLiteral("packet 0 is sent again, packet 1 is next")});
    row("chunk of a wrong length", {begin, packet(0, first.left(510))},
        {QStringLiteral("packet 0 holds 510 bytes instead of 512")});
    row("packet past the end",
        {begin, packet(0, first), packet(1, second), packet(2, third), packet(3, third)},
        {QStringLiteral("packet 3 is past the end of the file")});
    row("padded last chunk", {start("TB", 3), packet(0, QByteArray::fromHex("01020300")), end("TB", 0x402)},
        {});
    row("data without a start", {packet(0, first)}, {QStringLiteral("the start packet was not captured")});
    row("end without a start", {end("TB", 1)}, {QStringLiteral("the start packet was not captured")});
    row("data of another content", {begin, data("SB", 0, first)},
        {QStringLiteral("SB data packet within a transfer of TB")});
    row("end of another content", {begin, end("SB", 0)},
        {QStringLiteral("SB end packet within a transfer of TB")});
    row("firmware has no checksum", {start("FW", 512), data("FW", 0, first), end("FW", 0)}, {});
    row("firmware with a checksum", {start("FW", 512), data("FW", 0, first), end("FW", 0x10100)},
        {QStringLiteral("checksum 0x00010100, but a transfer of FW has none")});
    row("bluetooth firmware with a checksum", {start("BF", 512), data("BF", 0, first), end("BF", 1)},
        {QStringLiteral("checksum 0x00000001, but a transfer of BF has none")});
    row("sound bank with longer chunks",
        {start("SB", 1024), data("SB", 0, first + first), end("SB", 0x20200)}, {});

    Capture capture(path());
    for (int i = 0; i < rows.size(); ++i) {
        capture.setConversation(quint8(i));
        for (const QByteArray &datagram : rows.at(i).fromModule)
            capture.append(toEngine, datagram);
    }
    QVERIFY(capture.finish());
    const Dissection dissection(path());
    QCOMPARE(dissection.problem(), QString());
    int frame = 0;
    for (const Row &item : qAsConst(rows)) {
        QStringList shown;
        for (int i = 0; i < item.fromModule.size(); ++i) {
            const QString reports = dissection.frames().value(frame++).value(Dissection::reports);
            if (!reports.isEmpty())
                shown += reports;
        }
        QTest::newRow(item.name) << shown << item.reports;
    }
}

void ConversationsTest::packetNumbersAndChecksums()
{
    QFETCH(QStringList, shown);
    QFETCH(QStringList, reports);
    QCOMPARE(shown, reports);
}

void ConversationsTest::resend()
{
    const QByteArray first(512, '\1');
    const QByteArray second(512, '\2');
    Capture capture(path());
    capture.append(toEngine, start("TB", 1024));
    capture.append(toEngine, data("TB", 0, first));
    capture.append(fromEngine, datagram("DC AC 0000 00BE"));
    capture.append(toEngine, data("TB", 1, second)); // sent before the resend request arrived
    capture.append(toEngine, data("TB", 0, first));
    capture.append(toEngine, data("TB", 1, second));
    // A chunk that is sent again is added again.
    capture.append(toEngine, end("TB", 0x60600));
    QVERIFY(capture.finish());
    const QString resends = QStringLiteral("zelta.transfer.resends");
    const Dissection dissection(path(), {requestIn, resends});
    QCOMPARE(dissection.problem(), QString());
    QStringList reports;
    QStringList requests;
    for (const Dissection::Frame &frame : dissection.frames()) {
        reports += frame.value(Dissection::reports);
        requests += frame.value(requestIn);
    }
    QCOMPARE(reports, (QStringList{{}, {}, QStringLiteral("resend from packet 0"), {}, {}, {}, {}}));
    QCOMPARE(requests, (QStringList{{}, {}, {}, {}, QStringLiteral("3"), {}, {}}));
    QCOMPARE(dissection.frames().last().value(resends), QStringLiteral("1"));
}

void ConversationsTest::refusal()
{
    Capture capture(path());
    capture.append(toEngine, start("TB", 1536));
    capture.append(toEngine, data("TB", 0, QByteArray(512, '\1')));
    capture.append(fromEngine, datagram("DC AC 0000 00E0"));
    capture.append(toEngine, end("TB", 0x10100));
    QVERIFY(capture.finish());
    const Dissection dissection(path());
    QCOMPARE(dissection.problem(), QString());
    QStringList reports;
    for (const Dissection::Frame &frame : dissection.frames())
        reports += frame.value(Dissection::reports);
    // No packet is missing: the module sends no more data after a refusal.
    QCOMPARE(reports, (QStringList{{}, {}, QStringLiteral("further data refused, code 0xe0"), {}}));
}

void ConversationsTest::throughput()
{
    using std::chrono::milliseconds;
    Capture capture(path());
    capture.appendAt(milliseconds(1000), toEngine, start("TB", 1024));
    capture.appendAt(milliseconds(1100), toEngine, data("TB", 0, QByteArray(512, '\1')));
    capture.appendAt(milliseconds(1200), toEngine, data("TB", 1, QByteArray(512, '\1')));
    capture.appendAt(milliseconds(1500), toEngine, end("TB", 0x20200));
    QVERIFY(capture.finish());
    const QStringList fields{QStringLiteral("zelta.transfer.rate"), QStringLiteral("zelta.transfer.duration"),
                             QStringLiteral("zelta.transfer.packets"),
                             QStringLiteral("zelta.transfer.computed"),
                             QStringLiteral("zelta.transfer.start_in")};
    const Dissection dissection(path(), fields);
    QStringList shown;
    for (const QString &field : fields)
        shown += dissection.frames().last().value(field);
    // 1024 bytes in half a second.
    QCOMPARE(shown, (QStringList{QStringLiteral("2048"), QStringLiteral("0.500000000"), QStringLiteral("2"),
                                 QStringLiteral("0x00020200"), QStringLiteral("1")}));
}

void ConversationsTest::checksumOfPacketsThatWereNotCaptured()
{
    Capture capture(path());
    capture.append(toEngine, start("TB", 512));
    capture.append(toEngine, data("TB", 0, QByteArray(512, '\1')), 64);
    capture.append(toEngine, end("TB", 0x10100));
    QVERIFY(capture.finish());
    const QString computed = QStringLiteral("zelta.transfer.computed");
    const Dissection dissection(path(), {computed});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().last().value(computed), QString());
    QCOMPARE(dissection.frames().last().value(Dissection::reports), QString());
}

void ConversationsTest::ports_data()
{
    QTest::addColumn<int>("enginePort");
    QTest::addColumn<int>("modulePort");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("dissected");
    const auto row = [](const char *name, int enginePort, int modulePort, const QStringList &options,
                        bool dissected) {
        QTest::newRow(name) << enginePort << modulePort << options << dissected;
    };
    const QStringList preference{QStringLiteral("-o"), QStringLiteral("zelta.port:20000")};
    row("the engine's port", 19797, 40000, {}, true);
    row("the same port at both ends", 19797, 19797, {}, true);
    row("another port", 20000, 40000, {}, false);
    row("another port, by the preference", 20000, 40000, preference, true);
    row("the engine's port, with another as preference", 19797, 40000, preference, false);
    row("another port, decoded as", 20000, 40000,
        {QStringLiteral("-d"), QStringLiteral("udp.port==20000,zelta")}, true);
    row("the module's port, decoded as", 20000, 40000,
        {QStringLiteral("-d"), QStringLiteral("udp.port==40000,zelta")}, true);
}

void ConversationsTest::ports()
{
    QFETCH(int, enginePort);
    QFETCH(int, modulePort);
    QFETCH(QStringList, options);
    QFETCH(bool, dissected);
    Capture capture(path());
    capture.setEnginePort(quint16(enginePort));
    capture.setModulePort(quint16(modulePort));
    capture.append(toEngine, datagram("VN 0000"));
    capture.append(fromEngine, datagram("VN AC 0001 0004"));
    QVERIFY(capture.finish());
    const Dissection dissection(path(), {requestIn}, options);
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().at(0).value(Dissection::text),
             dissected ? QStringLiteral("query VN: sound engine version") : QString());
    QCOMPARE(dissection.frames().at(1).value(Dissection::text),
             dissected ? QStringLiteral("reply VN: sound engine version 1.4") : QString());
    QCOMPARE(dissection.frames().at(1).value(requestIn), dissected ? QStringLiteral("1") : QString());
}

void ConversationsTest::secondPass()
{
    Capture capture(path());
    capture.append(toEngine, datagram("VN 0000"));
    capture.append(fromEngine, datagram("VN AC 0001 0004"));
    capture.append(toEngine, start("TB", 512));
    capture.append(toEngine, data("TB", 0, QByteArray(512, '\1')));
    capture.append(toEngine, end("TB", 0x10100));
    capture.append(fromEngine, datagram("IM AC F004 4110"));
    capture.append(fromEngine, datagram("IM AC F705 0000"));
    QVERIFY(capture.finish());
    const QString endIn = QStringLiteral("zelta.transfer.end_in");
    const Dissection dissection(path(), {requestIn, answerIn, endIn}, {QStringLiteral("-2")});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().at(0).value(answerIn), QStringLiteral("2"));
    QCOMPARE(dissection.frames().at(1).value(requestIn), QStringLiteral("1"));
    QCOMPARE(dissection.frames().at(2).value(endIn), QStringLiteral("5"));
    QCOMPARE(dissection.frames().at(3).value(endIn), QStringLiteral("5"));
    // The second pass does not repeat the analysis of the first one.
    for (const Dissection::Frame &frame : dissection.frames())
        QCOMPARE(frame.value(Dissection::reports), QString());
    QCOMPARE(dissection.frames().last().value(Dissection::text), QStringLiteral("sysex F0 10 41 F7"));
}

void ConversationsTest::filtersOfTheGuide()
{
    QFile guide(QStringLiteral(DISSECTOR_GUIDE));
    QVERIFY(guide.open(QIODevice::ReadOnly));
    QStringList filters;
    const QStringList lines = QString::fromUtf8(guide.readAll()).split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        // Every second part is code, beginning with the first after a backquote.
        const QStringList parts = line.split(QLatin1Char('`'));
        for (int i = 1; i < parts.size() && line.startsWith(QLatin1String("| `")); i += 2)
            filters += QLatin1Char('(') + parts.at(i) + QLatin1Char(')');
    }
    QVERIFY(filters.size() >= 10);
    Capture capture(path());
    capture.append(toEngine, datagram("IM 0003 0BB96338 0BB96207 0BB90664"));
    capture.append(fromEngine, datagram("BT AC 0001 0000"));
    QVERIFY(capture.finish());
    const Dissection dissection(path(), {}, {QStringLiteral("-Y"), filters.join(QLatin1String(" or "))});
    QCOMPARE(dissection.problem(), QString());
    QCOMPARE(dissection.frames().size(), 1); // zelta.nrpn.number == 0x3807
}

QTEST_GUILESS_MAIN(ConversationsTest)
#include "tst_conversations.moc"
