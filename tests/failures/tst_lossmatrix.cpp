// A file of 300 packets, each of which is lost, doubled or delayed in turn. Whatever comes of it: the engine
// has the very file, or QML hears of a failure. Never does QML hear of a success that is none.

#include "crowd.h"
#include "enginethread.h"

#include "control/qconnectqmlplugin.h"
#include "support/signalrecorder.h"
#include "transfer/session.h"

#include <QElapsedTimer>
#include <QTest>

using Outcome = simulated::ReceivedFile::Outcome;

namespace {

constexpr int packets = 300;
constexpr int chunkBytes = 512;
constexpr int slot = 7;
constexpr int timeoutMs = 60000;

#ifdef ZELTACONNECT_LONG_CASES
constexpr int everyNth = 1;
constexpr int atOnce = 40;
constexpr int addressBlock = 29;
#else
constexpr int everyNth = 25;
constexpr int atOnce = 12;
constexpr int addressBlock = 28;
#endif

enum class Result { Running, Arrived, Failed, FalseSuccess, FalseFailure, Silent };

// A control object and its engine; transfers take turns here, because making a control object takes its time.
struct Station
{
    Station(EngineThread &thread, int number)
        : engine(thread, QStringLiteral("127.20.%1.%2").arg(addressBlock).arg(number))
        , recorder(&plugin)
    {}

    RemoteEngine engine;
    QConnectQmlPlugin plugin;
    testsupport::SignalRecorder recorder;
};

// One transfer with one disturbed packet. A wave sample: its checksum is checked, and its status is the
// engine's own.
class DisturbedTransfer : public CrowdMember
{
public:
    DisturbedTransfer(Station &station, const QString &disturbance, const QString &path,
                      const QByteArray &content)
        : m_station(station)
        , m_path(path)
        , m_content(content)
    {
        station.engine.replace();
        station.recorder.clear();
        if (!station.engine.fail(disturbance))
            qFatal("%s is no failure mode", qPrintable(disturbance));
    }

    void start() override
    {
        m_station.plugin.sendImportWaveSample(m_path, slot);
        m_since.start();
    }

    bool isOver() override
    {
        return m_station.recorder.count("waveTransferComplete") > 0 || m_since.hasExpired(timeoutMs);
    }

    Result result()
    {
        if (m_station.recorder.count("waveTransferComplete") != 1)
            return Result::Silent;
        const QStringList texts = m_station.recorder.texts();
        const bool acknowledged = texts.contains(QStringLiteral("udpPacketArrived(17477, 0, 0)"));
        const bool reported =
            texts.contains(QStringLiteral("waveTransferComplete(%1, 0)").arg(slot)) && acknowledged;
        const QVector<SoundEngine::ReceivedFile> files = m_station.engine.files();
        const bool arrived =
            files.size() == 1 && files.first().outcome == Outcome::Whole && files.first().data == m_content;
        if (reported)
            return arrived ? Result::Arrived : Result::FalseSuccess;
        return arrived ? Result::FalseFailure : Result::Failed;
    }

private:
    Station &m_station;
    const QString m_path;
    const QByteArray m_content;
    QElapsedTimer m_since;
};

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
        m_stations.push_back(std::make_unique<Station>(m_thread, number));
}

void tst_LossMatrix::disturbed_data()
{
    QTest::addColumn<QString>("disturbance");
    // Of four, so many have to arrive. The others may fail, and say so: the file takes a fifth of a second
    // only, and on a busy machine the engine's request for a resend may come after the end.
    QTest::addColumn<int>("leastOfFour");

    QTest::newRow("lost") << QStringLiteral("lose-once") << 1;
    QTest::newRow("doubled") << QStringLiteral("duplicate-once") << 4;
    QTest::newRow("delayed") << QStringLiteral("delay-once") << 1;
}

void tst_LossMatrix::disturbed()
{
    QFETCH(const QString, disturbance);
    QFETCH(const int, leastOfFour);
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
            const QString mode = QStringLiteral("%1=%2").arg(disturbance).arg(packetOf(index));
            return std::make_unique<DisturbedTransfer>(*m_stations.at(std::size_t(place)), mode, path,
                                                       content);
        },
        [&](int index, CrowdMember &member) {
            outcomes[static_cast<DisturbedTransfer &>(member).result()].append(packetOf(index));
        });

    qInfo() << packets / everyNth << "packets" << disturbance
            << "- arrived:" << outcomes[Result::Arrived].size()
            << "failed and told so:" << outcomes[Result::Failed];
    QCOMPARE(outcomes[Result::FalseSuccess], QList<int>());
    QCOMPARE(outcomes[Result::FalseFailure], QList<int>());
    QCOMPARE(outcomes[Result::Silent], QList<int>());
    QVERIFY(outcomes[Result::Arrived].size() * 4 >= packets / everyNth * leastOfFour);
}

QTEST_GUILESS_MAIN(tst_LossMatrix)
#include "tst_lossmatrix.moc"
