// A file of 300 packets, each of which is lost, doubled or delayed in turn. Whatever comes of it: the engine
// has the very file, or QML hears of a failure. Never does QML hear of a success that is none.

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

// A wave sample: its checksum is checked, and its status is the engine's own.
TransferKind waveSample()
{
    const QVector<TransferKind> kinds = quickKinds();
    return *std::find_if(kinds.begin(), kinds.end(),
                         [](const TransferKind &kind) { return kind.content == QByteArray("IW"); });
}

} // namespace

class tst_LossMatrix : public QObject
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

void tst_LossMatrix::initTestCase()
{
    for (int number = 1; number <= qMin(atOnce, packets / everyNth); ++number)
        m_stations.push_back(std::make_unique<Station>(
            m_thread, QStringLiteral("127.20.%1.%2").arg(addressBlock).arg(number)));
}

void tst_LossMatrix::disturbed_data()
{
    QTest::addColumn<QString>("disturbance");
    // Of twelve, so many have to arrive: none would if what is asked for were not sent again. The others may
    // fail, and say so: the file takes a fifth of a second only, and on a busy machine the engine's request
    // for a resend may come after the end.
    QTest::addColumn<int>("leastOfTwelve");

    QTest::newRow("lost") << QStringLiteral("lose-once") << 1;
    QTest::newRow("doubled") << QStringLiteral("duplicate-once") << 12;
    QTest::newRow("delayed") << QStringLiteral("delay-once") << 1;
}

void tst_LossMatrix::disturbed()
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
                qFatal("%s is no failure mode", qPrintable(mode));
            return transfer;
        },
        [&](int index, CrowdMember &member) {
            outcomes[static_cast<JudgedTransfer &>(member).result()].append(packetOf(index));
        });

    qInfo() << packets / everyNth << "packets" << disturbance
            << "- arrived:" << outcomes[Result::Arrived].size()
            << "failed and told so:" << outcomes[Result::Failed]
            << "failed without a word of the engine:" << outcomes[Result::Unproven];
    QCOMPARE(outcomes[Result::FalseSuccess], QList<int>());
    QCOMPARE(outcomes[Result::Unproven], QList<int>());
    QCOMPARE(outcomes[Result::FalseFailure], QList<int>());
    QCOMPARE(outcomes[Result::Silent], QList<int>());
    QVERIFY(outcomes[Result::Arrived].size() * 12 >= packets / everyNth * leastOfTwelve);
}

QTEST_GUILESS_MAIN(tst_LossMatrix)
#include "tst_lossmatrix.moc"
