// Each packet of a file of 300 packets is dropped, duplicated or delayed in turn. Either the engine receives
// the complete file, or QML gets a failure. QML never gets a false success.

#include "crowd.h"
#include "enginethread.h"
#include "judgedtransfer.h"

#include "transfer/session.h"

#include <QTest>

#include <algorithm>

using Result = JudgedTransfer::Result;

namespace {

constexpr int packets = 300;
constexpr int chunkBytes = 512;
constexpr int timeoutMs = 240000;

#ifdef ZELTACONNECT_LONG_CASES
constexpr int everyNth = 1;
constexpr int atOnce = 40;
constexpr int addressBlock = 29;
#else
constexpr int everyNth = 25;
constexpr int atOnce = 12;
constexpr int addressBlock = 28;
#endif

// A wave sample: the engine verifies its checksum, and the end signal carries the engine's status.
TransferKind waveSample()
{
    const QVector<TransferKind> kinds = quickKinds();
    return *std::find_if(kinds.begin(), kinds.end(),
                         [](const TransferKind &kind) { return kind.content == QByteArray("IW"); });
}

} // namespace

class LossMatrixTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void disturbed_data();
    void disturbed();

private:
    EngineThread m_thread;
    std::vector<std::unique_ptr<Station>> m_stations;
};

void LossMatrixTest::initTestCase()
{
    for (int number = 1; number <= qMin(atOnce, packets / everyNth); ++number)
        m_stations.push_back(std::make_unique<Station>(
            m_thread, QStringLiteral("127.20.%1.%2").arg(addressBlock).arg(number)));
}

void LossMatrixTest::disturbed_data()
{
    QTest::addColumn<QString>("disturbance");
    // The number of files, of twelve, that must arrive. Without resends none would arrive. The others may be
    // reported as failed: a file takes only 0.2 s, and on a busy machine the resend request may arrive after
    // the end packet.
    QTest::addColumn<int>("leastOfTwelve");

    QTest::newRow("lost") << QStringLiteral("lose-once") << 1;
    QTest::newRow("duplicated") << QStringLiteral("duplicate-once") << 12;
    QTest::newRow("delayed") << QStringLiteral("delay-once") << 1;
}

void LossMatrixTest::disturbed()
{
    QFETCH(const QString, disturbance);
    QFETCH(const int, leastOfTwelve);
    const TransferKind kind = waveSample();
    const TestFiles files;
    const QByteArray content = noise(packets * chunkBytes);
    const QString path = files.write(QStringLiteral("sample.wav"), content);

    QMap<Result, QList<int>> outcomes;
    const auto packetOf = [](int index) {
        return (index + 1) * everyNth - 1;
    };
    runCrowd(
        packets / everyNth, atOnce,
        [&](int index, int place) {
            Station &station = *m_stations.at(std::size_t(place));
            auto transfer = std::make_unique<JudgedTransfer>(station, kind, path, content, timeoutMs);
            const QString mode = QStringLiteral("%1=%2").arg(disturbance).arg(packetOf(index));
            if (!station.engine.fail(mode))
                qFatal("%s is not a failure mode", qPrintable(mode));
            return transfer;
        },
        [&](int index, CrowdMember &member) {
            outcomes[static_cast<JudgedTransfer &>(member).result()].append(packetOf(index));
        });

    qInfo() << packets / everyNth << "packets" << disturbance
            << "- arrived:" << outcomes[Result::Arrived].size()
            << "reported as failed:" << outcomes[Result::Failed]
            << "failed without an acknowledgement:" << outcomes[Result::Unproven];
    QCOMPARE(outcomes[Result::FalseSuccess], QList<int>());
    QCOMPARE(outcomes[Result::Unproven], QList<int>());
    QCOMPARE(outcomes[Result::FalseFailure], QList<int>());
    QCOMPARE(outcomes[Result::Silent], QList<int>());
    QVERIFY(outcomes[Result::Arrived].size() * 12 >= packets / everyNth * leastOfTwelve);
}

QTEST_GUILESS_MAIN(LossMatrixTest)
#include "tst_lossmatrix.moc"
