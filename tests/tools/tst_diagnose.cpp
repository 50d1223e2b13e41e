// zelta-send --diagnose names exactly the fault that is planted. The network is in tst_diagnosenetwork.cpp.

#include "diagnosisrun.h"
#include "jsonkeys.h"
#include "sendrun.h"
#include "simulator/soundengine.h"
#include "support/patience.h"
#include "support/testprogram.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QLibrary>
#include <QTest>
#include <QUdpSocket>

#include <csignal>
#include <functional>

#include <unistd.h>

class DiagnoseTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void healthy();
    void faults_data();
    void faults();
    void moduleFaults_data();
    void moduleFaults();
    void noPing();
    void engineIsOff();
    void engineIsSilent();
    void realDrops();
    void dropsOfOthers();
    void unreadableSockets();
    void asText();
    void interrupted_data();
    void interrupted();
    void interruptedText();

private:
    bool makeModule(const QTemporaryDir &folder, const QByteArray &qmldir, bool hasLibrary) const;

    SoundEngine m_engine;
};

namespace {

using Plant = std::function<bool(SystemRoot &)>;

const QString catalogueFolder = QStringLiteral("/home/.local/share/E-Drum");
constexpr char goodSummary[] = "1 packets transmitted, 1 packets received, 0% packet loss";
// 127.20.41.31, port 19797
constexpr char engineSocket[] = "1F29147F:4D55";
constexpr char moduleLibrary[] = "/usr/lib/qt5/qml/ZeltaConnect/libzeltaconnectplugin.so";

// An engine that does not answer queries, and a diagnosis of it that can be interrupted.
struct LongDiagnosis
{
    LongDiagnosis()
        : run(QStringLiteral("127.20.41.34"), QStringLiteral("no-query-reply"))
    {
        QObject::connect(&run.engine(), &SoundEngine::noted, &run.engine(), [this](const QString &line) {
            isAsked = isAsked || line == QLatin1String("did not answer query HL");
        });
    }
    void start(const QStringList &arguments)
    {
        run.process().setProcessEnvironment(root.environment());
        run.start(QStringList{QStringLiteral("--diagnose")} + arguments);
    }
    void signal(int number) { ::kill(pid_t(run.process().processId()), number); }

    SystemRoot root;
    SendRun run;
    bool isAsked = false;
};

} // namespace

Q_DECLARE_METATYPE(Plant)

void DiagnoseTest::initTestCase()
{
    QVERIFY2(m_engine.listen(QHostAddress(QStringLiteral("127.20.41.31"))),
             qPrintable(m_engine.errorString()));
}

void DiagnoseTest::healthy()
{
    const SystemRoot root;
    const DiagnosisRun run(root);
    QCOMPARE(run.difference(QString()), QString());
    QCOMPARE(run.checks("ok").size(), 11);
    QVERIFY(run.finding(QStringLiteral("module")).contains(QLatin1String("ZeltaConnect 1.0 in ")));
    QVERIFY(
        run.finding(QStringLiteral("engine")).startsWith(QLatin1String("127.20.41.31:19797 answers after ")));
}

void DiagnoseTest::faults_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<Plant>("plant");
    QTest::addColumn<QString>("finding");
    QTest::addColumn<QString>("mend");
    const auto row = [](const char *name, const char *fault, const Plant &plant, const char *finding,
                        const char *mend) {
        QTest::newRow(name) << QString::fromLatin1(fault) << plant << QString::fromLatin1(finding)
                            << QString::fromLatin1(mend);
    };
    const auto ping = [](const QByteArray &commands) -> Plant {
        return [commands](SystemRoot &root) {
            return root.writePing(commands);
        };
    };
    row("ping of iputils", "ping",
        ping("echo '1 packets transmitted, 1 received, 0% packet loss, time 0ms'\n"),
        "\"1 packets transmitted, 1 received, 0% packet loss, time 0ms\"", "ln -s /bin/busybox");
    row("slow ping", "ping", ping(QByteArray("sleep 1.1\necho '") + goodSummary + "'\n"), " takes 1",
        "ln -s /bin/busybox");
    row("ping hangs", "ping", ping("exec sleep 60\n"), "does not end within 4000 ms", "ln -s /bin/busybox");
    row("ping may not send", "ping", ping("echo 'ping: permission denied' >&2\nexit 1\n"),
        "prints no summary, but \"ping: permission denied\"", "ping_group_range");
    row("ping without a reply", "ping", ping("echo '1 packets transmitted, 0 packets received'\n"),
        "gets no reply from this machine", "ip link set lo up");
    row("engine answers no ping", "engine-ping",
        ping(QByteArray("[ $3 = 127.0.0.1 ] && echo '") + goodSummary +
             "' || echo '1 packets transmitted, 0 packets received'\n"),
        "127.20.41.31 answers queries, but no ping", "ICMP");
    row(
        "two processes at the address", "engine-process",
        [](SystemRoot &root) {
            return root.addSocket(engineSocket, 11, 0) &&
                   root.addProcess(4711, "zelta-engine-sim", 11, "/lib/a.so") &&
                   root.addSocket("00000000:4D55", 12, 0) && root.addProcess(4712, "other", 12, "/lib/a.so");
        },
        "several processes have 127.20.41.31:19797: zelta-engine-sim (process 4711), other (process 4712)",
        "end all but one");
    row(
        "small receive buffer", "receive-buffer",
        [](SystemRoot &root) {
            return root.write(QStringLiteral("/proc/sys/net/core/rmem_max"), "1048575\n");
        },
        "the limit is 1048575 bytes, the module asks for 1048576", "net.core.rmem_max = 1048576");
    row(
        "no folder of catalogues", "catalogue", [](SystemRoot &root) { return root.remove(catalogueFolder); },
        "there is no folder /home/.local/share/E-Drum", "mkdir -p /home/.local/share/E-Drum");
    row(
        "a file in place of the folder", "catalogue",
        [](SystemRoot &root) { return root.remove(catalogueFolder) && root.write(catalogueFolder, "x"); },
        "/home/.local/share/E-Drum is not a folder", "remove it");
    row(
        "a folder in place of a catalogue", "catalogue",
        [](SystemRoot &root) { return root.makeFolder(catalogueFolder + QStringLiteral("/soundBank.json")); },
        "/home/.local/share/E-Drum/soundBank.json is not a file", "remove it");
    row(
        "read-only folder of catalogues", "catalogue",
        [](SystemRoot &root) {
            return QFile::setPermissions(root.place(catalogueFolder),
                                         QFileDevice::ReadOwner | QFileDevice::ExeOwner);
        },
        "this user may not write to /home/.local/share/E-Drum", "chown");
    row(
        "read-only catalogue", "catalogue",
        [](SystemRoot &root) {
            const QString path = catalogueFolder + QStringLiteral("/triggerBank.json");
            return root.write(path, "{}") && QFile::setPermissions(root.place(path), QFileDevice::ReadOwner);
        },
        "this user may not write /home/.local/share/E-Drum/triggerBank.json", "chown");
    row(
        "lost datagrams", "drops",
        [](SystemRoot &root) {
            return root.addSocket("00000000:9C40", 21, 512) &&
                   root.addProcess(99, "interface", 21, moduleLibrary);
        },
        "interface (process 99): 512 datagrams", "net.core.rmem_max");
    row(
        "engine that loses datagrams", "drops",
        [](SystemRoot &root) {
            return root.addSocket(engineSocket, 22, 3) &&
                   root.addProcess(98, "zelta-engine-sim", 22, "/lib/a.so");
        },
        "zelta-engine-sim (process 98): 3 datagrams", "net.core.rmem_max");
    row(
        "coarse timers", "timers",
        [](SystemRoot &root) {
            return root.write(QStringLiteral("/proc/timer_list"),
                              "  .index: 0\n  .resolution: 4000000 nsecs\n");
        },
        "a resolution of 4000 us", "CONFIG_HIGH_RES_TIMERS=y");
}

void DiagnoseTest::faults()
{
    QFETCH(const QString, fault);
    QFETCH(const Plant, plant);
    QFETCH(const QString, finding);
    QFETCH(const QString, mend);
    if (finding.contains(QLatin1String("this user may not write")) && ::geteuid() == 0)
        QSKIP("root can write to every file");
    SystemRoot root;
    QVERIFY(plant(root));
    DiagnosisRun run(root);
    // On a busy machine, ping or the engine can exceed the module's time limits, which is reported as well.
    for (int i = 0; i < 3 && run.checks("fault").size() > 1; ++i)
        run = DiagnosisRun(root);
    const QString difference = run.difference(fault);
    QVERIFY2(difference.isEmpty(), qPrintable(difference));
    QVERIFY2(run.finding(fault).contains(finding), qPrintable(run.finding(fault)));
    QVERIFY2(run.mend(fault).contains(mend), qPrintable(run.mend(fault)));
}

// A folder with the module, or with another one of that name.
bool DiagnoseTest::makeModule(const QTemporaryDir &folder, const QByteArray &qmldir, bool hasLibrary) const
{
    const QString place = folder.filePath(QStringLiteral("ZeltaConnect"));
    const QString library = QStringLiteral("/libzeltaconnectplugin.so");
    QFile file(place + QStringLiteral("/qmldir"));
    if (!QDir().mkpath(place) || !file.open(QIODevice::WriteOnly) || file.write(qmldir) != qmldir.size())
        return false;
    if (hasLibrary)
        return QFile::link(testsupport::qmlDir() + QStringLiteral("/ZeltaConnect") + library,
                           place + library);
    QFile broken(place + library);
    QFile type(place + QStringLiteral("/Thing.qml"));
    return broken.open(QIODevice::WriteOnly) && broken.write("no library") > 0 &&
           type.open(QIODevice::WriteOnly) && type.write("import QtQml 2.12\nQtObject {}\n") > 0;
}

void DiagnoseTest::moduleFaults_data()
{
    QTest::addColumn<QByteArray>("qmldir"); // empty: no module
    QTest::addColumn<bool>("hasLibrary");
    QTest::addColumn<QString>("finding");
    const QByteArray realOne =
        "module ZeltaConnect\nplugin zeltaconnectplugin\nclassname ZeltaConnectPlugin\n";
    QTest::newRow("not installed") << QByteArray() << false
                                   << QStringLiteral("ZeltaConnect 1.0 is not found: ");
    QTest::newRow("no library") << QByteArray("module ZeltaConnect\nplugin nothing\n") << false
                                << QStringLiteral("/ZeltaConnect cannot be loaded: ");
    QTest::newRow("damaged library") << realOne << false
                                     << QStringLiteral("/ZeltaConnect cannot be loaded: ");
    QTest::newRow("another version") << QByteArray("module ZeltaConnect\nThing 2.0 Thing.qml\n") << false
                                     << QStringLiteral("version 1.0 is not installed");
    QTest::newRow("no companion") << realOne << true << QStringLiteral("ZeltaConnect.Companion");
}

void DiagnoseTest::moduleFaults()
{
    QFETCH(const QByteArray, qmldir);
    QFETCH(const bool, hasLibrary);
    QFETCH(const QString, finding);
    const QTemporaryDir folder;
    QVERIFY(qmldir.isEmpty() || makeModule(folder, qmldir, hasLibrary));
    const SystemRoot root;
    const QString fault = QStringLiteral("module");
    const DiagnosisRun run(root, {QStringLiteral("--import"), folder.path()});
    QCOMPARE(run.difference(fault), QString());
    QVERIFY2(run.finding(fault).contains(finding), qPrintable(run.finding(fault)));
    const QStringList skipped = {QStringLiteral("engine"), QStringLiteral("engine-ping")};
    QCOMPARE(run.checks("skipped"), skipped);
}

void DiagnoseTest::noPing()
{
    const SystemRoot root;
    QProcessEnvironment environment = root.environment();
    environment.insert(QStringLiteral("PATH"), root.place(QStringLiteral("/nothing")));
    const DiagnosisRun run(environment, {});
    QCOMPARE(run.difference(QStringLiteral("ping")), QString());
    QVERIFY(run.finding(QStringLiteral("ping")).contains(QLatin1String("there is no ping in PATH")));
    QCOMPARE(run.checks("skipped"), QStringList{QStringLiteral("engine-ping")});
}

void DiagnoseTest::engineIsOff()
{
    const SystemRoot root;
    const DiagnosisRun run(root, {QStringLiteral("--engine=127.20.41.32")});
    QCOMPARE(run.difference(QStringLiteral("engine")), QString());
    QVERIFY(
        run.finding(QStringLiteral("engine")).contains(QLatin1String("127.20.41.32:19797 does not answer")));
    QCOMPARE(run.checks("skipped"), QStringList{QStringLiteral("engine-ping")});
}

void DiagnoseTest::engineIsSilent()
{
    QVERIFY(m_engine.setFailure(QStringLiteral("no-query-reply")));
    const SystemRoot root;
    const DiagnosisRun run(root);
    m_engine.clearFailures();
    QCOMPARE(run.difference(QStringLiteral("engine")), QString());
}

// This process loads the module, and a socket of it loses datagrams.
void DiagnoseTest::realDrops()
{
    QLibrary module(testsupport::qmlDir() + QStringLiteral("/ZeltaConnect/libzeltaconnectplugin.so"));
    QVERIFY2(module.load(), qPrintable(module.errorString()));
    QUdpSocket socket;
    QVERIFY(socket.bind(QHostAddress(QStringLiteral("127.20.41.33"))));
    socket.setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, 1);
    QUdpSocket sender;
    for (int i = 0; i < 100; ++i)
        sender.writeDatagram(QByteArray(1000, 'x'), socket.localAddress(), socket.localPort());
    SystemRoot root;
    QVERIFY(root.useRealSockets());
    const DiagnosisRun run(root);
    QCOMPARE(run.difference(QStringLiteral("drops")), QString());
    QVERIFY2(run.finding(QStringLiteral("drops"))
                 .contains(QStringLiteral("(process %1): ").arg(QCoreApplication::applicationPid())),
             qPrintable(run.finding(QStringLiteral("drops"))));
}

void DiagnoseTest::dropsOfOthers()
{
    SystemRoot root;
    QVERIFY(root.addSocket("00000000:14E9", 31, 7) && root.addProcess(97, "other", 31, "/lib/other.so"));
    const DiagnosisRun ofKnown(root);
    QCOMPARE(ofKnown.difference(QString()), QString());
    QVERIFY(root.addSocket("00000000:14E9", 32, 7)); // of a process that cannot be seen
    const DiagnosisRun ofUnknown(root);
    QCOMPARE(ofUnknown.difference(QString()), QString());
    QCOMPARE(ofUnknown.checks("skipped"), QStringList{QStringLiteral("drops")});
}

void DiagnoseTest::unreadableSockets()
{
    SystemRoot root;
    QVERIFY(root.write(QStringLiteral("/proc/net/udp"), "\xff noise\n1: : : :\n"));
    const DiagnosisRun run(root);
    QCOMPARE(run.difference(QString()), QString());
    QVERIFY(run.checks("skipped").contains(QStringLiteral("drops")));
}

void DiagnoseTest::asText()
{
    SystemRoot root;
    QVERIFY(root.write(QStringLiteral("/proc/sys/net/core/rmem_max"), "212992\n"));
    const ProgramRun run =
        runZeltaSend({QStringLiteral("--diagnose"), QStringLiteral("--quiet")}, root.environment());
    QCOMPARE(run.status, 7);
    QCOMPARE(run.errors, QByteArray("zelta-send: faults found: receive-buffer\n"));
    const QList<QByteArray> lines = run.output.split('\n');
    QCOMPARE(lines.size(), 13);
    QVERIFY(lines.at(0).startsWith("ok      module          ZeltaConnect 1.0 in "));
    QVERIFY(lines.at(7).startsWith("FAULT   receive-buffer  the limit is 212992 bytes"));
    QVERIFY(lines.at(8).startsWith("        mend: put \"net.core.rmem_max = 1048576\""));
    QVERIFY(lines.at(9).startsWith("ok      catalogue       "));
}

void DiagnoseTest::interrupted_data()
{
    QTest::addColumn<int>("signal");
    QTest::addColumn<bool>("pingHangs");
    QTest::addColumn<int>("checks");
    QTest::newRow("SIGINT while the engine is asked") << SIGINT << false << 5;
    QTest::newRow("SIGTERM while the engine is asked") << SIGTERM << false << 5;
    QTest::newRow("SIGINT while ping runs") << SIGINT << true << 4;
    QTest::newRow("SIGTERM while ping runs") << SIGTERM << true << 4;
}

void DiagnoseTest::interrupted()
{
    QFETCH(const int, signal);
    QFETCH(const bool, pingHangs);
    QFETCH(const int, checks);
    LongDiagnosis diagnosis;
    const QString started = diagnosis.root.place(QStringLiteral("/started"));
    if (pingHangs)
        QVERIFY(diagnosis.root.writePing(">'" + QFile::encodeName(started) + "'\nexec sleep 60\n"));
    diagnosis.start({QStringLiteral("--json")});
    const bool isBusy = QTest::qWaitFor(
        [&] { return pingHangs ? QFile::exists(started) : diagnosis.isAsked; }, testsupport::patienceMs);
    QVERIFY(isBusy);
    diagnosis.signal(signal);
    QCOMPARE(diagnosis.run.exitStatus(), 130);
    const QJsonObject result = onlyObject(diagnosis.run.output().toUtf8());
    QVERIFY2(hasDocumentedKeys(result), qPrintable(diagnosis.run.output()));
    QCOMPARE(result.value(QLatin1String("action")).toString(), QStringLiteral("diagnose"));
    QCOMPARE(result.value(QLatin1String("status")).toInt(), 130);
    QCOMPARE(result.value(QLatin1String("result")).toString(), QStringLiteral("interrupted"));
    QCOMPARE(result.value(QLatin1String("message")).toString(), QStringLiteral("interrupted"));
    // Without the check that was running.
    QCOMPARE(result.value(QLatin1String("checks")).toArray().size(), checks);
}

void DiagnoseTest::interruptedText()
{
    LongDiagnosis diagnosis;
    diagnosis.start({});
    QVERIFY(QTest::qWaitFor([&] { return diagnosis.isAsked; }, testsupport::patienceMs));
    diagnosis.signal(SIGINT);
    QCOMPARE(diagnosis.run.exitStatus(), 130);
    QCOMPARE(diagnosis.run.errors(), QStringLiteral("zelta-send: interrupted\n"));
    QCOMPARE(diagnosis.run.output().count(QLatin1Char('\n')), 5);
}

QTEST_GUILESS_MAIN(DiagnoseTest)
#include "tst_diagnose.moc"
