// Files from the module to the simulated engine, with each of its failure modes, as tshark shows them.

#include "control/qconnectqmlplugin.h"
#include "simulator/failures.h"
#include "simulator/message.h"
#include "simulator/soundengine.h"
#include "support/patience.h"
#include "wireshark/capture.h"
#include "wireshark/dissection.h"
#include "wireshark/tap.h"

#include <QGuiApplication>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <vector>

namespace {

// A socket's receive buffer holds this number, so the tap misses none even on a busy machine.
constexpr int packets = 100;
constexpr int chunkBytes = 512;

// The module waits 20 s for the reply to a query and 15 s for the acknowledgement of the end.
constexpr int longestTransferMs = testsupport::patienceMs;

/// A module, an engine with a failure mode, and the tap between them.
struct Transfer
{
    QByteArray mode;
    SoundEngine engine;
    Tap tap;
    std::unique_ptr<QConnectQmlPlugin> module;
    std::unique_ptr<QSignalSpy> completed;
};

/// The expected output of tshark for a transfer with a failure mode, in addition to what is checked for all.
struct Expectation
{
    const char *mode;
    const char *text; ///< of at least one frame
};

constexpr Expectation expectations[] = {
    {"none", "transfer end acknowledged, status 0x0000"},
    {"resend", "transfer resend from packet 5"},
    {"resend-twice", "transfer resend from packet 5"},
    {"resend-before-start", "transfer resend from packet 0"},
    {"resend-past-end", "transfer resend from packet 200"},
    {"unknown-low-byte", "transfer resend from packet 5, unknown code 0x42"},
    {"refuse-e0", "transfer refused, code 0xe0"},
    {"memory-full-e1", "transfer refused, memory full, code 0xe1"},
    {"memory-full-e2", "transfer refused, memory full, code 0xe2"},
    {"memory-full-e3", "transfer refused, memory full, code 0xe3"},
    {"refuse-e4", "transfer refused, code 0xe4"},
    {"refuse-ef", "transfer refused, code 0xef"},
    {"bad-checksum", "transfer end acknowledged, status 0x0001"},
    {"no-end-ack", "transfer end IW"},
    {"no-query-reply", "query SN: sound bank version"},
    {"late-query-reply", "reply SN: sound bank version 1.0"},
    {"wrong-query-reply", "reply TN: trigger bank version 0.100"},
    {"stray-acks", "transfer packet 16777215 acknowledged"},
    {"vanish-and-return", "transfer resend from packet 5"},
    {"lose-once", "transfer resend from packet 5"},
};

} // namespace

class TransfersTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyModeIsShown_data();
    void everyModeIsShown();

private:
    void setUp(Transfer *transfer, int number);

    QTemporaryDir m_dir;
    QString m_file;
    std::vector<std::unique_ptr<Transfer>> m_transfers;
    QVector<Dissection::Frame> m_frames;
};

void TransfersTest::setUp(Transfer *transfer, int number)
{
    const QHostAddress address(QStringLiteral("127.20.37.%1").arg(number));
    QVERIFY(transfer->engine.listen(address, 0));
    QVERIFY(transfer->tap.open(address, address, transfer->engine.port()));
    QString failure = QString::fromLatin1(transfer->mode);
    if (transfer->mode == "late-query-reply")
        failure += QLatin1String("=2000"); // before the time-out of the query
    if (transfer->mode != "none")
        QVERIFY(transfer->engine.setFailure(failure));
    qputenv("ZELTACONNECT_ENGINE", address.toString().toLatin1());
    transfer->module = std::make_unique<QConnectQmlPlugin>();
    transfer->completed =
        std::make_unique<QSignalSpy>(transfer->module.get(), &QConnectQmlPlugin::waveTransferComplete);
}

// All of them run in parallel, because they mostly wait.
void TransfersTest::initTestCase()
{
    m_file = m_dir.filePath(QStringLiteral("kick.wav"));
    QFile file(m_file);
    QVERIFY(file.open(QIODevice::WriteOnly));
    for (int i = 0; i < packets * chunkBytes - 1; ++i)
        file.putChar(char(i * 7 + i / chunkBytes));
    file.close();

    QList<QByteArray> modes{"none"};
    for (const simulated::FailureMode &mode : simulated::failureModes())
        modes.append(mode.name);
    for (const QByteArray &mode : qAsConst(modes)) {
        m_transfers.push_back(std::make_unique<Transfer>());
        m_transfers.back()->mode = mode;
        setUp(m_transfers.back().get(), int(m_transfers.size()));
        QVERIFY(!QTest::currentTestFailed());
    }
    for (const auto &transfer : m_transfers) {
        if (transfer->mode.contains("query"))
            transfer->module->requestSoundBankVersion();
        transfer->module->sendImportWaveSample(m_file, 7);
    }
    for (const auto &transfer : m_transfers)
        QTRY_VERIFY2_WITH_TIMEOUT(!transfer->completed->isEmpty(), transfer->mode.constData(),
                                  longestTransferMs);

    const QString path = m_dir.filePath(QStringLiteral("transfers.pcap"));
    Capture capture(path);
    quint8 number = 0;
    for (const auto &transfer : m_transfers) {
        // Forwards what the engine has sent meanwhile.
        QCoreApplication::processEvents();
        capture.setConversation(++number);
        transfer->tap.writeTo(&capture);
    }
    QVERIFY(capture.finish());
    const Dissection dissection(path,
                                {QStringLiteral("zelta.transfer.rate"), QStringLiteral("zelta.request_in")});
    QCOMPARE(dissection.problem(), QString());
    m_frames = dissection.frames();
}

void TransfersTest::everyModeIsShown_data()
{
    QTest::addColumn<int>("transfer");
    QTest::addColumn<int>("firstFrame");
    int frame = 0;
    for (std::size_t i = 0; i < m_transfers.size(); ++i) {
        QTest::newRow(m_transfers[i]->mode.constData()) << int(i) << frame;
        frame += m_transfers[i]->tap.records().size();
    }
    QCOMPARE(m_frames.size(), frame);
}

void TransfersTest::everyModeIsShown()
{
    QFETCH(int, transfer);
    QFETCH(int, firstFrame);
    const Transfer &item = *m_transfers.at(std::size_t(transfer));
    QStringList texts;
    int ends = 0;
    for (int i = 0; i < item.tap.records().size(); ++i) {
        const Tap::Record &record = item.tap.records().at(i);
        const Dissection::Frame &frame = m_frames.at(firstFrame + i);
        const QString text = frame.value(Dissection::text);
        texts += text;
        QVERIFY2(!text.isEmpty(), record.datagram.toHex(' ').constData());
        // The tap recorded every datagram, so none is missing and tshark must not report a violation.
        const QString reports = frame.value(Dissection::reports);
        QVERIFY2(!reports.contains(QLatin1String("missing")) &&
                     !reports.contains(QLatin1String("checksum")) &&
                     !reports.contains(QLatin1String("instead")) && !reports.contains(QLatin1String("again")),
                 qPrintable(text + QStringLiteral(": ") + reports));
        if (record.direction == Capture::Direction::FromEngine)
            continue;
        QCOMPARE(text, simulated::describe(simulated::decode(record.datagram)));
        if (text.startsWith(QLatin1String("transfer end"))) {
            ++ends;
            QVERIFY(frame.value(QStringLiteral("zelta.transfer.rate")).toDouble() > 0);
        }
    }
    // A module that receives the acknowledgement in time aborts the transfer.
    const bool mayBreakOff = item.mode.startsWith("memory-full") || item.mode == "resend-past-end";
    QVERIFY(ends == 1 || (ends == 0 && mayBreakOff));
    for (const Expectation &expectation : expectations) {
        if (item.mode == expectation.mode)
            QVERIFY2(!texts.filter(QString::fromLatin1(expectation.text)).isEmpty(),
                     qPrintable(texts.join(QLatin1Char('\n'))));
    }
}

QTEST_MAIN(TransfersTest)
#include "tst_transfers.moc"
