// zelta-send --diagnose and faults of the network, with the fixed address of the engine in network
// namespaces.

#include "diagnosisrun.h"
#include "faults/faultyline.h"
#include "support/privatenetworktest.h"

#include <QCoreApplication>
#include <QTest>

using testsupport::EngineNetwork;
using testsupport::ip;

class DiagnoseNetworkTest : public testsupport::PrivateNetworkTest
{
    Q_OBJECT

private Q_SLOTS:
    void healthy();
    void noRoute();
    void deviceIsDown();
    void anotherDeviceIsUsed_data();
    void anotherDeviceIsUsed();
    void addressOfAnotherNetwork();
    void engineIsCutOff();
    void processAtTheAddress();
    void addressOfThisMachine();
};

namespace {

const QString engineHost = QStringLiteral("172.20.21.22");
const char variable[] = "ZELTACONNECT_ENGINE";

// A network with an engine on its far side.
struct FarEngine
{
    FarEngine() { qunsetenv(variable); }

    EngineNetwork network;
    FarEngineThread thread{network};
    RemoteEngine engine{thread, engineHost};
};

// A device of another network, which has the default route.
struct OtherDevice
{
    OtherDevice()
    {
        for (const char *command :
             {"link add other0 type veth peer name other1", "link set other1 up",
              "addr add 10.9.9.1/24 dev other0", "link set other0 up", "route add default dev other0"}) {
            if (error.isEmpty())
                error = ip(QString::fromLatin1(command));
        }
    }
    ~OtherDevice() { ip(QStringLiteral("link del other0")); }
    Q_DISABLE_COPY(OtherDevice)

    QString error;
};

DiagnosisRun diagnose()
{
    // The class of the engine may have set it.
    qunsetenv(variable);
    SystemRoot root;
    if (!root.useRealSockets())
        qFatal("the folder with the sockets cannot be made");
    return DiagnosisRun(root);
}

QStringList afterRoute()
{
    return {QStringLiteral("own-address"), QStringLiteral("engine"), QStringLiteral("engine-ping")};
}

QStringList afterAddress()
{
    return {QStringLiteral("engine"), QStringLiteral("engine-ping")};
}

} // namespace

void DiagnoseNetworkTest::healthy()
{
    FarEngine far;
    QCOMPARE(far.network.errorString(), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(run.difference(QString()), QString());
    QCOMPARE(run.finding(QStringLiteral("own-address")), QStringLiteral("172.20.21.1/24 on module0"));
    QVERIFY(run.finding(QStringLiteral("engine")).startsWith(QLatin1String("172.20.21.22:19797 answers")));
}

void DiagnoseNetworkTest::noRoute()
{
    FarEngine far;
    QCOMPARE(far.network.removeRoute(), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(run.difference(QStringLiteral("route")), QString());
    QVERIFY(run.finding(QStringLiteral("route")).startsWith(QLatin1String("no route to 172.20.21.22: ")));
    QVERIFY(run.mend(QStringLiteral("route")).contains(QLatin1String("ip addr add 172.20.21.1/24 dev eth0")));
    QCOMPARE(run.checks("skipped"), afterRoute());
}

void DiagnoseNetworkTest::deviceIsDown()
{
    FarEngine far;
    QCOMPARE(far.network.cut(), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(run.difference(QStringLiteral("route")), QString());
    QVERIFY(run.mend(QStringLiteral("route")).contains(QLatin1String("ip link set eth0 up")));
}

void DiagnoseNetworkTest::anotherDeviceIsUsed_data()
{
    QTest::addColumn<bool>("isDown");
    QTest::addColumn<QString>("finding");
    QTest::addColumn<QString>("mend");
    QTest::newRow("the engine's device is down")
        << true << QStringLiteral("the device of 172.20.21.1/24 on module0 is down; ")
        << QStringLiteral("bring the device up: ip link set module0 up");
    QTest::newRow("there is a route by another device")
        << false << QStringLiteral("172.20.21.1/24 on module0 is not used; ")
        << QStringLiteral("ip route get 172.20.21.22");
}

void DiagnoseNetworkTest::anotherDeviceIsUsed()
{
    QFETCH(const bool, isDown);
    QFETCH(const QString, finding);
    QFETCH(const QString, mend);
    FarEngine far;
    const OtherDevice other;
    QCOMPARE(other.error, QString());
    QCOMPARE(isDown ? far.network.cut() : far.network.removeRoute(), QString());
    const DiagnosisRun run = diagnose();
    const QString check = QStringLiteral("own-address");
    QCOMPARE(run.difference(check), QString());
    QCOMPARE(run.finding(check),
             finding + QStringLiteral("datagrams to 172.20.21.22 leave from 10.9.9.1 through a gateway"));
    QVERIFY2(run.mend(check).contains(mend), qPrintable(run.mend(check)));
    QCOMPARE(run.checks("skipped"), afterAddress());
}

void DiagnoseNetworkTest::addressOfAnotherNetwork()
{
    FarEngine far;
    QCOMPARE(ip(QStringLiteral("addr del 172.20.21.1/24 dev module0")), QString());
    QCOMPARE(ip(QStringLiteral("addr add 10.9.9.1/24 dev module0")), QString());
    QCOMPARE(ip(QStringLiteral("route add default dev module0")), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(run.difference(QStringLiteral("own-address")), QString());
    QVERIFY(run.finding(QStringLiteral("own-address"))
                .endsWith(QLatin1String("leave from 10.9.9.1 through a gateway")));
    QCOMPARE(run.checks("skipped"), afterAddress());
}

void DiagnoseNetworkTest::engineIsCutOff()
{
    FarEngine far;
    QCOMPARE(far.network.cutEngine(), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(run.difference(QStringLiteral("engine")), QString());
}

void DiagnoseNetworkTest::processAtTheAddress()
{
    QCOMPARE(ip(QStringLiteral("addr add 172.20.21.22/32 dev lo")), QString());
    SoundEngine engine;
    const bool listens = engine.listen(QHostAddress(engineHost));
    const DiagnosisRun run = diagnose();
    QCOMPARE(ip(QStringLiteral("addr del 172.20.21.22/32 dev lo")), QString());
    QVERIFY2(listens, qPrintable(engine.errorString()));
    QCOMPARE(run.difference(QStringLiteral("engine-process")), QString());
    QVERIFY2(run.finding(QStringLiteral("engine-process"))
                 .contains(QStringLiteral("(process %1)").arg(QCoreApplication::applicationPid())),
             qPrintable(run.finding(QStringLiteral("engine-process"))));
    QCOMPARE(run.checks("skipped"), afterAddress());
}

void DiagnoseNetworkTest::addressOfThisMachine()
{
    QCOMPARE(ip(QStringLiteral("addr add 172.20.21.22/32 dev lo")), QString());
    const DiagnosisRun run = diagnose();
    QCOMPARE(ip(QStringLiteral("addr del 172.20.21.22/32 dev lo")), QString());
    QCOMPARE(run.difference(QStringLiteral("engine-process")), QString());
    QVERIFY(run.finding(QStringLiteral("engine-process"))
                .contains(QLatin1String("is an address of this machine")));
}

int main(int argc, char *argv[])
{
    return testsupport::runInPrivateNetwork<DiagnoseNetworkTest>(argc, argv);
}
#include "tst_diagnosenetwork.moc"
