#pragma once

#include "support/networknamespace.h"

#include <QCoreApplication>
#include <QObject>
#include <QTest>
#include <QTextStream>

namespace testsupport {

/// A test whose process has a private network, in which the engine may use its fixed address. If no such
/// network can be made, the program prints the reason and CTest counts it as skipped.
class PrivateNetworkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
};

/// CTest counts a test with this exit code as skipped.
constexpr int skippedExitCode = 77;

/// Runs a test in a private network. Its main() returns the result.
template<class Test>
int runInPrivateNetwork(int argc, char **argv)
{
    // Must run before the process has a second thread.
    const QString noNetwork = enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    if (!noNetwork.isEmpty()) {
        QTextStream(stdout) << "skipped: the test needs a private network namespace: " << noNetwork << '\n';
        return skippedExitCode;
    }
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace testsupport
