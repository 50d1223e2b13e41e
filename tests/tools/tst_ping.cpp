// The ping of the tools prints the summary that the module expects, with and without the permission to send.

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

class ToolsPingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void loopbackIsAnswered_data();
    void loopbackIsAnswered();
    void usesBusyBoxWhereItMaySend();

private:
    static QByteArray outputWith(const QString &searchPath, const QString &address);
    static bool writeBusyBox(const QTemporaryDir &folder, const QByteArray &commands);
};

QByteArray ToolsPingTest::outputWith(const QString &searchPath, const QString &address)
{
    QProcess ping;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"), searchPath);
    ping.setProcessEnvironment(environment);
    ping.start(QStringLiteral(PING_SCRIPT), {QStringLiteral("-c"), QStringLiteral("1"), address});
    return ping.waitForFinished() ? ping.readAllStandardOutput() : QByteArray();
}

bool ToolsPingTest::writeBusyBox(const QTemporaryDir &folder, const QByteArray &commands)
{
    QFile script(folder.filePath(QStringLiteral("busybox")));
    return script.open(QIODevice::WriteOnly) && script.write("#!/bin/sh\n" + commands) > 0 &&
           script.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

void ToolsPingTest::loopbackIsAnswered_data()
{
    QTest::addColumn<QByteArray>("busyBox"); // empty: none
    QTest::addColumn<bool>("systemPath");
    QTest::newRow("BusyBox of this machine, if any") << QByteArray() << true;
    QTest::newRow("no BusyBox") << QByteArray() << false;
    QTest::newRow("BusyBox may not send")
        << QByteArray("echo 'ping: permission denied' >&2; exit 1\n") << false;
}

void ToolsPingTest::loopbackIsAnswered()
{
    QFETCH(QByteArray, busyBox);
    QFETCH(bool, systemPath);
    const QTemporaryDir folder;
    QVERIFY(busyBox.isEmpty() || writeBusyBox(folder, busyBox));
    const QByteArray output =
        outputWith(systemPath ? qEnvironmentVariable("PATH") : folder.path(), QStringLiteral("127.20.27.1"));
    QVERIFY2(QString::fromLocal8Bit(output).contains(
                 QRegularExpression(QStringLiteral("transmitted, *1 packets received"))),
             output.constData());
    // Without BusyBox, the output shows that nothing is sent.
    if (!systemPath)
        QCOMPARE(output,
                 QByteArray("127.20.27.1 is this machine: 0 packets transmitted, 1 packets received\n"));
}

void ToolsPingTest::usesBusyBoxWhereItMaySend()
{
    const QTemporaryDir folder;
    QVERIFY(writeBusyBox(folder, "echo \"asked for $*\"\n"));
    QCOMPARE(outputWith(folder.path(), QStringLiteral("192.0.2.1")),
             QByteArray("asked for ping -c 1 192.0.2.1\n"));
}

QTEST_GUILESS_MAIN(ToolsPingTest)
#include "tst_ping.moc"
