#pragma once

#include "support/networknamespace.h"

#include <QCoreApplication>
#include <QObject>
#include <QTest>
#include <QTextStream>

namespace testsupport {

/// A test that takes place in a network of this process alone, where the engine may have its fixed address.
/// Where no such network can be had, it says why and CTest counts it as skipped.
class PrivateNetworkTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
};

/// What CTest knows a skipped test by.
constexpr int skippedExitCode = 77;

/// The main() of such a test.
template<class Test>
int runInPrivateNetwork(int argc, char **argv)
{
    // Before there is a second thread.
    const QString noNetwork = enterPrivateNetwork();
    QCoreApplication application(argc, argv);
    if (!noNetwork.isEmpty()) {
        QTextStream(stdout) << "skipped, it needs a network namespace of its own: " << noNetwork << '\n';
        return skippedExitCode;
    }
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace testsupport
