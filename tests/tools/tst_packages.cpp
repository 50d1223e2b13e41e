// The packages that ./run and ./check install. A substitute for apt-get records its arguments.

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

class PackagesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void installationRemovesNothing_data();
    void installationRemovesNothing();
};

void PackagesTest::installationRemovesNothing_data()
{
    QTest::addColumn<QString>("groups");
    QTest::newRow("./run") << QStringLiteral("build run wayland");
    QTest::newRow("./check") << QStringLiteral("build run test reference");
}

void PackagesTest::installationRemovesNothing()
{
    QFETCH(QString, groups);
    const QTemporaryDir folder;
    const auto write = [&folder](const char *program, const QByteArray &commands) {
        QFile script(folder.filePath(QLatin1String(program)));
        return script.open(QIODevice::WriteOnly) && script.write("#!/bin/sh\n" + commands) > 0 &&
               script.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                     QFileDevice::ExeOwner);
    };
    QVERIFY(write("apt-get", "echo \"apt-get $*\"\n"));
    QVERIFY(write("sudo", "exec \"$@\"\n"));
    QVERIFY(write("dpkg-query", "exit 1\n")); // no package is installed
    QProcess shell;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("PATH"),
                       folder.path() + QLatin1Char(':') + environment.value(QStringLiteral("PATH")));
    shell.setProcessEnvironment(environment);
    shell.start(
        QStringLiteral("bash"),
        {QStringLiteral("-c"), QStringLiteral("set -u; . '" PACKAGES_SCRIPT "'; install_missing ") + groups});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 0);
    const QString output = QString::fromLocal8Bit(shell.readAllStandardOutput());
    const QStringList installations =
        output.split(QLatin1Char('\n')).filter(QStringLiteral("apt-get install "));
    QCOMPARE(installations.size(), 1);
    const QStringList arguments = installations.constFirst().split(QLatin1Char(' '));
    QVERIFY2(arguments.contains(QStringLiteral("--no-remove")), qPrintable(output));
    QVERIFY(arguments.contains(QStringLiteral("busybox")));
    // Each of these packages replaces the other.
    QVERIFY(!arguments.contains(QStringLiteral("inetutils-ping")));
    QVERIFY(!arguments.contains(QStringLiteral("iputils-ping")));
}

QTEST_GUILESS_MAIN(PackagesTest)
#include "tst_packages.moc"
